// Every control says by its tooltip what it does.
#include "program.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{

/// Controls that an author uses; parts that the toolkit made for them have no name, or one of its own.
bool isUsed(const QWidget* widget)
{
    const bool kind = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                      qobject_cast<const QScrollBar*>(widget) != nullptr ||
                      qobject_cast<const QLineEdit*>(widget) != nullptr ||
                      qobject_cast<const QComboBox*>(widget) != nullptr;
    return kind && !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_"_L1);
}

std::vector<std::string> untold(const QWidget& view)
{
    std::vector<std::string> found;
    for (const QWidget* widget : view.findChildren<QWidget*>()) {
        const QString caption = widget->property("text").toString();
        if (isUsed(widget) && widget->toolTip().isEmpty()) {
            found.push_back(widget->objectName().toStdString() + " \"" + caption.toStdString() + '"');
        }
    }
    return found;
}

} // namespace

class ToolTips : public Program
{
};

TEST_F(ToolTips, TellWhatEachControlDoes)
{
    app.makeProject();
    mainform->showNouvprojet();
    mainform->showOpenp();
    for (const char* name : {"nouvprojet", "openp"}) {
        EXPECT_EQ(untold(view(name)), std::vector<std::string>()) << name;
    }
    openProject("demo");
    for (const int entry : {0, 1, 2}) {
        chooseEntry(entry);
    }
    for (const char* name : {"Controlpanel", "mapeditor", "combateditor", "var", "gameoptions"}) {
        EXPECT_EQ(untold(view(name)), std::vector<std::string>()) << name;
    }
}
