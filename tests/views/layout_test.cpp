// Every view as it is laid out and explained, in two sizes of letters; run once more for each scale of the
// screen.
#include "build/sendtopsp.h"
#include "program.h"

#include <algorithm>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace
{

std::string told(const QWidget* widget)
{
    QString text;
    QDebug(&text) << widget << widget->geometry() << widget->property("text").toString();
    return text.toStdString();
}

bool isA(const QWidget* widget, std::initializer_list<const char*> classes)
{
    return std::any_of(classes.begin(), classes.end(),
                       [widget](const char* name) { return widget->inherits(name); });
}

QSize neededSize(const QWidget* widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        const bool mayBeCut = label->minimumWidth() == 1; // an author's value, which may be longer
        const QSize whole = label->text().isEmpty() ? QSize() : label->sizeHint();
        return label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
               : mayBeCut        ? QSize(0, whole.height())
                                 : whole;
    }
    if (isA(widget, {"QLineEdit", "QComboBox"})) {
        return {0, widget->fontMetrics().height() + 4};
    }
    if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
        return button->fontMetrics().size(Qt::TextShowMnemonic, button->text()) + QSize(8, 4); // its frame
    }
    return isA(widget, {"QAbstractButton"}) ? widget->sizeHint() : QSize();
}

/// Fails for what is cut off, covered, too small for its text or unexplained on a surface and all on it.
void expectWhole(const QWidget& surface)
{
    QList<QWidget*> shown = surface.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    shown.removeIf([](const QWidget* child) {
        return !child->isVisible() || child->testAttribute(Qt::WA_TransparentForMouseEvents);
    });
    for (const QWidget* child : shown) {
        EXPECT_TRUE(surface.rect().contains(child->geometry())) << "cut off: " << told(child);
        const QSize needed = neededSize(child);
        EXPECT_GE(child->width(), needed.width()) << told(child);
        EXPECT_GE(child->height(), needed.height()) << told(child);
        const bool isUsed = isA(child, {"QAbstractButton", "QScrollBar", "QLineEdit", "QComboBox"});
        EXPECT_FALSE(isUsed && child->toolTip().isEmpty()) << "no tooltip: " << told(child);
        for (const QWidget* other : shown) {
            const QRect inner = child->geometry().adjusted(1, 1, -1, -1); // edges may share a pixel
            EXPECT_FALSE(child < other && inner.intersects(other->geometry().adjusted(1, 1, -1, -1)))
                << "overlap: " << told(child) << " and " << told(other);
        }
        if (!isA(child, {"QAbstractScrollArea", "QLineEdit", "QComboBox"})) { // laid out by the toolkit
            expectWhole(*child);
        }
    }
}

} // namespace

class Layout : public Program, public testing::WithParamInterface<double>
{
protected:
    Layout()
    {
        QFont font = usual;
        font.setPointSizeF(font.pointSizeF() * GetParam());
        QApplication::setFont(font);
        mainform = std::make_unique<Mainform>();
        mainform->show();
        addTiles("01", 4);
        app.makeProject();
    }

    ~Layout() override { QApplication::setFont(usual); }

    void expectWholeView(const char* name) const
    {
        SCOPED_TRACE(name);
        settle();
        expectWhole(*dynamic_cast<QScrollArea&>(view(name)).widget());
    }

    const QFont usual = QApplication::font();
};

INSTANTIATE_TEST_SUITE_P(Letters, Layout, testing::Values(1, 1.25));

TEST_P(Layout, CutsCoversAndLeavesUnexplainedNothingInAnyView)
{
    expectWholeView("Acc");
    mainform->showNouvprojet();
    expectWholeView("nouvprojet");
    mainform->showOpenp();
    expectWholeView("openp");
    sendtopsp publishing(*mainform);
    publishing.show();
    settle();
    expectWhole(*publishing.widget());
    openProject("demo");
    expectWholeView("Controlpanel");
    for (const auto& [entry, name] : {std::pair{0, "combateditor"}, {1, "var"}, {2, "gameoptions"}}) {
        chooseEntry(entry);
        expectWholeView(name);
    }
}

TEST_P(Layout, CutsCoversAndLeavesUnexplainedNothingInTheMapEditorWithAllItsFrames)
{
    const std::string name = "The forest by night, where nobody goes alone";
    WriteIni("Carte01", "nom", name, Descriptor());
    WriteIni("Carte02", "nom", name, Descriptor());
    WriteIni("Jeu", "cartes", "2", Descriptor());
    openProject("demo");
    const QWidget& map = view("mapeditor");
    expectWholeView("mapeditor");
    control(map, "Label1").parentWidget()->show();
    moveBar(map, "HScroll1", 2);
    EXPECT_EQ(control(map, "Label3").toolTip().toStdString(),
              Qt::convertFromPlainText(QString::fromStdString(name)).toStdString());
    click(map, "Option1_2");
    pressCell(map, 1, 1);
    for (QGroupBox* frame : map.findChildren<QGroupBox*>()) {
        frame->show();
    }
    expectWholeView("mapeditor");
}
