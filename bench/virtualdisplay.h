/// An X server without a screen, and what programs take that show their windows on it.
#pragma once

#include "store/platform.h"

#include <cstdint>
#include <memory>
#include <QProcess>
#include <QStringList>

struct xcb_connection_t;

/// A program and its arguments.
struct Command {
    Path program;
    QStringList arguments;
};

class VirtualDisplay
{
public:
    /// Starts the server. Failure: an exception.
    VirtualDisplay();
    /// Ends it.
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    /// Seconds from the start of a program.
    struct StartUp {
        double window = 0;          ///< until its window is shown
        double processorWindow = 0; ///< processor time of the program until then
        double processorQuiet = 0;  ///< processor time until it has drawn everything and waits
    };

    /// Starts a program, waits until it has nothing to do any more, and ends it. Failure: an exception.
    StartUp start(const Path& program);

    /// Starts a program, waits until its window shows anything but black across its middle, and ends it;
    /// gives the seconds until then. Failure: an exception.
    double firstPicture(const Command& command);

    /// What a program takes whose window is shown and which nobody touches.
    struct Watch {
        double peakMemory = 0;     ///< bytes of resident memory, at most
        double processorShare = 0; ///< processor time of a second, in seconds
    };

    /// Starts a program, lets it come to rest, watches it for some seconds and ends it. Failure: an
    /// exception.
    Watch watch(const Command& command);

private:
    /// The window that came. Failure: an exception when none does.
    std::uint32_t awaitWindow(const Path& program) const;

    QProcess server_;
    QString name_;
    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection_;
};
