#include "player/sdl_input.h"

#include <algorithm>
#include <utility>

namespace player
{

namespace
{

constexpr std::pair<SDL_Keycode, Buttons> keys[] = {
    {SDLK_UP, button::up},        {SDLK_DOWN, button::down},  {SDLK_LEFT, button::left},
    {SDLK_RIGHT, button::right},  {SDLK_x, button::cross},    {SDLK_SPACE, button::cross},
    {SDLK_RETURN, button::cross}, {SDLK_c, button::circle},   {SDLK_BACKSPACE, button::circle},
    {SDLK_s, button::square},     {SDLK_d, button::triangle}, {SDLK_ESCAPE, button::start},
    {SDLK_p, button::start},      {SDLK_TAB, button::select}, {SDLK_q, button::l},
    {SDLK_w, button::r},
};

// By place on the pad: the lower button is the cross.
constexpr std::pair<SDL_GameControllerButton, Buttons> controllerButtons[] = {
    {SDL_CONTROLLER_BUTTON_DPAD_UP, button::up},     {SDL_CONTROLLER_BUTTON_DPAD_DOWN, button::down},
    {SDL_CONTROLLER_BUTTON_DPAD_LEFT, button::left}, {SDL_CONTROLLER_BUTTON_DPAD_RIGHT, button::right},
    {SDL_CONTROLLER_BUTTON_A, button::cross},        {SDL_CONTROLLER_BUTTON_B, button::circle},
    {SDL_CONTROLLER_BUTTON_X, button::square},       {SDL_CONTROLLER_BUTTON_Y, button::triangle},
    {SDL_CONTROLLER_BUTTON_START, button::start},    {SDL_CONTROLLER_BUTTON_BACK, button::select},
    {SDL_CONTROLLER_BUTTON_LEFTSHOULDER, button::l}, {SDL_CONTROLLER_BUTTON_RIGHTSHOULDER, button::r},
};

template <class Table, class Key> Buttons lookUp(const Table& table, Key key)
{
    const auto* const found =
        std::find_if(std::begin(table), std::end(table), [key](const auto& row) { return row.first == key; });
    return found == std::end(table) ? button::none : found->second;
}

enum class Source : std::uint64_t { Key = 1, Button = 2, Stick = 3 };

std::uint64_t sourceNumber(Source source, std::uint64_t device, std::uint64_t part)
{
    return static_cast<std::uint64_t>(source) << 48U | (device & 0xFFFFU) << 32U | (part & 0xFFFFFFFFU);
}

} // namespace

Buttons buttonOfKey(SDL_Keycode key)
{
    return lookUp(keys, key);
}

void SdlInput::startControllers()
{
    // SDL announces those that are there already, too.
    SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER);
}

void SdlInput::handle(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        key(event.key);
        break;
    case SDL_CONTROLLERBUTTONDOWN:
    case SDL_CONTROLLERBUTTONUP:
        controllerButton(event.cbutton);
        break;
    case SDL_CONTROLLERAXISMOTION:
        controllerStick(event.caxis);
        break;
    case SDL_CONTROLLERDEVICEADDED:
        controllers_.emplace_back(SDL_GameControllerOpen(event.cdevice.which));
        break;
    case SDL_CONTROLLERDEVICEREMOVED:
        unplug(event.cdevice.which);
        break;
    default:
        break;
    }
}

void SdlInput::key(const SDL_KeyboardEvent& event)
{
    const std::uint64_t source =
        sourceNumber(Source::Key, 0, static_cast<std::uint64_t>(event.keysym.scancode));
    const Buttons buttons = buttonOfKey(event.keysym.sym);
    if (event.type == SDL_KEYUP) {
        pad_.release(source);
    } else if (event.repeat == 0 && buttons != button::none) {
        pad_.press(source, buttons);
    }
}

void SdlInput::controllerButton(const SDL_ControllerButtonEvent& event)
{
    const std::uint64_t source =
        sourceNumber(Source::Button, static_cast<std::uint64_t>(event.which), event.button);
    const Buttons buttons = lookUp(controllerButtons, event.button);
    if (event.type == SDL_CONTROLLERBUTTONUP) {
        pad_.release(source);
    } else if (buttons != button::none) {
        pad_.press(source, buttons);
    }
}

// The left stick stands for the cross of directions.
void SdlInput::controllerStick(const SDL_ControllerAxisEvent& event)
{
    constexpr int threshold = 16000;
    const bool isX = event.axis == SDL_CONTROLLER_AXIS_LEFTX;
    if (!isX && event.axis != SDL_CONTROLLER_AXIS_LEFTY) {
        return;
    }
    const std::uint64_t source =
        sourceNumber(Source::Stick, static_cast<std::uint64_t>(event.which), event.axis);
    if (event.value > threshold) {
        pad_.press(source, isX ? button::right : button::down);
    } else if (event.value < -threshold) {
        pad_.press(source, isX ? button::left : button::up);
    } else {
        pad_.release(source);
    }
}

void SdlInput::unplug(SDL_JoystickID id)
{
    // What it held would stay held for ever.
    pad_.releaseAll();
    std::erase_if(controllers_, [id](const Controller& controller) {
        return SDL_JoystickInstanceID(SDL_GameControllerGetJoystick(controller.get())) == id;
    });
}

} // namespace player
