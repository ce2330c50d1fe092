/// Contests between the tool and a floor: a few lines that do the least that the same job needs. The two run
/// in turn within one process, so that their ratio holds when the machine's speed drifts.
#pragma once

#include <functional>
#include <string>
#include <vector>

/// Does a job once or many times and gives the seconds that one took. Failure: an exception, which ends the
/// contest and is reported.
using Run = std::function<double()>;

/// Runs a job `calls` times in a row; the seconds of one.
double secondsOf(int calls, const std::function<void()>& job);

struct Contestants {
    Run ours;
    std::vector<Run> floors; ///< ways to do the least; the one with the smallest median counts
};

/// Adds a contest of `rounds` rounds. Its data are made by `enter` when its turn comes and live as long as
/// the runs that it gives.
void addContest(const std::string& name, int rounds, std::function<Contestants()> enter);

/// What the values of a measure are.
enum class Unit { Seconds, Megabytes, Percent };

/// One measure, round by round: seconds, bytes or parts of one.
struct Rounds {
    std::vector<double> ours;
    std::vector<double> floor; ///< as many
};

/// Notes a measure for the table.
void note(const std::string& name, Rounds rounds, Unit unit = Unit::Seconds);

/// Median of at least one value; of an even number the higher one in the middle.
double median(std::vector<double> values);

/// Median of the ratios taken round by round.
double medianRatio(const Rounds& rounds);

/// Prints what was noted: name, both medians, ratio. Where measures are the same job at several sizes (names
/// that differ in one number), the growth of ours from size to size follows: 1 is linear.
void printTable();
