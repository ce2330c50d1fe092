#include "player/error_page.h"
#include "player/play.h"
#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <tuple>
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
    const std::tuple<const char*, std::size_t, Lines> cases[] = {
        {"", 5, {}},
        {"abcde", 5, {"abcde"}},
        {"ab cd ef", 5, {"ab cd", "ef"}},
        {"abcdefgh", 3, {"abc", "def", "gh"}},
        {"a\n\nb", 5, {"a", "", "b"}},
        {"ab\ncdefghi j", 5, {"ab", "cdefg", "hi j"}},
        {"abc", 1, {"a", "b", "c"}},
        {" abc", 2, {" a", "bc"}},
    };
    for (const auto& [text, width, lines] : cases) {
        EXPECT_EQ(wrapped(text, width), lines) << text;
    }
}

TEST(ErrorPage, ShowsEvenTheLongestReportAndWritesUtf8)
{
    ErrorReport report{std::string(200, 'f'), 3, std::string(5000, 'm'), {}};
    report.trace.assign(100, "call");
    Image page(screenWidth, screenHeight, Image::Kind::AlwaysOpaque);
    drawErrorPage(page, report);
    EXPECT_TRUE(isWrittenOn(page, 10, 22));
    EXPECT_TRUE(isWrittenOn(page, 250, 260));
    EXPECT_FALSE(isWrittenOn(page, 262, 272));
    std::ostringstream out;
    writeError(out, {"\xE9t\xE9.lua", 3, "\x8Cuvre", {"first", "second"}});
    EXPECT_EQ(out.str(), "Error: été.lua:3: Œuvre\n    first\n    second\n");
}

TEST(Play, ShowsAnErrorUntilAFreshPressOrUntilTheWindowIsClosed)
{
    for (const Frame close : {35, 500}) {
        const TempFolder folder;
        folder.write("index.lua", "screen.waitVblankStart(5) local a = nil + 1");
        FakeHost host;
        host.hold(2, button::circle);
        host.hold(20, button::none);
        host.hold(30, button::cross);
        host.hold(40, button::start);
        host.closeAt(close);
        std::ostringstream errors;
        EXPECT_EQ(play(host, folder.path(), "index.lua", errors), 1);
        EXPECT_EQ(errors.str().substr(0, 40), "Error: index.lua:1: attempt to perform a");
        EXPECT_TRUE(isWrittenOn(host.shown(), 0, screenHeight));
        EXPECT_EQ(host.frame(), std::min<Frame>(close, 40));
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

TEST(Program, TellsByItsExitCodeHowTheGameEndedAndPrintsNoFlood)
{
    const TempFolder folder;
    folder.write("index.lua", "print(1, nil, 'a') for i = 1, 20 do print(string.rep('x', 1000000)) end "
                              "io.write(string.rep('y', 1000000))");
    folder.write("broken.lua", "\nlocal = 1");
    EXPECT_EQ(exitCodeOf(folder, "index.lua"), 0);
    const std::string output = folder.read("output");
    EXPECT_EQ(output.substr(0, 9), "1\tnil\ta\nx");
    EXPECT_EQ(std::count(output.begin(), output.end(), 'x'), 16'000'000);
    EXPECT_EQ(output.find('y'), std::string::npos);
    EXPECT_EQ(folder.read("errors"), "");
    EXPECT_EQ(exitCodeOf(folder, "broken.lua"), 1);
    EXPECT_EQ(folder.read("errors"), "Error: broken.lua:2: '<name>' expected near '='\n");
    EXPECT_EQ(exitCodeOf(folder, "index.lua more"), 1);
    EXPECT_EQ(folder.read("errors").substr(0, 6), "usage:");
}

} // namespace
} // namespace player::testing
