#include "sights.h"

#include "store/codepage.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>

using namespace Qt::StringLiterals;

namespace
{

bool isUsable(const QWidget& control)
{
    return qobject_cast<const QAbstractButton*>(&control) != nullptr ||
           qobject_cast<const QAbstractSlider*>(&control) != nullptr ||
           qobject_cast<const QLineEdit*>(&control) != nullptr ||
           qobject_cast<const QComboBox*>(&control) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&control) != nullptr || control.inherits("PressLabel") ||
           control.inherits("GridPicture");
}

/// The folder's name of the project that a control of a view names.
template <class Control> std::filesystem::path named(const QString& view, const QString& control)
{
    const QWidget* found = findView(view);
    const auto* label = found == nullptr ? nullptr : found->findChild<Control*>(control);
    if (label == nullptr) {
        return {};
    }
    // As the code page holds it: a character that it lacks is a "?".
    const QString composed = label->text().normalized(QString::NormalizationForm_C);
    const std::filesystem::path name = Utf8FromAnsi(OneLine(AnsiFromUtf8(composed.toStdString())));
    return name == name.filename() && name != "." && name != ".." ? name : std::filesystem::path();
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

QList<QMdiSubWindow*> viewWindows()
{
    const QWidget* window = mainWindow();
    const auto* area = window == nullptr ? nullptr : window->findChild<QMdiArea*>();
    QList<QMdiSubWindow*> shown;
    if (area != nullptr) {
        shown = area->subWindowList(QMdiArea::StackingOrder);
        shown.removeIf([](const QMdiSubWindow* view) { return !view->isVisible() || !view->widget(); });
    }
    return shown;
}

QWidget* findView(const QString& name)
{
    QWidget* found = nullptr;
    for (const QMdiSubWindow* window : viewWindows()) {
        if (window->widget()->objectName() == name) {
            found = window->widget();
        }
    }
    return found;
}

std::filesystem::path openProject()
{
    return named<QLabel>(u"Controlpanel"_s, u"Label5"_s);
}

std::filesystem::path projectToMake()
{
    return named<QLineEdit>(u"nouvprojet"_s, u"Text1"_s);
}

QList<QWidget*> controlsOf(const QWidget& parent)
{
    QList<QWidget*> controls = parent.findChildren<QWidget*>();
    controls.removeIf([](const QWidget* control) { return !control->isVisible() || !isUsable(*control); });
    return controls;
}

QString pathOf(const QWidget& control)
{
    const QString name = control.objectName().isEmpty()
                             ? QString::fromLatin1(control.metaObject()->className())
                             : control.objectName();
    const QWidget* parent = control.parentWidget();
    return parent == nullptr || control.isWindow() ? name : pathOf(*parent) + u'/' + name;
}
