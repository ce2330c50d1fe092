#include "player/handover.h"
#include "player/windowed_play.h"
#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <SDL.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace player::testing
{
namespace
{

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

TEST(Handover, KeepsATapUntilTheGameReadsIt)
{
    Handover handover(true);
    handover.setButtons(button::up, button::up | button::cross);
    handover.setButtons(button::up, button::up);
    EXPECT_EQ(handover.takeButtons(), button::up | button::cross);
    EXPECT_EQ(handover.takeButtons(), button::up);
    handover.setButtons(button::none, button::none);
    EXPECT_EQ(handover.takeButtons(), button::none);
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
