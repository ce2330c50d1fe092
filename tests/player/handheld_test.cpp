#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <SDL_image.h>
#include <string>

namespace player::testing
{
namespace
{

TEST(Screen, WaitsForWholeFrames)
{
    const std::pair<const char*, Frame> cases[] = {{"", 1},    {"2.9", 2}, {"0", 0},    {"-1e300", 0},
                                                   {"0/0", 0}, {"'3'", 3}, {"100", 100}};
    const TempFolder folder;
    for (const auto& [wait, frames] : cases) {
        folder.write("index.lua", std::string("screen.waitVblankStart(") + wait + ")");
        PlayerRun game(folder.path());
        EXPECT_EQ(game.play(600), Outcome::Ended) << game.error();
        EXPECT_EQ(game.frame(), frames) << wait;
    }
}

TEST(Controls, ReadEachButton)
{
    const TempFolder folder;
    folder.write("index.lua",
                 "result = '' for i = 1, 12 do screen.waitVblankStart(5) local p = Controls.read() "
                 "for _, n in ipairs{'up', 'down', 'left', 'right', 'cross', 'circle', 'square', 'triangle', "
                 "'start', 'select', 'l', 'r'} do if p[n](p) == true then result = result .. n end end "
                 "result = result .. ' ' end");
    PlayerRun game(folder.path());
    Frame frame = 0;
    for (const Buttons buttons :
         {button::up, button::down, button::left, button::right, button::cross, button::circle,
          button::square, button::triangle, button::start, button::select, button::l, button::r}) {
        game.hold(frame += 5, buttons);
    }
    game.play(600);
    EXPECT_EQ(game.value("result"), "up down left right cross circle square triangle start select l r ");
}

TEST(Handheld, GivesWhatAScriptAsksFor)
{
    const std::pair<std::string, std::string> cases[] = {
        {"local t = Timer.new() local function wait() screen.waitVblankStart(60) return t:time() .. ' ' end "
         "result = wait() t:stop() result = result .. wait() t:start() result = result .. wait() t:reset() "
         "result = result .. wait()",
         "1000 1000 2000 999 "},
        {"local c = Color.new(-5, 300, 7.9):colors() result = c.r..' '..c.g..' '..c.b..' '..c.a",
         "0 255 7 255"},
        {"local i = Image.createEmpty(20, 20) local w = Color.new(255, 255, 255) "
         "i:fillRect(0, 0, 5, 5, w) i:drawLine(0, 10, 19, 10, w) i:print(8, 4, '_\\n_', w) i:print(-1e300, "
         "1e300, '_', w) "
         "i:drawLine(6, 1e300, 6, -1e300, w) i:drawLine(19, 13, 10, 16, w) i:drawLine(-1e300, 30, 1e300, 30, "
         "w) "
         "i:pixel(19, 0, Color.new(1, 2, 3, 4)) i:pixel(50, 50, w) local n = 0 "
         "for y = 0, 19 do for x = 0, 19 do if i:pixel(x, y) == w then n = n + 1 end end end "
         "result = n .. ' ' .. i:pixel(19, 0):colors().a .. ' ' .. i:pixel(-1, 0):colors().a",
         "90 4 0"},
        // Pictures take room in a budget until nothing holds them.
        {"local a, b = Image.createEmpty(4096, 4096), Image.createEmpty(4096, 4096) a = nil "
         "local c = Image.createEmpty(4096, 4096) result = c:width()",
         "4096"},
        {"local t, ok, why = {} for i = 1, 40 do "
         "ok, why = pcall(function() t[i] = Image.createEmpty(1024, 1024) end) end result = #t .. ' ' .. why",
         "32 index.lua:1: the pictures take more than 128 MB"},
        {"Image.createEmpty(0, 5)",
         "failed: index.lua:1: bad argument #1 to 'createEmpty' (an image is 1 to 4096 pixels wide)"},
        {"Image.load('huge.png')", "failed: index.lua:1: huge.png: is larger than 4096 pixels a side"},
    };
    const TempFolder folder;
    folder.write("huge.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\1\0\0\0\1\0\0\x08\x06\0\0\0", 29));
    for (const auto& [script, result] : cases) {
        EXPECT_EQ(resultOf(script, folder), result) << script;
    }
}

TEST(Picture, IsDrawnFromAFileWithItsAlpha)
{
    const TempFolder folder;
    SDL_Surface* const surface = SDL_CreateRGBSurfaceWithFormat(0, 4, 2, 32, SDL_PIXELFORMAT_ARGB8888);
    SDL_FillRect(surface, nullptr, 0xFF0000FF);
    const SDL_Rect hole{2, 0, 2, 2};
    SDL_FillRect(surface, &hole, 0x00000000);
    ASSERT_EQ(IMG_SavePNG(surface, folder.at("é.png").c_str()), 0);
    ASSERT_EQ(IMG_SaveJPG(surface, folder.at("a.jpg").c_str(), 95), 0);
    SDL_FreeSurface(surface);
    EXPECT_EQ(resultOf("screen:clear(Color.new(255, 0, 0)) local i = Image.load('\xE9.png') "
                       "screen:blit(10, 10, i) screen:blit(-3, -1, i, 1, 0, 3, 2) "
                       "screen:blit(1e300, 0/0, i, -1e300, 1/0, 1/0, 1e9) result = i:width() .. i:height() "
                       "result = result .. ' ' .. Image.load('a.jpg'):pixel(3, 1):colors().a "
                       "for _, at in ipairs{{11, 11}, {12, 11}, {0, 0}} do local c = "
                       "screen:pixel(at[1], at[2]):colors() result = result .. ' ' .. c.r .. '-' .. c.b end",
                       folder),
              "42 255 0-255 255-0 255-0");
}

} // namespace
} // namespace player::testing
