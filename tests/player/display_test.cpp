#include "player/frame_scaler.h"
#include "player/sdl_input.h"

#include <gtest/gtest.h>

#include <vector>

namespace player::testing
{
namespace
{

SDL_Event keyEvent(std::uint32_t type, SDL_Scancode code, SDL_Keycode key, std::uint8_t repeat = 0)
{
    SDL_Event event{};
    event.key.type = type;
    event.key.repeat = repeat;
    event.key.keysym.scancode = code;
    event.key.keysym.sym = key;
    return event;
}

SDL_Event stickEvent(std::uint8_t axis, std::int16_t value)
{
    SDL_Event event{};
    event.caxis.type = SDL_CONTROLLERAXISMOTION;
    event.caxis.axis = axis;
    event.caxis.value = value;
    return event;
}

TEST(SdlInput, KeepsATapForTheNextReadingAndHoldsAButtonUntilItsLastKeyLetsGo)
{
    SdlInput input;
    input.handle(keyEvent(SDL_KEYDOWN, SDL_SCANCODE_X, SDLK_x, 1));
    EXPECT_EQ(input.take(), button::none) << "a repeat of a key that was held before";
    input.handle(keyEvent(SDL_KEYDOWN, SDL_SCANCODE_BACKSPACE, SDLK_BACKSPACE));
    input.handle(keyEvent(SDL_KEYUP, SDL_SCANCODE_BACKSPACE, SDLK_BACKSPACE));
    input.handle(keyEvent(SDL_KEYDOWN, SDL_SCANCODE_X, SDLK_x));
    input.handle(keyEvent(SDL_KEYDOWN, SDL_SCANCODE_SPACE, SDLK_SPACE));
    EXPECT_EQ(input.take(), button::circle | button::cross);
    input.handle(keyEvent(SDL_KEYUP, SDL_SCANCODE_X, SDLK_x));
    EXPECT_EQ(input.take(), button::cross);
    input.handle(keyEvent(SDL_KEYUP, SDL_SCANCODE_SPACE, SDLK_SPACE));
    EXPECT_EQ(input.take(), button::none);
}

TEST(SdlInput, TakesTheLeftStickForTheDirectionsUntilItIsUnplugged)
{
    SdlInput input;
    input.handle(stickEvent(SDL_CONTROLLER_AXIS_LEFTX, -30000));
    input.handle(stickEvent(SDL_CONTROLLER_AXIS_LEFTY, 30000));
    input.handle(stickEvent(SDL_CONTROLLER_AXIS_RIGHTX, 30000));
    EXPECT_EQ(input.take(), button::left | button::down);
    input.handle(stickEvent(SDL_CONTROLLER_AXIS_LEFTX, 30000));
    input.handle(stickEvent(SDL_CONTROLLER_AXIS_LEFTY, -3000));
    input.take();
    EXPECT_EQ(input.take(), button::right);
    SDL_Event unplugged{};
    unplugged.type = SDL_CONTROLLERDEVICEREMOVED;
    input.handle(unplugged);
    EXPECT_EQ(input.take(), button::none);
}

TEST(FrameScaler, DrawsEachPixelWhereItBelongs)
{
    Image picture(3, 2);
    for (int i = 0; i < 6; ++i) {
        picture.setPixel(i % 3, i / 3, static_cast<Pixel>(i + 1));
    }
    // Targets larger and smaller than the picture, with a rim that must stay as it is.
    const Placement places[] = {{1, 0, 0}, {2, 1, 1}, {3, -2, -1}, {2, -3, 2}, {1, 4, 4}, {3, 6, 0}};
    for (const Placement& place : places) {
        constexpr int width = 7;
        constexpr int height = 5;
        constexpr int pitch = 9;
        std::vector<Pixel> pixels(static_cast<std::size_t>(pitch * height), 99);
        drawEnlarged(picture, {0, 2}, {pixels.data(), pitch, {width, height}}, place);
        for (int i = 0; i < pitch * height; ++i) {
            const int x = i % pitch - place.left;
            const int y = i / pitch - place.top;
            const bool drawn =
                i % pitch < width && x >= 0 && y >= 0 && x < 3 * place.factor && y < 2 * place.factor;
            const Pixel expected = drawn ? picture.pixel(x / place.factor, y / place.factor) : 99;
            ASSERT_EQ(pixels[static_cast<std::size_t>(i)], expected)
                << "factor " << place.factor << " at " << i;
        }
    }
}

} // namespace
} // namespace player::testing
