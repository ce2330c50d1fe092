#include "contest.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <iterator>
#include <map>
#include <utility>

namespace
{

struct Measure {
    std::string name;
    Rounds rounds;
    Unit unit;
};

std::vector<Measure>& noted()
{
    static std::vector<Measure> rows;
    return rows;
}

std::string withUnit(double value, Unit unit)
{
    const auto [scale, text] = unit == Unit::Percent     ? std::pair(1e2, "%")
                               : unit == Unit::Megabytes ? std::pair(1e-6, "MB")
                               : value < 1e-3            ? std::pair(1e6, "us")
                                                         : std::pair(1e3, "ms");
    char result[32] = {};
    std::snprintf(result, sizeof result, "%.2f %s", value * scale, text);
    return result;
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

void note(const std::string& name, Rounds rounds, Unit unit)
{
    noted().push_back({name, std::move(rounds), unit});
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

namespace
{

/// A job's name without its size, and the size: the first number in it; 0 when there is none.
std::pair<std::string, double> jobAndSize(const std::string& name)
{
    const std::size_t first = name.find_first_of("0123456789");
    if (first == std::string::npos) {
        return {name, 0};
    }
    std::size_t length = 0;
    const double size = std::stod(name.substr(first), &length);
    return {name.substr(0, first) + "N" + name.substr(first + length), size};
}

/// How time grows with size: the same for each unit is 1.
void printGrowth()
{
    std::map<std::string, std::map<double, double>> jobs;
    for (const Measure& measure : noted()) {
        const auto [job, size] = jobAndSize(measure.name);
        if (size > 0 && measure.unit == Unit::Seconds) {
            jobs[job][size] = median(measure.rounds.ours);
        }
    }
    std::printf("\n%-48s %s\n", "growth of ours",
                "time per unit from size to size (1 is linear, less is better)");
    for (const auto& [job, sizes] : jobs) {
        if (sizes.size() < 2) {
            continue;
        }
        std::printf("%-48s", job.c_str());
        for (auto size = sizes.begin(), next = std::next(size); next != sizes.end(); ++size, ++next) {
            std::printf("  %g to %g: %.2f", size->first, next->first,
                        (next->second / next->first) / (size->second / size->first));
        }
        std::printf("\n");
    }
}

} // namespace

void printTable()
{
    std::printf("\n%-48s %12s %12s %7s\n", "what (medians)", "ours", "floor", "ratio");
    for (const Measure& measure : noted()) {
        std::printf("%-48s %12s %12s %7.2f\n", measure.name.c_str(),
                    withUnit(median(measure.rounds.ours), measure.unit).c_str(),
                    withUnit(median(measure.rounds.floor), measure.unit).c_str(),
                    medianRatio(measure.rounds));
    }
    printGrowth();
}
