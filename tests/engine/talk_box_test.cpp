#include "tests/engine/game.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace engine::testing
{
namespace
{

std::string quoted(const std::string& text)
{
    return "\"" + text + "\"";
}

TEST(TalkBox, BreaksATextIntoLinesAndPages)
{
    const std::string fifty(50, 'x');
    const std::string line(54, 'y');
    const std::pair<std::string, std::string> talks[] = {
        {quoted("\xC9t\xE9 \x80 \x9C"), "\xC9t\xE9 \x80 \x9C|\n"},
        {"12.5", "12.5|\n"},
        {"false", "false|\n"},
        {quoted(fifty + " abc"), fifty + " abc|\n"},
        {quoted(fifty + " abcd  e"), fifty + "|abcd  e|\n"},
        {quoted(line + "   z"), line + "|z|\n"},
        {quoted(line + "yz"), line + "|yz|\n"},
        {quoted("a\\n\\nb"), "a||b|\n"},
        {quoted("1\\n2\\n3\\n4\\n5\\n6"), "1|2|3|4|5|\n6|\n"},
    };
    for (const auto& [argument, pages] : talks) {
        Game game;
        game.enter("pages = ''\r\naffichertexte(" + argument + ")\r\nfinished = true");
        game.press(button::cross);
        game.press(button::cross);
        game.run();
        EXPECT_EQ(game.pages(), pages);
        EXPECT_EQ(game.value("finished"), "true");
    }
}

TEST(TalkBox, WaitsForAPressThatBeganAfterIt)
{
    Game game;
    game.event(5, 5, "affichertexte(\"\")\r\nfirst = true\r\naffichertexte(2)\r\nsecond = true");
    game.begin();
    game.hold(button::right);
    game.wait(8);
    game.hold(button::right | button::cross);
    game.wait(60);
    const Frame held = game.watch("first");
    game.hold(button::none);
    game.wait(2);
    game.press(button::cross);
    const Frame pressed = game.watch("first");
    const Frame following = game.watch("second");
    game.press(button::cross);
    game.run();
    EXPECT_EQ(game.valueAt(held, "first"), "nil");
    EXPECT_EQ(game.valueAt(pressed, "first"), "true");
    EXPECT_EQ(game.valueAt(following, "second"), "nil");
    EXPECT_EQ(game.value("second"), "true");
}

TEST(TalkBox, IsNotClosedByAPressDuringThePauseBeforeIt)
{
    Game game;
    game.enter("screen.waitVblankStart(20)\r\naffichertexte(1)\r\nclosed = true");
    game.press(button::cross);
    game.wait(30);
    const Frame shown = game.watch("closed");
    game.press(button::cross);
    game.run();
    EXPECT_EQ(game.valueAt(shown, "closed"), "nil");
    EXPECT_EQ(game.value("closed"), "true");
}

TEST(TalkBox, IsClosedByAPressThatTouchesNothing)
{
    Game game;
    game.map("01", "0101", "00100000000000000\r\n\r\n");
    game.event(2, 1, "affichertexte(1)");
    game.event(3, 1, "count = (count or 0) + 1\r\naffichertexte(2)");
    game.begin();
    game.walk(button::right, 1);
    game.press(button::cross);
    const Frame walkedOn = game.watch("count");
    game.press(button::cross);
    game.hold(button::cross);
    game.wait(40);
    game.run();
    EXPECT_EQ(game.valueAt(walkedOn, "count"), "nil");
    EXPECT_EQ(game.value("count"), "1");
}

} // namespace
} // namespace engine::testing
