/// Uses the controls of the unchanged program as fast as it can follow, and lets it live many times.
#pragma once

#include "../tour/probe/probe.h"

#include <QLocalServer>
#include <QQueue>
#include <QTimer>

class QLocalSocket;

/// Does what it is told by the lines of its connection, one after the other, each in a turn of the event loop
/// of its own. A line holds, between tabs, a name, a deed, the path of a control as the probe reads it, and
/// what the deed needs:
///
///     press X Y    presses and lets go of the left button at a place, in pixels, or in the middle
///     open X Y     the same, and goes on with the next line while a box that it opens is waiting
///     twice ROW    double-clicks a line of a list, counted from 0
///     pick ROW     clicks a line of a list and goes on as "open" does
///     set TEXT     replaces the text of a field
///     move VALUE   moves a scroll bar
///
/// Once a deed has had all its effects its line is answered with its name, and with "?" after it when there
/// is no such control.
class Hand : public QLocalServer
{
    Q_OBJECT

public:
    /// Listens at the socket "hand" in a folder, in which a probe listens at "probe".
    ///
    /// When the environment holds TORTURE_LIVES the program, once it is ready, stays as it is and only gives
    /// birth: for a line of its input, to a process that goes on from there, whose number it prints. The next
    /// line kills that process, should it live, and has its status printed.
    explicit Hand(const QString& folder);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void listenTo(QLocalSocket* connection);
    void goOn();
    void doNext();
    void perform(const QStringList& words);

    Probe probe_;
    QLocalSocket* connection_ = nullptr;
    QQueue<QStringList> lines_;
    QTimer turn_;
    int depth_ = 0; ///< how many lines wait for a box, and the one at work
};
