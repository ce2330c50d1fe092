/// A random user who lives inside the program and uses it step after step.
#pragma once

#include "fence.h"
#include "hands.h"
#include "vandal.h"

#include <chrono>
#include <cstdint>
#include <fstream>
#include <QObject>
#include <QString>

/// What the person is told to do.
struct Orders {
    std::uint64_t seed = 0;
    int first = 0;  ///< number of the first step
    int last = 0;   ///< number of the last step
    int rounds = 0; ///< above 0: all steps so many times, without damage, all views closed after each time
    std::string appDir; ///< the program's folder
    std::string log;    ///< file, appended to
    std::string whole;  ///< folder with unspoilt copies of what ships beside the program
};

/// Writes one line per step. A line that begins with "!" is a finding: a write where none belongs, or a hang,
/// which is a time between two looks at the event loop. The last line tells why the program ended.
class Monkey : public QObject
{
    Q_OBJECT

public:
    explicit Monkey(Orders orders);

private:
    using Clock = std::chrono::steady_clock;

    Q_INVOKABLE void tick();
    void live();
    void step();
    void endRound();
    void end();
    void measureLateness();
    void lookAtBoxes();
    void sayWhy();
    void log(const QString& line);
    void find(const QString& what);

    Orders orders_;
    std::ofstream log_;
    Hands hands_;
    Vandal vandal_;
    Fence fence_;
    int step_ = 0;
    int round_ = 1;
    int quietLooks_ = 0; ///< since all views were closed
    bool tidying_ = false;
    QString lastBox_;
    QString ending_; ///< why this program is ended from here; empty when it is not
    Clock::time_point lastLook_;
    std::chrono::nanoseconds lastDelay_{};
};
