#pragma once

#include "player/buttons.h"

#include <memory>
#include <SDL.h>
#include <vector>

namespace player
{

/// The button that a key stands for; none for every other key.
Buttons buttonOfKey(SDL_Keycode key);

/// Turns SDL's events of keyboard and game controllers into button states.
class SdlInput
{
public:
    /// Finds the controllers that are plugged in; later ones announce themselves. Without this there is only
    /// the keyboard. SDL's video must have been started.
    void startControllers();

    /// Events that are neither a key's nor a controller's are ignored.
    void handle(const SDL_Event& event);

    /// As PadState::take().
    Buttons take() { return pad_.take(); }

    /// As PadState::held().
    Buttons held() const { return pad_.held(); }

private:
    struct CloseController {
        void operator()(SDL_GameController* controller) const { SDL_GameControllerClose(controller); }
    };
    using Controller = std::unique_ptr<SDL_GameController, CloseController>;

    void key(const SDL_KeyboardEvent& event);
    void controllerButton(const SDL_ControllerButtonEvent& event);
    void controllerStick(const SDL_ControllerAxisEvent& event);
    void unplug(SDL_JoystickID id);

    PadState pad_;
    std::vector<Controller> controllers_;
};

} // namespace player
