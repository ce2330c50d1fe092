#include "player/buttons.h"
#include "player/frame_clock.h"
#include "player/frame_scaler.h"
#include "player/sdl_input.h"

#include <gtest/gtest.h>

#include <vector>

namespace player::testing
{
namespace
{

TEST(FrameClock, CountsSixtyFramesASecondAndStartsEachAtItsFirstInstant)
{
    EXPECT_EQ(frameAt(std::chrono::hours(24 * 365 * 100)), 60LL * 3600 * 24 * 365 * 100);
    EXPECT_EQ(startOfFrame(90), std::chrono::milliseconds(1500));
    for (const std::int64_t frame : {0LL, 1LL, 2LL, 59LL, 61LL, 12345679LL, 6'000'000'000LL}) {
        EXPECT_EQ(frameAt(startOfFrame(frame)), frame);
        EXPECT_EQ(frameAt(startOfFrame(frame + 1) - Instant(1)), frame);
    }
}

TEST(PadState, KeepsATapForTheNextReadingAndHoldsAButtonUntilItsLastSourceLetsGo)
{
    PadState pad;
    pad.press(1, button::circle);
    pad.release(1);
    pad.press(1, button::cross);
    pad.press(1, button::cross);
    pad.press(2, button::cross);
    EXPECT_EQ(pad.take(), button::circle | button::cross);
    pad.release(1);
    EXPECT_EQ(pad.take(), button::cross);
    pad.release(2);
    EXPECT_EQ(pad.take(), button::none);
    pad.press(1, button::left);
    pad.press(2, button::up);
    pad.take();
    pad.releaseAll();
    EXPECT_EQ(pad.take(), button::none);
}

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

TEST(SdlInput, KnowsTheKeys)
{
    const std::pair<SDL_Keycode, Buttons> cases[] = {
        {SDLK_UP, button::up},        {SDLK_x, button::cross},    {SDLK_RETURN, button::cross},
        {SDLK_s, button::square},     {SDLK_d, button::triangle}, {SDLK_BACKSPACE, button::circle},
        {SDLK_ESCAPE, button::start}, {SDLK_TAB, button::select}, {SDLK_F1, button::none},
    };
    for (const auto& [key, buttons] : cases) {
        EXPECT_EQ(buttonOfKey(key), buttons) << SDL_GetKeyName(key);
    }
}

TEST(SdlInput, IgnoresTheRepeatsOfAHeldKey)
{
    SdlInput input;
    input.handle(keyEvent(SDL_KEYDOWN, SDL_SCANCODE_X, SDLK_x, 1));
    EXPECT_EQ(input.take(), button::none);
    input.handle(keyEvent(SDL_KEYDOWN, SDL_SCANCODE_X, SDLK_x));
    input.handle(keyEvent(SDL_KEYDOWN, SDL_SCANCODE_SPACE, SDLK_SPACE));
    input.handle(keyEvent(SDL_KEYUP, SDL_SCANCODE_X, SDLK_x));
    input.take();
    EXPECT_EQ(input.take(), button::cross);
}

TEST(SdlInput, TakesTheLeftStickForTheDirections)
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
}

TEST(FrameScaler, EnlargesByTheLargestWholeFactor)
{
    const std::pair<Area, Placement> cases[] = {{{480, 272}, {1, 0, 0}},
                                                {{959, 544}, {1, 239, 136}},
                                                {{960, 544}, {2, 0, 0}},
                                                {{1920, 1080}, {3, 240, 132}},
                                                {{100, 100}, {1, -190, -86}}};
    for (const auto& [target, expected] : cases) {
        const Placement place = centred({480, 272}, target);
        EXPECT_EQ(place.factor, expected.factor) << target.width;
        EXPECT_EQ(place.left, expected.left) << target.width;
        EXPECT_EQ(place.top, expected.top) << target.width;
    }
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
