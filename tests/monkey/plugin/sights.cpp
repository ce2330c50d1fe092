#include "sights.h"

#include <algorithm>
#include <array>
#include <QAbstractItemView>
#include <QApplication>
#include <QJsonArray>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace
{

/// The kind of control that a person takes it for; empty when nothing can be done with it.
QString kindOf(const QWidget& control)
{
    constexpr std::array kinds = {"QAbstractButton",   "QAbstractSlider", "QLineEdit",  "QComboBox",
                                  "QAbstractItemView", "PressLabel",      "GridPicture"};
    const auto found = std::ranges::find_if(kinds, [&](const char* kind) { return control.inherits(kind); });
    return found == kinds.end() ? QString() : QString::fromLatin1(*found);
}

int rowsOf(const QWidget& control)
{
    const auto* list = qobject_cast<const QAbstractItemView*>(&control);
    return list == nullptr || list->model() == nullptr ? 0 : list->model()->rowCount();
}

QWidgetList shownViews()
{
    QWidgetList views;
    const QWidget* main = mainWindow();
    if (const auto* area = main == nullptr ? nullptr : main->findChild<QMdiArea*>()) {
        for (const QMdiSubWindow* window : area->subWindowList(QMdiArea::StackingOrder)) {
            if (window->isVisible() && window->widget() != nullptr) {
                views += window->widget();
            }
        }
    }
    return views;
}

/// The first child of a name or class.
QWidget* childOf(const QWidget& parent, const QString& piece)
{
    const QWidgetList children = parent.findChildren<QWidget*>();
    const auto found = std::ranges::find_if(children, [&](const QWidget* child) {
        return child->objectName() == piece || child->inherits(piece.toLatin1());
    });
    return found == children.end() ? nullptr : *found;
}

} // namespace

QWidget* mainWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(window) != nullptr) {
            return window;
        }
    }
    return nullptr;
}

QWidget* findView(const QString& name)
{
    QWidget* found = nullptr;
    for (QWidget* view : shownViews()) {
        found = view->objectName() == name ? view : found;
    }
    return found;
}

std::filesystem::path openProject()
{
    const QWidget* panel = findView(u"Controlpanel"_s);
    const auto* name = panel == nullptr ? nullptr : panel->findChild<QLabel*>(u"Label5"_s);
    return name == nullptr ? std::string() : name->text().toStdString();
}

bool isBoxOpen()
{
    return QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr;
}

void bringIntoSight(QWidget* control)
{
    for (QWidget* parent = control->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent)) {
            area->ensureWidgetVisible(control, 0, 0);
        }
        if (auto* window = qobject_cast<QMdiSubWindow*>(parent)) {
            window->mdiArea()->setActiveSubWindow(window);
            const QPoint middle = control->mapTo(window, control->rect().center());
            const QRect sight = window->parentWidget()->rect();
            if (!sight.contains(window->mapToParent(middle))) {
                window->move(sight.center() - middle);
            }
        }
    }
}

int Sights::note(QWidget* widget)
{
    seen_ += widget;
    return static_cast<int>(seen_.size()) - 1;
}

QJsonObject Sights::describe(QWidget* scene)
{
    QJsonArray controls;
    for (QWidget* control : scene->findChildren<QWidget*>()) {
        if (const QString kind = kindOf(*control); !kind.isEmpty() && control->isVisible()) {
            controls += QJsonArray{note(control), kind, control->objectName(),
                                   control->parentWidget()->objectName(), rowsOf(*control)};
        }
    }
    return {{u"number"_s, note(scene)}, {u"name"_s, scene->objectName()}, {u"controls"_s, controls}};
}

QJsonObject Sights::look()
{
    seen_.clear();
    QJsonArray views;
    for (QWidget* view : shownViews()) {
        views += describe(view);
    }
    QJsonObject all{{u"views"_s, views},
                    {u"main"_s, describe(mainWindow())},
                    {u"project"_s, QString::fromStdString(openProject())}};
    if (QWidget* popup = QApplication::activePopupWidget()) {
        all[u"popup"_s] = describe(popup);
    }
    if (QWidget* box = QApplication::activeModalWidget()) {
        all[u"box"_s] = describe(box);
    }
    return all;
}

QWidget* Sights::find(const QJsonValue& control) const
{
    if (control.isDouble()) {
        return seen_.value(control.toInt());
    }
    const QStringList pieces = control.toString().split(u'/');
    if (pieces.first() == "menu"_L1) {
        return mainWindow()->findChild<QMenuBar*>();
    }
    QWidget* found =
        pieces.first() == "box"_L1 ? QApplication::activeModalWidget() : findView(pieces.first());
    for (const QString& piece : pieces.mid(1)) {
        found = found == nullptr ? nullptr : childOf(*found, piece);
    }
    return found;
}
