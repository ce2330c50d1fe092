#include "player/error_page.h"
#include "player/handover.h"
#include "player/play.h"
#include "player/windowed_play.h"
#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <SDL.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <tuple>
#include <unistd.h>
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
        {"ab cd ef", 5, {"ab cd", "ef"}},
        {"abcdefgh", 3, {"abc", "def", "gh"}},
        {"a\n\nb", 5, {"a", "", "b"}},
        {"ab\ncdefghi j", 5, {"ab", "cdefg", "hi j"}},
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
        for (const auto& [frame, buttons] :
             {std::pair(2, button::circle), {20, button::none}, {30, button::cross}, {40, button::start}}) {
            host.hold(frame, buttons);
        }
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

using News = Handover::News;

std::string shownRows(Handover& handover, bool always = false)
{
    std::string rows = "none";
    handover.show(always, [&rows](const Image& /*picture*/, Rows changed) {
        rows = std::to_string(changed.first) + "-" + std::to_string(changed.last);
    });
    return rows;
}

TEST(Handover, ShowsTheRowsThatChangedSinceTheLastShow)
{
    Handover handover(true);
    Image frame(screenWidth, screenHeight, Image::Kind::AlwaysOpaque);
    handover.present(frame);
    EXPECT_EQ(handover.await({}, false), News::None);
    EXPECT_EQ(shownRows(handover), "none");
    frame.setPixel(0, 20, makePixel(1, 2, 3));
    handover.present(frame);
    frame.setPixel(479, 10, makePixel(1, 2, 3));
    handover.present(frame);
    EXPECT_EQ(handover.await({}, true), News::None);
    EXPECT_EQ(handover.await({}, false), News::Picture);
    EXPECT_EQ(shownRows(handover), "10-21");
    EXPECT_EQ(shownRows(handover), "none");
    EXPECT_EQ(shownRows(handover, true), "0-0");
}

void pressCloseBoxSoon()
{
    std::thread([] {
        constexpr std::chrono::milliseconds started{300};
        std::this_thread::sleep_for(started);
        SDL_Event close{};
        close.type = SDL_QUIT;
        SDL_PushEvent(&close);
    }).detach();
}

// The exit code of a process that plays a script in a window that nobody sees, until its close box is
// pressed.
int exitCodeWhenClosed(const TempFolder& folder, const std::string& script)
{
    folder.write("index.lua", script);
    const pid_t process = ::fork();
    if (process == 0) {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        // Before the other thread, so that the two do not race for SDL.
        SDL_SetMainReady();
        SDL_Init(SDL_INIT_VIDEO);
        pressCloseBoxSoon();
        std::_Exit(playInWindow("test", folder.path(), "index.lua", std::cerr));
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Window, ClosesWhateverTheScriptDoesAndItsFilesIfItEndsInTime)
{
    const char* const scripts[] = {
        // Hours within a single call.
        "string.find(string.rep('a', 100000), string.rep('a-', 30) .. 'b')",
        // Seconds between two looks at the script.
        "local a, b = Image.createEmpty(4096, 4096), Image.createEmpty(4000, 4000) "
        "a:clear(Color.new(1, 2, 3, 4)) b:clear(Color.new(1, 2, 3, 4)) while true do b:blit(0, 0, a) end",
        "f = io.open('save.txt', 'w') f:write('kept') while true do screen.flip() end",
    };
    const TempFolder folder;
    for (const char* script : scripts) {
        EXPECT_EQ(exitCodeWhenClosed(folder, script), 0) << script;
    }
    EXPECT_EQ(folder.read("save.txt"), "kept");
}

} // namespace
} // namespace player::testing
