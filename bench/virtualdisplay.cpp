#include "virtualdisplay.h"

#include "toolkit/paths.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <poll.h>
#include <stdexcept>
#include <thread>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace
{

constexpr auto longestWait = 30s;

double processorSeconds(qint64 process)
{
    clockid_t clock = 0;
    timespec time = {};
    if (::clock_getcpuclockid(static_cast<pid_t>(process), &clock) != 0 ||
        ::clock_gettime(clock, &time) != 0) {
        throw std::runtime_error("the program ended by itself");
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Processor time once a process has used next to none for a while.
double processorSecondsWhenQuiet(qint64 process)
{
    constexpr auto quiet = 300ms;
    constexpr double nextToNone = 0.0005;
    const auto end = Clock::now() + longestWait;
    double before = -1;
    double now = processorSeconds(process);
    while (now - before > nextToNone && Clock::now() < end) {
        std::this_thread::sleep_for(quiet);
        before = std::exchange(now, processorSeconds(process));
    }
    return now;
}

/// The most memory that a process has had, in bytes, as the system counts it.
double peakMemory(qint64 process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string word; status >> word;) {
        if (word == "VmHWM:") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
    }
    throw std::runtime_error("the program ended by itself");
}

template <class Event> using Owned = std::unique_ptr<Event, void (*)(void*)>;

/// The next event; null when none came in time.
Owned<xcb_generic_event_t> nextEvent(xcb_connection_t* connection, Clock::time_point end)
{
    xcb_generic_event_t* event = nullptr;
    while ((event = xcb_poll_for_event(connection)) == nullptr && Clock::now() < end) {
        pollfd file = {xcb_get_file_descriptor(connection), POLLIN, 0};
        ::poll(&file, 1, 100);
    }
    return {event, std::free};
}

/// Whether a program's window was shown: toolkits show tiny ones of their own before.
bool showsMainWindow(xcb_connection_t* connection, const xcb_generic_event_t& event)
{
    constexpr int smallestWidth = 100;
    if ((event.response_type & 0x7F) != XCB_MAP_NOTIFY) {
        return false;
    }
    const auto& shown = reinterpret_cast<const xcb_map_notify_event_t&>(event);
    const Owned<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, shown.window), nullptr), std::free);
    return !shown.override_redirect && geometry && geometry->width >= smallestWidth;
}

/// Whether a row in the middle of a window has anything but black.
bool showsPicture(xcb_connection_t* connection, std::uint32_t window)
{
    constexpr int y = 136;
    constexpr int width = 480;
    constexpr std::uint32_t allPlanes = 0xFFFFFF;
    const Owned<xcb_get_image_reply_t> row(
        xcb_get_image_reply(
            connection,
            xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, y, width, 1, allPlanes), nullptr),
        std::free);
    if (!row) {
        return false;
    }
    const std::uint8_t* const bytes = xcb_get_image_data(row.get());
    return std::any_of(bytes, bytes + xcb_get_image_data_length(row.get()),
                       [](std::uint8_t byte) { return byte != 0; });
}

/// A program that is ended with the contest.
class Started
{
public:
    Started(const Command& command, const QString& display)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DISPLAY"_s, display);
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        process_.setProcessEnvironment(environment);
        process_.setStandardOutputFile(QProcess::nullDevice());
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.start(qtPath(command.program), command.arguments);
    }
    ~Started()
    {
        process_.kill();
        process_.waitForFinished();
    }
    Started(const Started&) = delete;
    Started& operator=(const Started&) = delete;

    qint64 number() const { return process_.processId(); }

private:
    QProcess process_;
};

} // namespace

VirtualDisplay::VirtualDisplay()
    : connection_(nullptr, xcb_disconnect)
{
    server_.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1600x1000x24"_s,
                              u"-nolisten"_s, u"tcp"_s});
    while (server_.state() != QProcess::NotRunning && !server_.canReadLine()) {
        server_.waitForReadyRead(1000);
    }
    name_ = u":"_s + QString::fromLatin1(server_.readLine().trimmed());
    connection_.reset(xcb_connect(name_.toLatin1().constData(), nullptr));
    if (xcb_connection_has_error(connection_.get()) != 0) {
        throw std::runtime_error("Xvfb does not start");
    }
    const uint32_t windowsOfRoot = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const xcb_setup_t* setup = xcb_get_setup(connection_.get());
    xcb_change_window_attributes(connection_.get(), xcb_setup_roots_iterator(setup).data->root,
                                 XCB_CW_EVENT_MASK, &windowsOfRoot);
    xcb_flush(connection_.get());
}

VirtualDisplay::~VirtualDisplay()
{
    connection_.reset();
    server_.terminate();
    server_.waitForFinished();
}

std::uint32_t VirtualDisplay::awaitWindow(const Path& program) const
{
    const auto end = Clock::now() + longestWait;
    for (;;) {
        const auto event = nextEvent(connection_.get(), end);
        if (!event) {
            throw std::runtime_error("no window of " + program.string());
        }
        if (showsMainWindow(connection_.get(), *event)) {
            return reinterpret_cast<const xcb_map_notify_event_t&>(*event).window;
        }
    }
}

VirtualDisplay::StartUp VirtualDisplay::start(const Path& program)
{
    const auto begin = Clock::now();
    const Started started({program, {}}, name_);
    awaitWindow(program);
    const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    const double processor = processorSeconds(started.number());
    return {seconds, processor, processorSecondsWhenQuiet(started.number())};
}

double VirtualDisplay::firstPicture(const Command& command)
{
    const auto begin = Clock::now();
    const Started started(command, name_);
    const std::uint32_t window = awaitWindow(command.program);
    while (!showsPicture(connection_.get(), window)) {
        if (Clock::now() > begin + longestWait) {
            throw std::runtime_error("no picture of " + command.program.string());
        }
        std::this_thread::sleep_for(500us);
    }
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

VirtualDisplay::Watch VirtualDisplay::watch(const Command& command)
{
    constexpr auto rest = 2s;
    constexpr auto span = 8s;
    const Started started(command, name_);
    awaitWindow(command.program);
    std::this_thread::sleep_for(rest);
    const auto begin = Clock::now();
    const double before = processorSeconds(started.number());
    std::this_thread::sleep_for(span);
    const double used = processorSeconds(started.number()) - before;
    const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    return {peakMemory(started.number()), used / seconds};
}
