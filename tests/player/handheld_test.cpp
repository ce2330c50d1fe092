#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <SDL_image.h>
#include <string>

namespace player::testing
{
namespace
{

struct Case {
    std::string script;
    std::string result;
};

TEST(Screen, ShowsWhatWasDrawnWhenItIsFlipped)
{
    const TempFolder folder;
    folder.write("index.lua", "screen:clear(Color.new(10, 20, 30)) screen.flip() screen.waitVblankStart(5) "
                              "screen:fillRect(0, 0, 5, 5, Color.new(255, 0, 0)) screen.waitVblankStart(5) "
                              "screen:flip() screen.waitVblankStart(5)");
    PlayerRun game(folder.path());
    for (const Frame frame : {3, 8, 12}) {
        game.capture(frame);
    }
    EXPECT_EQ(game.play(600), Outcome::Ended) << game.error();
    EXPECT_EQ(game.captured(3).pixel(0, 0), makePixel(10, 20, 30));
    EXPECT_EQ(game.captured(8).pixel(0, 0), makePixel(10, 20, 30));
    EXPECT_EQ(game.captured(12).pixel(4, 4), makePixel(255, 0, 0));
    EXPECT_EQ(game.captured(12).pixel(5, 4), makePixel(10, 20, 30));
}

TEST(Screen, WaitsForWholeFramesAndTakesInEventsAtEach)
{
    const std::pair<const char*, Frame> cases[] = {
        {"screen.waitVblankStart()", 1},       {"screen:waitVblankStart(7)", 7},
        {"screen.waitVblankStart(2.9)", 2},    {"screen.waitVblankStart(0)", 0},
        {"screen.waitVblankStart(-1e300)", 0}, {"screen.waitVblankStart(0/0)", 0},
        {"screen.waitVblankStart('3')", 3},    {"screen.waitVblankStart(100)", 100}};
    for (const auto& [wait, frames] : cases) {
        const TempFolder folder;
        folder.write("index.lua", wait);
        PlayerRun game(folder.path());
        EXPECT_EQ(game.play(600), Outcome::Ended) << game.error();
        EXPECT_EQ(game.frame(), frames) << wait;
        EXPECT_GE(game.host().pumped(), frames) << wait;
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

TEST(Controls, DoNotLoseATapBetweenTwoReadings)
{
    const TempFolder folder;
    folder.write("index.lua",
                 "result = '' for i = 1, 3 do screen.waitVblankStart(10) local p = Controls.read() "
                 "result = result .. tostring(p:cross()) .. ' ' same = p == Controls.read() end");
    PlayerRun game(folder.path());
    game.tap(12, button::cross);
    game.play(600);
    EXPECT_EQ(game.value("result .. tostring(same)"), "false true false true");
}

TEST(Handheld, GivesWhatAScriptAsksFor)
{
    const Case cases[] = {
        {"local t = Timer.new() screen.waitVblankStart(60) local a = t:time() "
         "t:stop() screen.waitVblankStart(60) local b = t:time() t:start() "
         "screen.waitVblankStart(60) local c = t:time() t:reset() "
         "screen.waitVblankStart(30) local d = t:time() result = table.concat({a, b, c, d}, ' ')",
         "1000 1000 2000 499"},
        {"local c = Color.new(-5, 300, 7.9):colors() result = c.r..' '..c.g..' '..c.b..' '..c.a",
         "0 255 7 255"},
        {"result = Color.new(1, 2, 3) == Color.new(1, 2, 3, 255)", "true"},
        {"local i = Image.createEmpty(20, 20) local w = Color.new(255, 255, 255) "
         "i:fillRect(0, 0, 5, 5, w) i:drawLine(0, 10, 19, 10, w) i:print(8, 12, '_', w) "
         "i:pixel(19, 0, Color.new(1, 2, 3, 4)) i:pixel(50, 50, w) local n = 0 "
         "for y = 0, 19 do for x = 0, 19 do if i:pixel(x, y) == w then n = n + 1 end end end "
         "result = n .. ' ' .. i:pixel(19, 0):colors().a .. ' ' .. i:pixel(-1, 0):colors().a",
         "53 4 0"},
    };
    for (const auto& [script, result] : cases) {
        EXPECT_EQ(resultOf(script), result) << script;
    }
}

TEST(Picture, IsDrawnFromAFileWithItsAlpha)
{
    const TempFolder folder;
    SDL_Surface* const surface = SDL_CreateRGBSurfaceWithFormat(0, 4, 2, 32, SDL_PIXELFORMAT_ARGB8888);
    SDL_FillRect(surface, nullptr, 0xFF0000FF);
    const SDL_Rect hole{2, 0, 2, 2};
    SDL_FillRect(surface, &hole, 0x00000000);
    ASSERT_EQ(IMG_SavePNG(surface, (folder.path() / "é.png").c_str()), 0);
    SDL_FreeSurface(surface);
    EXPECT_EQ(resultOf("screen:clear(Color.new(255, 0, 0)) local i = Image.load('\xE9.png') "
                       "screen:blit(10, 10, i) screen:blit(-3, -1, i, 1, 0, 3, 2) "
                       "screen:blit(1e300, 0/0, i, -1e300, 1/0, 1/0, 1e9) result = i:width() .. i:height() "
                       "for _, at in ipairs{{11, 11}, {12, 11}, {0, 0}} do local c = "
                       "screen:pixel(at[1], at[2]):colors() result = result .. ' ' .. c.r .. '-' .. c.b end",
                       folder),
              "42 0-255 255-0 255-0");
}

TEST(Picture, TakesRoomInABudgetUntilNothingHoldsIt)
{
    const Case cases[] = {
        {"for i = 1, 256 do local p = Image.createEmpty(1024, 1024) end result = 'a gigabyte in all'",
         "a gigabyte in all"},
        {"local a, b = Image.createEmpty(4096, 4096), Image.createEmpty(4096, 4096) a = nil "
         "local c = Image.createEmpty(4096, 4096) result = c:width()",
         "4096"},
        {"local t, ok, why = {} for i = 1, 40 do "
         "ok, why = pcall(function() t[i] = Image.createEmpty(1024, 1024) end) end result = #t .. ' ' .. why",
         "32 index.lua:1: the pictures take more than 128 MB"},
        {"Image.load('huge.png')", "failed: index.lua:1: huge.png: is larger than 4096 pixels a side"},
    };
    const TempFolder folder;
    folder.write("huge.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\1\0\0\0\1\0\0\x08\x06\0\0\0", 29));
    for (const auto& [script, result] : cases) {
        EXPECT_EQ(resultOf(script, folder), result) << script;
    }
}

} // namespace
} // namespace player::testing
