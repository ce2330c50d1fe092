// A random user who lives inside the program and uses it step after step.
#include "acts.h"
#include "fence.h"
#include "hands.h"
#include "sights.h"
#include "vandal.h"

#include <chrono>
#include <cstdint>
#include <fstream>
#include <malloc.h>
#include <QApplication>
#include <QGenericPlugin>
#include <QMessageBox>
#include <QPixmapCache>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

constexpr auto longestSilence = 250ms;
constexpr unsigned longestStep = 60; // seconds
constexpr QSize openingSize(1280, 720);

/// How long this thread was ready but had to wait for a processor: no fault of the program's.
std::chrono::nanoseconds processorDelay()
{
    long long running = 0;
    long long waiting = 0;
    std::ifstream("/proc/thread-self/schedstat") >> running >> waiting;
    return std::chrono::nanoseconds(waiting);
}

/// The memory that the program holds, in KB, once what is free was given back. The toolkit's store of drawn
/// icons is left out: it fills up over hours and has a bound of its own.
long heldMemory()
{
    QPixmapCache::clear();
    ::malloc_trim(0);
    long all = 0;
    long held = 0;
    std::ifstream("/proc/self/statm") >> all >> held;
    return held * (::sysconf(_SC_PAGESIZE) / 1024);
}

/// What the person is told to do.
struct Orders {
    std::uint64_t seed = 0;
    int first = 0;   ///< number of the first step
    int last = 0;    ///< number of the last step
    int rounds = 0;  ///< above 0: all steps so many times, without damage, all views closed after each time
    std::string log; ///< file, appended to
    Places places;
};

/// Writes one line per step. A line that begins with "!" is a finding: a write where none belongs, or a hang,
/// which is a time between two looks at the event loop, or an end of the program that nobody asked for.
class Monkey : public QObject
{
public:
    explicit Monkey(Orders orders);

private:
    using Clock = std::chrono::steady_clock;

    void tick();
    void live();
    void step();
    void endRound();
    void end();
    void measureLateness();
    void noteReasonToEnd();
    void log(const QString& line);
    void find(const QString& what);

    Orders orders_;
    std::ofstream log_;
    Hands hands_;
    Fence fence_;
    int step_ = 0;
    int round_ = 1;
    int quietLooks_ = 0; ///< since all views were closed
    bool isDone_ = false;
    bool mayEnd_ = false; ///< what was seen last is a reason to
    Clock::time_point lastLook_;
    std::chrono::nanoseconds lastDelay_{};
};

} // namespace

Monkey::Monkey(Orders orders)
    : orders_(std::move(orders))
    , log_(orders_.log, std::ios::app)
    , fence_(orders_.places.appDir,
             [this](const std::string& path) { find(u"wrote "_s + QString::fromStdString(path)); })
    , step_(orders_.first - 1)
{
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        noteReasonToEnd();
        mayEnd_ ? log(u"end"_s) : find(u"ended without a reason"_s);
    });
    log(u"start"_s);
    tick();
}

/// The next look is ordered ahead of the step, so that it also comes inside a modal box that the step opens.
void Monkey::tick()
{
    QMetaObject::invokeMethod(
        this, [this] { tick(); }, Qt::QueuedConnection);
    if (mainWindow() != nullptr && mainWindow()->isVisible() && !isDone_) {
        measureLateness();
        noteReasonToEnd();
        live();
    }
}

void Monkey::live()
{
    const bool isOver = step_ == orders_.last;
    if (isOver && orders_.rounds > 0) {
        endRound();
    } else if (hands_.areBusy()) {
        hands_.goOn();
    } else if (isOver) {
        end();
    } else {
        step();
    }
}

void Monkey::step()
{
    Chance chance(orders_.seed, static_cast<std::uint64_t>(++step_));
    const bool rough = orders_.rounds == 0;
    if (rough && chance.percent(3)) {
        fence_.setOpen(true);
        log(u"vandal "_s + QString::fromLatin1(spoilSomething(chance, orders_.places, openProject())));
        fence_.setOpen(false);
        lastLook_ = Clock::now(); // that was not the program's time
    } else if (rough && chance.below(2000) == 0 && QApplication::activeModalWidget() == nullptr) {
        log(u"close the main window"_s);
        mainWindow()->close();
    } else {
        log(chooseAct(chance, hands_));
    }
}

void Monkey::endRound()
{
    constexpr int looksToSettle = 100; // what was put off until the event loop is idle is then done
    hands_.drop();
    if (tidyUp()) {
        quietLooks_ = 0;
    } else if (++quietLooks_ == looksToSettle) {
        log(u"round %1 ends with %2 KB"_s.arg(round_).arg(heldMemory()));
        fence_.setOpen(true);
        startOver(orders_.places);
        fence_.setOpen(false);
        mainWindow()->resize(openingSize);
        quietLooks_ = 0;
        step_ = orders_.first - 1;
        if (++round_ > orders_.rounds) {
            end();
        }
    }
}

void Monkey::end()
{
    isDone_ = true;
    QCoreApplication::exit(0);
}

void Monkey::measureLateness()
{
    const auto now = Clock::now();
    const auto delay = processorDelay();
    const bool isWorking = step_ >= orders_.first; // what comes before is the program's start
    const auto silence = isWorking ? now - lastLook_ - (delay - lastDelay_) : Clock::duration();
    lastLook_ = now;
    lastDelay_ = delay;
    if (silence > longestSilence) {
        find(u"hung for %1 ms"_s.arg(std::chrono::duration_cast<std::chrono::milliseconds>(silence).count()));
    }
}

/// All is done, the main window was closed, or a project without maps was opened, as the last box said.
void Monkey::noteReasonToEnd()
{
    if (isDone_ || mainWindow() == nullptr || !mainWindow()->isVisible()) {
        mayEnd_ = true;
    } else if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        mayEnd_ = box->text().endsWith(u"Le programme va s'arrêter"_s);
    }
}

void Monkey::find(const QString& what)
{
    log_ << "! ";
    log(what);
}

/// Out at once: the next step may be the program's last. If there is no next one a signal ends it.
void Monkey::log(const QString& line)
{
    ::alarm(longestStep);
    QString plain = line;
    log_ << step_ << ' ' << plain.replace(u'\n', u' ').replace(u'\r', u' ').toStdString() << std::endl;
}

/// The way into the program: the toolkit makes a generic plugin that the environment names.
class MonkeyPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "monkey.json")

public:
    /// orders: SEED;FIRST;LAST;ROUNDS;LOG;DATA
    QObject* create(const QString&, const QString& orders) override
    {
        const QStringList pieces = orders.split(u';');
        const Places places = {QCoreApplication::applicationDirPath().toStdString(),
                               pieces.at(5).toStdString()};
        return new Monkey({pieces.at(0).toULongLong(), pieces.at(1).toInt(), pieces.at(2).toInt(),
                           pieces.at(3).toInt(), pieces.at(4).toStdString(), places});
    }
};

#include "monkey.moc"
