// The hand of a quick author inside the unchanged program, which the toolkit takes in as a generic plugin.
#include "../tour/probe/probe.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QGenericPlugin>
#include <QLineEdit>
#include <QLocalSocket>
#include <QMouseEvent>
#include <QPointer>
#include <QQueue>
#include <QScrollBar>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

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

void doDeed(QWidget* control, const QStringList& words)
{
    const QString& deed = words[0];
    auto* list = qobject_cast<QAbstractItemView*>(control);
    if (deed == "press"_L1) {
        const bool isPlaceTold = words.size() > 3;
        press(control, isPlaceTold ? QPoint(words[2].toInt(), words[3].toInt()) : control->rect().center());
    } else if (auto* field = qobject_cast<QLineEdit*>(control); field != nullptr && deed == "set"_L1) {
        field->setText(words.value(2));
    } else if (auto* bar = qobject_cast<QScrollBar*>(control); bar != nullptr && deed == "move"_L1) {
        bar->setValue(words[2].toInt());
    } else if (list != nullptr && (deed == "pick"_L1 || deed == "twice"_L1)) {
        const QModelIndex last = list->model()->index(list->model()->rowCount() - 1, 0);
        const QPoint place = list->visualRect(last).center();
        press(list->viewport(), place);
        if (deed == "twice"_L1) {
            send(list->viewport(), QEvent::MouseButtonDblClick, place);
        }
    }
}

/// Does what it is told by the lines of its connection, one after the other, each in a turn of the event loop
/// of its own. A line holds, between tabs, a deed, the path of a control as the probe reads it, and what the
/// deed needs:
///
///     press X Y    presses and lets go of the left button at a place, in pixels, or in the middle
///     pick         clicks the last line of a list
///     twice        double-clicks it
///     set TEXT     replaces the text of a field
///     move VALUE   moves a scroll bar
///     see          nothing: the control has to be there
/// A deed that opens a box has its effects once later lines have closed that. A line is answered by "done"
/// then, and by another line when there is no such control.
class Hand : public QLocalServer
{
public:
    explicit Hand(const QString& socketFile)
    {
        listen(socketFile);
        turn_.setSingleShot(true);
        connect(&turn_, &QTimer::timeout, this, &Hand::doNext);
        connect(this, &QLocalServer::newConnection, this, [this] {
            connection_ = nextPendingConnection();
            connect(connection_, &QLocalSocket::readyRead, this, &Hand::take);
        });
    }

private:
    void take()
    {
        while (connection_->canReadLine()) {
            lines_ += QString::fromUtf8(connection_->readLine()).chopped(1).split(u'\t');
        }
        turn_.start(0);
    }

    void doNext()
    {
        const bool boxWaits = QApplication::activeModalWidget() != nullptr;
        if (lines_.isEmpty() || (depth_ > 0 && !boxWaits)) {
            return; // what opened the box that was just closed has to come to its end first
        }
        const QStringList words = lines_.dequeue();
        turn_.start(0); // in a box that this deed opens
        ++depth_;
        QWidget* control = Probe::control(words[1]);
        if (control != nullptr) {
            doDeed(control, words);
        }
        --depth_;
        const QString result = control != nullptr ? u"done\n"_s : u"there is no %1\n"_s.arg(words[1]);
        connection_->write(result.toUtf8());
        turn_.start(0);
    }

    QLocalSocket* connection_ = nullptr;
    QQueue<QStringList> lines_;
    QTimer turn_;
    int depth_ = 0; ///< how many lines are at work: all but one wait for a box
};

} // namespace

class HandPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "hand.json")

public:
    QObject* create(const QString&, const QString& socketFile) override { return new Hand(socketFile); }
};

#include "hand.moc"
