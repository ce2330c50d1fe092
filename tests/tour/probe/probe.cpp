#include "probe.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QMdiSubWindow>
#include <QStyleOptionTitleBar>
#include <QWidget>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{

/// What a person reads on a control; empty when it bears no text.
QString captionOf(const QWidget& control)
{
    for (const char* property : {"text", "currentText", "title", "windowTitle"}) {
        if (const QVariant value = control.property(property); value.isValid()) {
            return value.toString().remove(u'&');
        }
    }
    return {};
}

bool bears(const QWidget& control, const QString& piece)
{
    if (piece.startsWith(u'=')) {
        return captionOf(control) == piece.mid(1);
    }
    return control.objectName() == piece || QLatin1StringView(control.metaObject()->className()) == piece;
}

/// Of several controls the last that can be seen: a raised window is its parent's last child.
QWidget* find(const QString& path)
{
    QList<QWidget*> candidates;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->parentWidget() == nullptr) {
            candidates += window;
            candidates += window->findChildren<QWidget*>();
        }
    }
    QList<QWidget*> found;
    for (const QString& piece : path.split(u'/')) {
        found.clear();
        std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(found),
                     [&piece](const QWidget* control) { return bears(*control, piece); });
        candidates.clear();
        for (const QWidget* control : found) {
            candidates += control->findChildren<QWidget*>();
        }
    }
    const auto shown = std::find_if(found.rbegin(), found.rend(), [](QWidget* w) { return w->isVisible(); });
    return shown != found.rend() ? *shown : found.isEmpty() ? nullptr : found.last();
}

/// In pixels of the screen, which the toolkit's are a multiple of.
QJsonArray place(const QWidget& control, const QRect& within)
{
    const QPoint corner = control.mapToGlobal(within.topLeft());
    const int scale = qRound(control.devicePixelRatio());
    return {corner.x() * scale, corner.y() * scale, within.width() * scale, within.height() * scale};
}

/// Whether a click in the middle of the control would reach it.
bool isReachable(const QWidget& control)
{
    const QWidget* hit = QApplication::widgetAt(control.mapToGlobal(control.rect().center()));
    const QWidget* modal = QApplication::activeModalWidget();
    return (hit == &control || control.isAncestorOf(hit)) &&
           (modal == nullptr || modal->window() == control.window());
}

/// The display's number of the window that a control lies in; 0 as long as it was never shown.
qint64 windowNumber(const QWidget& control)
{
    const QWindow* window = control.window()->windowHandle();
    return window == nullptr ? 0 : static_cast<qint64>(window->winId());
}

/// The lines of a list as far as they can be seen.
QJsonArray linesOf(const QAbstractItemView& list)
{
    QJsonArray lines;
    for (int row = 0; list.model() != nullptr && row < list.model()->rowCount(); ++row) {
        const QModelIndex index = list.model()->index(row, 0);
        lines += QJsonObject{{u"text"_s, index.data().toString()},
                             {u"place"_s, place(*list.viewport(), list.visualRect(index))}};
    }
    return lines;
}

QJsonArray closeButtonOf(const QMdiSubWindow& window)
{
    QStyleOptionTitleBar bar;
    bar.initFrom(&window);
    bar.titleBarFlags = window.windowFlags();
    bar.subControls = QStyle::SC_All;
    bar.rect = {0, 0, window.width(), window.style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, &window)};
    return place(window, window.style()->subControlRect(QStyle::CC_TitleBar, &bar,
                                                        QStyle::SC_TitleBarCloseButton, &window));
}

QJsonObject describe(const QWidget& control)
{
    QJsonObject answer{
        {u"place"_s, place(control, control.rect())}, {u"frame"_s, place(control, control.rect())},
        {u"visible"_s, control.isVisible()},          {u"enabled"_s, control.isEnabled()},
        {u"reachable"_s, isReachable(control)},       {u"caption"_s, captionOf(control)},
        {u"window"_s, windowNumber(control)},         {u"focused"_s, control.hasFocus()}};
    for (const char* property : {"checked", "value"}) {
        answer[QLatin1StringView(property)] = control.property(property).toJsonValue();
    }
    if (const auto* list = qobject_cast<const QAbstractItemView*>(&control)) {
        answer[u"lines"_s] = linesOf(*list);
    }
    if (const auto* window = qobject_cast<const QMdiSubWindow*>(control.parentWidget())) {
        answer[u"closeButton"_s] = closeButtonOf(*window);
        answer[u"frame"_s] = place(*window, window->rect());
    }
    return answer;
}

} // namespace

Probe::Probe(const QString& socketFile)
{
    connect(this, &QLocalServer::newConnection, this, &Probe::greet);
    QApplication::setCursorFlashTime(0); // a picture of a field is the same at any moment
    if (!listen(socketFile)) {
        qWarning("The probe cannot listen: %s", qPrintable(errorString()));
    }
}

void Probe::greet()
{
    while (QLocalSocket* connection = nextPendingConnection()) {
        connect(connection, &QLocalSocket::readyRead, connection, [connection] { answer(connection); });
        connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
    }
}

void Probe::answer(QLocalSocket* connection)
{
    while (connection->canReadLine()) {
        const QWidget* found = find(QString::fromUtf8(connection->readLine()).trimmed());
        const QJsonObject reply = found == nullptr ? QJsonObject() : describe(*found);
        connection->write(QJsonDocument(reply).toJson(QJsonDocument::Compact) + '\n');
    }
}
