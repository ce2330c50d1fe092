// The random user's body, which lives inside the program and does what it is told.
#include "fence.h"
#include "hands.h"
#include "sights.h"

#include <chrono>
#include <fstream>
#include <malloc.h>
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPixmapCache>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

constexpr auto longestSilence = 250ms;

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

/// One step towards an empty work area: answers boxes, closes views.
void tidyUp()
{
    QWidget* open = QApplication::activePopupWidget();
    open = open == nullptr ? QApplication::activeModalWidget() : open;
    const auto* question = qobject_cast<QMessageBox*>(open);
    if (auto* yes = question == nullptr ? nullptr : question->button(QMessageBox::Yes)) {
        yes->click();
    } else if (open != nullptr) {
        open->close();
    } else if (auto* view = mainWindow()->findChild<QMdiSubWindow*>()) {
        view->close();
    }
}

constexpr int lastRow = -2;

/// A line of a list, or the whole control for row -1; of a menu bar its entry.
QRect placeOn(QWidget& control, int row)
{
    if (const auto* bar = qobject_cast<QMenuBar*>(&control)) {
        return bar->actionGeometry(bar->actions().first());
    }
    auto* list = qobject_cast<QAbstractItemView*>(&control);
    if (list == nullptr || row == -1) {
        return control.rect();
    }
    const int rows = list->model()->rowCount();
    const QModelIndex index = list->model()->index(row == lastRow ? rows - 1 : row, 0);
    list->scrollTo(index);
    const QRect line = list->visualRect(index);
    return {list->viewport()->mapTo(&control, line.topLeft()), line.size()};
}

Qt::MouseButton buttonOf(const QJsonValue& number)
{
    return static_cast<Qt::MouseButton>(number.toInt());
}

/// Its orders come line by line, each a JSON list; one is followed in a turn of the event loop, a box's as
/// well. Unasked it says, after "?", which control is not there, and after "!" a finding: a write where none
/// belongs, a hang, which is a time between two looks at the event loop, or an end of the program that nobody
/// asked for.
class Monkey : public QObject
{
public:
    explicit Monkey(const QString& socket);

private:
    using Clock = std::chrono::steady_clock;

    void tick();
    void obey(const QJsonArray& order);
    void touch(const QString& deed, const QJsonArray& order, QWidget* control);
    void measureLateness();
    void noteReasonToEnd();
    void say(const QString& line);

    QLocalSocket brain_;
    Sights sights_;
    Hands hands_;
    Fence fence_;
    int depth_ = 0;       ///< how many orders are at work: all but one wait for a box
    bool works_ = false;  ///< what comes before the first order is the program's start
    bool mayEnd_ = false; ///< what was seen last is a reason to
    Clock::time_point lastLook_;
    std::chrono::nanoseconds lastDelay_{};
};

} // namespace

Monkey::Monkey(const QString& socket)
    : fence_([this](const std::string& path) {
        // by any thread
        QMetaObject::invokeMethod(this, [=, this] { say(u"! wrote "_s + QString::fromStdString(path)); });
    })
{
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        noteReasonToEnd();
        if (!mayEnd_) {
            say(u"! ended without a reason"_s);
        }
    });
    brain_.connectToServer(socket);
    tick();
}

/// The next look is ordered ahead of the deed, so that it also comes inside a modal box that the deed opens.
void Monkey::tick()
{
    QMetaObject::invokeMethod(
        this, [this] { tick(); }, Qt::QueuedConnection);
    if (mainWindow() != nullptr && mainWindow()->isVisible()) {
        measureLateness();
        noteReasonToEnd();
        const bool isBoxClosing = depth_ > 0 && !isBoxOpen(); // what opened it has to come to its end first
        if (brain_.canReadLine() && !isBoxClosing) {
            works_ = true;
            ++depth_;
            obey(QJsonDocument::fromJson(brain_.readLine()).array());
            --depth_;
        }
    }
}

void Monkey::obey(const QJsonArray& order)
{
    const QString deed = order[0].toString();
    if (deed == "look"_L1) {
        say(QString::fromUtf8(QJsonDocument(sights_.look()).toJson(QJsonDocument::Compact)));
    } else if (deed == "move"_L1) {
        hands_.move({order[1].toInt(), order[2].toInt()});
    } else if (deed == "release"_L1) {
        hands_.release(buttonOf(order[1]));
    } else if (deed == "key"_L1) {
        Hands::press(QKeySequence(order[1].toString())[0], order[2].toString());
    } else if (deed == "type"_L1) {
        Hands::press(Qt::Key_unknown, order[1].toString());
    } else if (deed == "copy"_L1) {
        QGuiApplication::clipboard()->setText(order[1].toString());
    } else if (deed == "resize"_L1) {
        mainWindow()->resize(order[1].toInt(), order[2].toInt());
    } else if (deed == "tidy"_L1) {
        tidyUp();
    } else if (deed == "memory"_L1) {
        say(QString::number(heldMemory()));
    } else if (deed == "end"_L1) {
        mayEnd_ = true;
        QCoreApplication::exit(0);
    } else if (QWidget* control = sights_.find(order[1])) {
        touch(deed, order, control);
    } else {
        say(u"? no "_s + order[1].toString());
    }
}

void Monkey::touch(const QString& deed, const QJsonArray& order, QWidget* control)
{
    if (deed == "push"_L1) {
        hands_.push(control, placeOn(*control, order[2].toInt()), {order[3].toDouble(), order[4].toDouble()},
                    buttonOf(order[5]), order[6].toInt());
    } else if (deed == "set"_L1) {
        control->setProperty(order[2].toString().toLatin1(), order[3].toVariant());
    } else if (isBoxOpen()) {
        return; // a person cannot arrange windows then
    } else if (deed == "reach"_L1) {
        bringIntoSight(control);
    } else if (deed == "close"_L1) {
        control->window() == control ? control->close() : control->parentWidget()->close();
    } else if (deed == "arrange"_L1) {
        control->parentWidget()->setWindowState(static_cast<Qt::WindowState>(order[2].toInt()));
    }
}

void Monkey::measureLateness()
{
    const auto now = Clock::now();
    const auto delay = processorDelay();
    const auto silence = works_ ? now - lastLook_ - (delay - lastDelay_) : Clock::duration();
    lastLook_ = now;
    lastDelay_ = delay;
    if (silence > longestSilence) {
        say(u"! hung for %1 ms"_s.arg(silence / 1ms));
    }
}

/// All is done, the main window was closed, or a project without maps was opened, as the last box said.
void Monkey::noteReasonToEnd()
{
    if (mainWindow() == nullptr || !mainWindow()->isVisible()) {
        mayEnd_ = true;
    } else if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        mayEnd_ = box->text().endsWith(u"Le programme va s'arrêter"_s);
    }
}

/// Out at once: the next order may be the program's last.
void Monkey::say(const QString& line)
{
    brain_.write(line.toUtf8() + '\n');
    brain_.flush();
}

/// The way into the program: the toolkit makes a generic plugin that the environment names.
class MonkeyPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "monkey.json")

public:
    QObject* create(const QString&, const QString& socket) override { return new Monkey(socket); }
};

#include "monkey.moc"
