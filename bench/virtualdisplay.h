/// An X server without a screen, and how long a program takes until its window is on it.
#pragma once

#include "store/platform.h"

#include <cstdint>
#include <memory>
#include <QProcess>

struct xcb_connection_t;

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

private:
    void connectTo(const QString& display);
    void awaitWindow() const;

    QProcess server_;
    QString name_;
    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection_;
};
