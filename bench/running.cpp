// What programs take while they run and nobody does anything: memory and processor time, beside the least
// ones.
#include "contest.h"
#include "contests.h"
#include "toolfolder.h"
#include "virtualdisplay.h"

#include <benchmark/benchmark.h>

namespace
{

/// A program and the least one, both with the same number of views.
struct Pair {
    Command ours;
    Command floor;
};

struct Measured {
    Rounds memory;
    Rounds processor;
};

Measured measured(benchmark::State& state, const Pair& pair)
{
    VirtualDisplay display;
    display.watch(pair.ours); // the first start of each warms the caches
    display.watch(pair.floor);
    Measured result;
    for ([[maybe_unused]] auto round : state) {
        const auto ours = display.watch(pair.ours);
        const auto floor = display.watch(pair.floor);
        state.SetIterationTime(ours.processorShare);
        result.memory.ours.push_back(ours.peakMemory);
        result.memory.floor.push_back(floor.peakMemory);
        result.processor.ours.push_back(ours.processorShare);
        result.processor.floor.push_back(floor.processorShare);
    }
    return result;
}

void watchStart(benchmark::State& state)
{
    const ToolFolder folder;
    const Path program = folder.path() / "questforge";
    std::filesystem::copy_file(Path(STAGED_FOLDER) / "questforge", program);
    note("peak memory after start", measured(state, {{program, {}}, {STARTUP_FLOOR, {}}}).memory,
         Unit::Megabytes);
}

void watchViews(benchmark::State& state, int views)
{
    const ToolFolder folder;
    folder.makeProject();
    const QStringList arguments = {QString::fromStdString(folder.path()), QString::number(views)};
    const auto result = measured(state, {{MAPVIEWS, arguments}, {MAPVIEWS_FLOOR, arguments}});
    const std::string count = std::to_string(views) + (views == 1 ? " map view" : " map views");
    note("peak memory, " + count, result.memory, Unit::Megabytes);
    note("idle processor time, " + count, result.processor, Unit::Percent);
}

template <class Watch> void add(const char* name, Watch watch)
{
    benchmark::RegisterBenchmark(name,
                                 [watch](benchmark::State& state) {
                                     try {
                                         watch(state);
                                     } catch (const std::exception& failure) {
                                         state.SkipWithError(failure.what());
                                     }
                                 })
        ->Iterations(3)
        ->UseManualTime();
}

} // namespace

void addRunning()
{
    add("start", watchStart);
    for (const int views : {1, 10}) {
        add(views == 1 ? "one map view" : "ten map views",
            [views](benchmark::State& state) { watchViews(state, views); });
    }
}
