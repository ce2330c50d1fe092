#include "monkey.h"

#include "acts.h"
#include "sights.h"
#include "store/codepage.h"

#include <malloc.h>
#include <QApplication>
#include <QMessageBox>
#include <QPixmapCache>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

constexpr auto longestSilence = 250ms;
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

QString shown(const std::string& ansi)
{
    return QString::fromStdString(Utf8FromAnsi(ansi));
}

} // namespace

Monkey::Monkey(Orders orders)
    : orders_(std::move(orders))
    , log_(orders_.log, std::ios::app)
    , vandal_(orders_.appDir, orders_.whole)
    , fence_(orders_.appDir,
             [this](const std::string& path) { find(u"wrote "_s + QString::fromStdString(path)); })
    , step_(orders_.first - 1)
{
    connect(qApp, &QCoreApplication::aboutToQuit, this, &Monkey::sayWhy);
    QMetaObject::invokeMethod(this, "tick", Qt::QueuedConnection);
}

/// The next look is ordered ahead of the step, so that it also comes inside a modal box that the step opens.
void Monkey::tick()
{
    QMetaObject::invokeMethod(this, "tick", Qt::QueuedConnection);
    if (mainWindow() != nullptr && mainWindow()->isVisible() && ending_.isEmpty()) {
        measureLateness();
        lookAtBoxes();
        fence_.note();
        live();
    }
}

void Monkey::live()
{
    if (tidying_) {
        endRound();
    } else if (hands_.areBusy()) {
        hands_.goOn();
    } else if (step_ < orders_.last) {
        step();
    } else if (orders_.rounds > 0) {
        tidying_ = true;
    } else {
        end();
    }
}

void Monkey::step()
{
    Chance chance(orders_.seed, static_cast<std::uint64_t>(++step_));
    const bool rough = orders_.rounds == 0;
    if (rough && chance.percent(3)) {
        fence_.setOpen(true);
        log(u"vandal "_s + shown(vandal_.strike(chance, openProject())));
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
        vandal_.startOver();
        fence_.setOpen(false);
        mainWindow()->resize(openingSize);
        quietLooks_ = 0;
        tidying_ = false;
        step_ = orders_.first - 1;
        if (++round_ > orders_.rounds) {
            end();
        }
    }
}

void Monkey::end()
{
    ending_ = u"done"_s;
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

void Monkey::lookAtBoxes()
{
    if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        lastBox_ = box->text();
    }
}

void Monkey::sayWhy()
{
    const QWidget* window = mainWindow();
    if (ending_.isEmpty() && (window == nullptr || !window->isVisible())) {
        ending_ = u"the main window was closed"_s;
    } else if (ending_.isEmpty() && lastBox_.endsWith(u"Le programme va s'arrêter"_s)) {
        ending_ = u"a project without maps"_s;
    }
    if (ending_.isEmpty()) {
        find(u"ended without a reason"_s);
    } else {
        log(u"end: "_s + ending_);
    }
}

void Monkey::find(const QString& what)
{
    log_ << "! ";
    log(what);
}

/// Out at once: the next step may be the program's last.
void Monkey::log(const QString& line)
{
    QString plain = line;
    log_ << step_ << ' ' << plain.replace(u'\n', u' ').replace(u'\r', u' ').toStdString() << std::endl;
}
