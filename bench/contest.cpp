#include "contest.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <utility>

namespace
{

std::vector<std::pair<std::string, Rounds>>& noted()
{
    static std::vector<std::pair<std::string, Rounds>> rows;
    return rows;
}

std::string withUnit(double seconds)
{
    const auto [scale, unit] = seconds < 1e-3 ? std::pair(1e6, "us") : std::pair(1e3, "ms");
    char text[32] = {};
    std::snprintf(text, sizeof text, "%.2f %s", seconds * scale, unit);
    return text;
}

/// The rounds of every floor, run after ours each time; the first round warms the caches and does not count.
std::vector<Rounds> play(benchmark::State& state, const Contestants& contestants)
{
    std::vector<Rounds> played(contestants.floors.size());
    contestants.ours();
    for (const Run& floor : contestants.floors) {
        floor();
    }
    for ([[maybe_unused]] auto round : state) {
        const double ours = contestants.ours();
        state.SetIterationTime(ours);
        for (std::size_t i = 0; i < played.size(); ++i) {
            played[i].ours.push_back(ours);
            played[i].floor.push_back(contestants.floors[i]());
        }
    }
    return played;
}

void hold(benchmark::State& state, const std::string& name, const std::function<Contestants()>& enter)
{
    try {
        const std::vector<Rounds> played = play(state, enter());
        const Rounds& best =
            *std::min_element(played.begin(), played.end(), [](const Rounds& a, const Rounds& b) {
                return median(a.floor) < median(b.floor);
            });
        state.counters["ratio"] = medianRatio(best);
        note(name, best);
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
    }
}

} // namespace

double secondsOf(int calls, const std::function<void()>& job)
{
    const auto start = std::chrono::steady_clock::now();
    for (int call = 0; call < calls; ++call) {
        job();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / calls;
}

void addContest(const std::string& name, int rounds, std::function<Contestants()> enter)
{
    benchmark::RegisterBenchmark(
        name.c_str(), [name, enter = std::move(enter)](benchmark::State& state) { hold(state, name, enter); })
        ->Iterations(rounds)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
}

void note(const std::string& name, Rounds rounds)
{
    noted().emplace_back(name, std::move(rounds));
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double medianRatio(const Rounds& rounds)
{
    std::vector<double> ratios;
    for (std::size_t i = 0; i < rounds.ours.size(); ++i) {
        ratios.push_back(rounds.ours[i] / rounds.floor[i]);
    }
    return median(std::move(ratios));
}

void printTable()
{
    std::printf("\n%-48s %12s %12s %7s\n", "what (medians)", "ours", "floor", "ratio");
    for (const auto& [name, rounds] : noted()) {
        std::printf("%-48s %12s %12s %7.2f\n", name.c_str(), withUnit(median(rounds.ours)).c_str(),
                    withUnit(median(rounds.floor)).c_str(), medianRatio(rounds));
    }
}
