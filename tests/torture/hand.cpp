#include "hand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QLocalSocket>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTimerEvent>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

/// Stays as it is and gives birth; only the born ones return. The dead are kept until they are asked for,
/// lest somebody else gets their number.
void giveBirth()
{
    for (std::string order; std::getline(std::cin, order);) {
        const pid_t born = ::fork();
        if (born == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            return;
        }
        std::cout << born << std::endl;
        std::getline(std::cin, order);
        ::kill(born, SIGKILL);
        int status = 0;
        ::waitpid(born, &status, 0);
        std::cout << status << std::endl;
    }
    ::_exit(0);
}

void send(QWidget* target, QEvent::Type type, const QPoint& place)
{
    const auto down = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, target->mapToGlobal(place), Qt::LeftButton, down, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

void press(QWidget* control, const QPoint& place)
{
    QWidget* hit = control->childAt(place);
    const QPointer<QWidget> target = hit == nullptr ? control : hit;
    const QPoint inside = target->mapFrom(control, place);
    send(target, QEvent::MouseButtonPress, inside);
    if (target) {
        send(target, QEvent::MouseButtonRelease, inside);
    }
}

QPoint placeIn(const QWidget& control, const QStringList& words)
{
    return words.size() < 5 ? control.rect().center() : QPoint(words[3].toInt(), words[4].toInt());
}

/// A line's middle, for the part of the list that takes the mouse.
QPoint placeOfLine(const QAbstractItemView& list, const QString& row)
{
    return list.visualRect(list.model()->index(row.toInt(), 0)).center();
}

bool opensBox(const QStringList& words)
{
    return words[1] == "open"_L1 || words[1] == "pick"_L1;
}

void doDeed(QWidget* control, const QStringList& words)
{
    const QString& deed = words[1];
    if (deed == "press"_L1 || deed == "open"_L1) {
        press(control, placeIn(*control, words));
    } else if (auto* field = qobject_cast<QLineEdit*>(control); field != nullptr && deed == "set"_L1) {
        field->setText(words.value(3));
    } else if (auto* bar = qobject_cast<QScrollBar*>(control); bar != nullptr && deed == "move"_L1) {
        bar->setValue(words.value(3).toInt());
    } else if (auto* list = qobject_cast<QAbstractItemView*>(control)) {
        const QPoint place = placeOfLine(*list, words.value(3));
        press(list->viewport(), place);
        if (deed == "twice"_L1) {
            send(list->viewport(), QEvent::MouseButtonDblClick, place);
        }
    }
}

} // namespace

Hand::Hand(const QString& folder)
    : probe_(folder + u"/probe"_s)
{
    if (!listen(folder + u"/hand"_s)) {
        qWarning("The hand cannot listen: %s", qPrintable(errorString()));
    }
    turn_.setSingleShot(true);
    connect(&turn_, &QTimer::timeout, this, &Hand::doNext);
    startTimer(0); // goes off once the program is ready
}

void Hand::timerEvent(QTimerEvent* event)
{
    killTimer(event->timerId());
    if (qEnvironmentVariableIsSet("TORTURE_LIVES")) {
        giveBirth();
    }
    connect(this, &QLocalServer::newConnection, this, [this] { listenTo(nextPendingConnection()); });
    while (hasPendingConnections()) {
        listenTo(nextPendingConnection());
    }
}

void Hand::listenTo(QLocalSocket* connection)
{
    connection_ = connection;
    connect(connection, &QLocalSocket::readyRead, this, [this, connection] {
        while (connection->canReadLine()) {
            lines_ += QString::fromUtf8(connection->readLine()).chopped(1).split(u'\t');
        }
        goOn();
    });
}

/// Lets the next line have a turn. Once a line has closed a box, the one that opened it has to come to its
/// end first.
void Hand::goOn()
{
    const bool boxWaits = QApplication::activeModalWidget() != nullptr;
    if (!lines_.isEmpty() && (depth_ == 0 || boxWaits)) {
        turn_.start(0);
    }
}

void Hand::doNext()
{
    if (lines_.isEmpty()) {
        return;
    }
    const QStringList words = lines_.dequeue();
    if (opensBox(words) && !lines_.isEmpty()) {
        turn_.start(0);
    }
    ++depth_;
    perform(words);
    --depth_;
    goOn();
}

void Hand::perform(const QStringList& words)
{
    QWidget* control = Probe::control(words[2]);
    if (control != nullptr) {
        doDeed(control, words);
    }
    connection_->write((words[0] + (control == nullptr ? u"?\n"_s : u"\n"_s)).toUtf8());
}
