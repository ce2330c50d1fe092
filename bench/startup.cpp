// The staged program from its start to its window, beside an empty one.
#include "contest.h"
#include "contests.h"
#include "toolfolder.h"
#include "virtualdisplay.h"

#include <array>
#include <benchmark/benchmark.h>

namespace
{

/// A copy in the temporary folder, since the program makes a folder beside itself.
Path copied(const Path& program, const ToolFolder& folder)
{
    Path copy = folder.path() / program.filename();
    std::filesystem::copy_file(program, copy);
    return copy;
}

struct Measure {
    const char* name;
    double VirtualDisplay::StartUp::*seconds;
    Rounds rounds;
};

using Measures = std::array<Measure, 3>;

void play(benchmark::State& state, Measures& measures)
{
    const ToolFolder folder;
    const Path program = copied(Path(STAGED_FOLDER) / "questforge", folder);
    const Path floor = copied(STARTUP_FLOOR, folder);
    VirtualDisplay display;
    display.start(program); // the first start of each warms the caches
    display.start(floor);
    for ([[maybe_unused]] auto round : state) {
        const auto ours = display.start(program);
        const auto least = display.start(floor);
        state.SetIterationTime(ours.window);
        for (Measure& measure : measures) {
            measure.rounds.ours.push_back(ours.*measure.seconds);
            measure.rounds.floor.push_back(least.*measure.seconds);
        }
    }
}

void startup(benchmark::State& state)
{
    using StartUp = VirtualDisplay::StartUp;
    Measures measures = {
        Measure{"start-up to the window, time", &StartUp::window, {}},
        Measure{"start-up to the window, processor time", &StartUp::processorWindow, {}},
        Measure{"start-up until all is drawn, processor time", &StartUp::processorQuiet, {}}};
    try {
        play(state, measures);
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
        return;
    }
    state.counters["ratio"] = medianRatio(measures.front().rounds);
    for (Measure& measure : measures) {
        note(measure.name, std::move(measure.rounds));
    }
}

} // namespace

void addStartup()
{
    benchmark::RegisterBenchmark("start-up", startup)
        ->Iterations(21)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}
