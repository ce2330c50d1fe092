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
#include <unistd.h>

namespace player::testing
{
namespace
{

// Whether anything but the page's ground is in a band of rows.
bool isWrittenOn(const Image& image, int first, int last)
{
    const Pixel ground = image.pixel(0, 0);
    return std::any_of(image.row(first), image.row(last), [ground](Pixel pixel) { return pixel != ground; });
}

TEST(Play, ShowsEvenALongErrorUntilAFreshPressOrUntilTheWindowIsClosed)
{
    for (const Frame close : {35, 500}) {
        const TempFolder folder;
        folder.write("index.lua", "screen.waitVblankStart(5) error('\xE9t\xE9 ' .. string.rep('m', 5000))");
        FakeHost host;
        for (const auto& [frame, buttons] :
             {std::pair(2, button::circle), {20, button::none}, {30, button::cross}, {40, button::start}}) {
            host.hold(frame, buttons);
        }
        host.closeAt(close);
        std::ostringstream errors;
        EXPECT_EQ(play(host, folder.path(), "index.lua", errors), 1);
        EXPECT_EQ(errors.str().substr(0, 30), "Error: index.lua:1: été mmmm");
        EXPECT_TRUE(isWrittenOn(host.shown(), 10, 22));
        EXPECT_TRUE(isWrittenOn(host.shown(), 250, 260));
        EXPECT_FALSE(isWrittenOn(host.shown(), 262, 272));
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
    folder.write("index.lua", "print(1, nil, 'a') for i = 1, 20 do print(string.rep('x', 1000000)) end");
    folder.write("broken.lua", "\nlocal = 1");
    EXPECT_EQ(exitCodeOf(folder, "index.lua"), 0);
    const std::string output = folder.read("output");
    EXPECT_EQ(output.substr(0, 9), "1\tnil\ta\nx");
    EXPECT_EQ(std::count(output.begin(), output.end(), 'x'), 16'000'000);
    EXPECT_EQ(folder.read("errors"), "");
    EXPECT_EQ(exitCodeOf(folder, "broken.lua"), 1);
    EXPECT_EQ(folder.read("errors"), "Error: broken.lua:2: '<name>' expected near '='\n");
    EXPECT_EQ(exitCodeOf(folder, "index.lua more"), 1);
    EXPECT_EQ(folder.read("errors").substr(0, 6), "usage:");
}

using News = Handover::News;

std::string shownRows(Handover& handover)
{
    std::string rows = "none";
    handover.show(false, [&rows](const Image& /*picture*/, Rows changed) {
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
        std::thread([] {
            std::this_thread::sleep_for(std::chrono::milliseconds(300)); // until it plays
            SDL_Event close{};
            close.type = SDL_QUIT;
            SDL_PushEvent(&close);
        }).detach();
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
