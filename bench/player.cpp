// The player: its processor time per frame, and the way from "Test Game" to the first picture, beside the
// least player.
#include "build/scripts.h"
#include "contest.h"
#include "contests.h"
#include "events/eventstore.h"
#include "floors.h"
#include "maps/maplist.h"
#include "maps/mapmodel.h"
#include "project/creation.h"
#include "store/store.h"
#include "toolfolder.h"
#include "virtualdisplay.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

const Path player = Path(STAGED_FOLDER) / "luaplayer.exe";

/// A game of so many maps in which every cell of every map has an event that says something.
struct TalkativeGame {
    ToolFolder folder;
    int maps;

    explicit TalkativeGame(int mapCount)
        : maps(mapCount)
    {
        if (CreateProject("demo", "Kestrel")) {
            throw std::runtime_error("no project");
        }
        for (int map = 1; map <= maps; ++map) {
            if (map > 1 && NewMap().mapNumber.empty()) {
                throw std::runtime_error("no further map");
            }
            fill(MapNumberText(map));
        }
    }

private:
    static void fill(const std::string& number)
    {
        for (int row = 1; row <= MapModel::storedRows; ++row) {
            for (int column = 1; column <= MapModel::columns; ++column) {
                saveevent(eventpath(number, row, column),
                          {"affichertexte(\"Good morning! It is a fine day for a walk, is it not? The bridge "
                           "is up again, and the baker has bread for everybody.\")"});
            }
        }
    }
};

/// What "Test Game" writes.
void writeScripts(int maps)
{
    WriteVariablesScript();
    WriteEventScript(maps);
    WriteBootScript();
}

/// The least of it: every event file between two lines, in one file.
void writeLeast(int maps)
{
    static floors::Buffer buffer;
    buffer.clear();
    for (int map = 1; map <= maps; ++map) {
        const int folder =
            ::open(EventFolder(MapNumberText(map)).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int row = 1; row <= MapModel::storedRows; ++row) {
            for (int column = 1; column <= MapModel::columns; ++column) {
                buffer.append("\r\n    if ligne == 1 and colonne == 1 then\r\n    ");
                buffer.appendFile(folder, EventFileName(row, column).c_str());
                buffer.append("\r\n    end\r\n\r\n");
            }
        }
        ::close(folder);
    }
    floors::replaceFile(ProjectFile("least.lua"), buffer.text());
}

double secondsToPicture(VirtualDisplay& display, const Path& folder, const Command& command)
{
    std::filesystem::current_path(folder);
    return display.firstPicture(command);
}

void testGame(benchmark::State& state, int maps)
{
    const TalkativeGame game(maps);
    VirtualDisplay display;
    Rounds rounds;
    const auto ours = [&] {
        const double writing = secondsOf(1, [maps] { writeScripts(maps); });
        return writing + secondsToPicture(display, game.folder.path(), {player, {u"index.lua"_s}});
    };
    const auto floor = [&] {
        const double writing = secondsOf(1, [maps] { writeLeast(maps); });
        return writing + secondsToPicture(display, ProjectDir(), {PLAYER_FLOOR, {u"title"_s}});
    };
    ours(); // the first start of each warms the caches
    floor();
    for ([[maybe_unused]] auto round : state) {
        rounds.ours.push_back(ours());
        rounds.floor.push_back(floor());
        state.SetIterationTime(rounds.ours.back());
    }
    std::filesystem::current_path("/");
    note("Test Game to the first picture, " + std::to_string(maps) + (maps == 1 ? " map" : " maps"), rounds);
}

/// A script that presses buttons as a person would, up to a scene, and then lets go of the controls.
constexpr const char* pressing = R"(
local read, reads = Controls.read, 0
local function pressed(button)
    return setmetatable({}, { __index = function(pad, name)
        return function() return name == button end
    end })
end
Controls.read = function()
    reads = reads + 1
    if reads == 80 then
        Controls.read = read
    end
    return pressed(reads == 20 and "cross" or reads > 20 and "right")
end
dofile("index.lua")
)";

/// As above, but the hero walks to and fro for ever, and no event stops him.
constexpr const char* walking = R"(
local reads = 0
Controls.read = function()
    reads = reads + 1
    local way = math.floor(reads / 60) % 2 == 0 and "right" or "left"
    return setmetatable({}, { __index = function(pad, name)
        return function() return name == (reads == 20 and "cross" or reads > 60 and way) end
    end })
end
local load = dofile
dofile = function(name)
    if name ~= "ev.lua" then
        load(name)
    end
end
dofile("index.lua")
)";

/// A map of which every row changes at every frame, and three lines of text.
constexpr const char* scrolling = R"(
local tiles, white, frames = Image.load("images/map01/terrain.png"), Color.new(255, 255, 255), 0
while true do
    frames = frames + 1
    screen:clear()
    for y = 0, 7 do
        for x = 0, 16 do
            screen:blit(2 + x * 28, 36 + y * 29, tiles, (x + y + frames) % 10 * 28, 0, 28, 29)
        end
    end
    for line = 0, 2 do
        screen:print(24, 194 + line * 12, "The quick brown fox jumps over the lazy dog's back", white)
    end
    screen.waitVblankStart()
    screen.flip()
end
)";

void play(benchmark::State& state, const std::string& scene, const char* script,
          const QString& floorScene = u"talk"_s)
{
    constexpr double framesPerSecond = 60;
    const TalkativeGame game(1);
    writeScripts(game.maps);
    WriteWholeFile(script, ProjectFile("scene.lua"));
    std::filesystem::current_path(ProjectDir());
    VirtualDisplay display;
    Rounds frames;
    Rounds memory;
    for ([[maybe_unused]] auto round : state) {
        const auto ours = display.watch({player, {u"scene.lua"_s}});
        const auto floor = display.watch({PLAYER_FLOOR, {floorScene}});
        frames.ours.push_back(ours.processorShare / framesPerSecond);
        frames.floor.push_back(floor.processorShare / framesPerSecond);
        memory.ours.push_back(ours.peakMemory);
        memory.floor.push_back(floor.peakMemory);
        state.SetIterationTime(frames.ours.back());
    }
    std::filesystem::current_path("/");
    note("player's processor time of a frame, " + scene, frames);
    note("player's peak memory, " + scene, memory, Unit::Megabytes);
}

/// From the player's start to the game's first picture, scripts of one map and pictures loaded.
void startGame(benchmark::State& state)
{
    const TalkativeGame game(1);
    writeScripts(game.maps);
    VirtualDisplay display;
    Rounds rounds;
    for ([[maybe_unused]] auto round : state) {
        rounds.ours.push_back(secondsToPicture(display, game.folder.path(), {player, {u"index.lua"_s}}));
        rounds.floor.push_back(secondsToPicture(display, ProjectDir(), {PLAYER_FLOOR, {u"title"_s}}));
        state.SetIterationTime(rounds.ours.back());
    }
    std::filesystem::current_path("/");
    note("player's start to the first picture", rounds);
}

template <class Measure> void add(const std::string& name, int rounds, Measure measure)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [measure](benchmark::State& state) {
                                     try {
                                         measure(state);
                                     } catch (const std::exception& failure) {
                                         state.SkipWithError(failure.what());
                                     }
                                 })
        ->Iterations(rounds)
        ->UseManualTime();
}

} // namespace

void addPlayer()
{
    for (const int maps : {1, 20, 200}) {
        add("Test Game, " + std::to_string(maps), 11,
            [maps](benchmark::State& state) { testGame(state, maps); });
    }
    add("talk box", 3, [](benchmark::State& state) { play(state, "talk box open", pressing); });
    add("walk", 3, [](benchmark::State& state) { play(state, "hero walking", walking); });
    add("scroll", 3, [](benchmark::State& state) { play(state, "all rows", scrolling, u"scroll"_s); });
    add("game's start", 11, startGame);
}
