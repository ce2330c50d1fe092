#include "player/error_page.h"
#include "player/play.h"
#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace player::testing
{
namespace
{

using Lines = std::vector<std::string>;

// Whether anything but the page's ground is in a band of rows.
bool isWrittenOn(const Image& image, int first, int last)
{
    for (int y = first; y < last; ++y) {
        const Pixel* const row = image.row(y);
        if (std::any_of(row, row + image.width(), [row](Pixel pixel) { return pixel != row[0]; })) {
            return true;
        }
    }
    return false;
}

TEST(ErrorPage, WrapsAtBlanksOrHard)
{
    struct Case {
        const char* text;
        std::size_t width;
        Lines lines;
    };
    const Case cases[] = {
        {"", 5, {}},
        {"abcde", 5, {"abcde"}},
        {"ab cd ef", 5, {"ab cd", "ef"}},
        {"abcdefgh", 3, {"abc", "def", "gh"}},
        {"a\n\nb", 5, {"a", "", "b"}},
        {"ab\ncdefghi j", 5, {"ab", "cdefg", "hi j"}},
        {"abc", 1, {"a", "b", "c"}},
        {" abc", 2, {" a", "bc"}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(wrapped(c.text, c.width), c.lines) << c.text;
    }
}

TEST(ErrorPage, ShowsEvenTheLongestReport)
{
    ErrorReport report;
    report.file = std::string(200, 'f');
    report.message = std::string(5000, 'm');
    report.trace.assign(100, "call");
    Image page(screenWidth, screenHeight, Image::Kind::AlwaysOpaque);
    drawErrorPage(page, report);
    EXPECT_TRUE(isWrittenOn(page, 10, 22));
    EXPECT_TRUE(isWrittenOn(page, 250, 260));
    EXPECT_FALSE(isWrittenOn(page, 262, 272));
}

TEST(ErrorPage, WritesUtf8)
{
    ErrorReport report{"\xE9t\xE9.lua", 3, "\x8Cuvre", {"first", "second"}};
    std::ostringstream out;
    writeError(out, report);
    EXPECT_EQ(out.str(), "Error: été.lua:3: Œuvre\n    first\n    second\n");
}

TEST(Play, ShowsAnErrorUntilTheWindowIsClosed)
{
    const TempFolder folder;
    folder.write("index.lua", "screen.waitVblankStart(5) local a = nil + 1");
    FakeHost host;
    host.closeAt(50);
    std::ostringstream errors;
    EXPECT_EQ(play(host, folder.path(), "index.lua", errors), 1);
    EXPECT_EQ(errors.str().substr(0, 40), "Error: index.lua:1: attempt to perform a");
    EXPECT_TRUE(isWrittenOn(host.shown(), 0, screenHeight));
    EXPECT_EQ(host.frame(), 50);
}

TEST(Play, ShowsAnErrorUntilAFreshPress)
{
    const TempFolder folder;
    folder.write("index.lua", "screen.waitVblankStart(5) error('x')");
    FakeHost host;
    host.hold(2, button::circle);
    host.hold(20, button::none);
    host.hold(30, button::cross);
    host.hold(40, button::start);
    host.closeAt(500);
    std::ostringstream errors;
    EXPECT_EQ(play(host, folder.path(), "index.lua", errors), 1);
    EXPECT_EQ(host.frame(), 40);
}

TEST(Play, GivesZeroWithoutAnError)
{
    for (const char* script : {"screen.waitVblankStart(5)", "while true do end"}) {
        const TempFolder folder;
        folder.write("index.lua", script);
        FakeHost host;
        host.closeAt(10);
        std::ostringstream errors;
        EXPECT_EQ(play(host, folder.path(), "index.lua", errors), 0) << script;
        EXPECT_EQ(errors.str(), "");
    }
}

// The exit code of the program itself, started like the tool does but without a display.
int exitCodeOf(const TempFolder& folder, const std::string& arguments)
{
    const std::string command = "cd '" + folder.path().string() +
                                "' && SDL_VIDEODRIVER=dummy timeout 60 '" PLAYER_PROGRAM "' " + arguments +
                                " >output 2>errors";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Program, TellsByItsExitCodeHowTheGameEnded)
{
    const TempFolder folder;
    folder.write("index.lua",
                 "screen:print(9, 9, 'hello') screen.flip() screen.waitVblankStart(2) print('done')");
    folder.write("broken.lua", "\nlocal = 1");
    EXPECT_EQ(exitCodeOf(folder, "index.lua"), 0);
    EXPECT_EQ(folder.read("output"), "done\n");
    EXPECT_EQ(folder.read("errors"), "");
    EXPECT_EQ(exitCodeOf(folder, "broken.lua"), 1);
    EXPECT_EQ(folder.read("errors"), "Error: broken.lua:2: '<name>' expected near '='\n");
    EXPECT_EQ(exitCodeOf(folder, "index.lua more"), 1);
    EXPECT_EQ(folder.read("errors").substr(0, 6), "usage:");
}

TEST(Program, PrintsNoFlood)
{
    const TempFolder folder;
    folder.write("index.lua", "print(1, nil, 'a') for i = 1, 20 do print(string.rep('x', 1000000)) end "
                              "io.write(string.rep('y', 1000000))");
    EXPECT_EQ(exitCodeOf(folder, "index.lua"), 0);
    const std::string output = folder.read("output");
    EXPECT_EQ(output.substr(0, 9), "1\tnil\ta\nx");
    EXPECT_EQ(std::count(output.begin(), output.end(), 'x'), 16'000'000);
    EXPECT_EQ(output.find('y'), std::string::npos);
}

} // namespace
} // namespace player::testing
