/// The random numbers of one step: they depend on the seed and the step alone, so that a step can be
/// replayed.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>

class Chance
{
public:
    Chance(std::uint64_t seed, std::uint64_t step)
        : state_(seed * 0x9E3779B97F4A7C15u ^ (step + 1) * 0xD1B54A32D192ED03u)
    {
    }

    /// A number from 0 to bound - 1; 0 for a bound below 1.
    int below(int bound) { return static_cast<int>(next() % static_cast<std::uint64_t>(std::max(1, bound))); }
    int between(int low, int high) { return low + below(high - low + 1); }
    bool percent(int share) { return below(100) < share; }

    template <class Range> auto& of(Range& range)
    {
        return *std::next(std::begin(range), below(static_cast<int>(std::size(range))));
    }

    /// One of the entries of a table, each as often as its weight says.
    template <class Table, class Weight> const auto& byWeight(const Table& table, Weight weightOf)
    {
        int sum = 0;
        for (const auto& entry : table) {
            sum += std::invoke(weightOf, entry);
        }
        int rest = below(sum);
        auto entry = std::begin(table);
        while (rest >= std::invoke(weightOf, *entry)) {
            rest -= std::invoke(weightOf, *entry++);
        }
        return *entry;
    }

private:
    std::uint64_t next()
    {
        std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15u;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state_;
};
