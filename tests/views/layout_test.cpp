// Every view as it is laid out, in two sizes of letters; run once more for each scale of the screen.
#include "build/sendtopsp.h"
#include "program.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleOptionButton>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace
{

/// The program's font, larger by a factor; the usual one again at the end.
class Letters
{
public:
    explicit Letters(double factor)
        : usual_(QApplication::font())
    {
        QFont font = usual_;
        font.setPointSizeF(font.pointSizeF() * factor);
        QApplication::setFont(font);
    }
    ~Letters() { QApplication::setFont(usual_); }
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;

private:
    QFont usual_;
};

std::string told(const QWidget& widget)
{
    const QRect place = widget.geometry();
    return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString() + " \"" +
           widget.property("text").toString().toStdString() + "\" at " + std::to_string(place.x()) + ", " +
           std::to_string(place.y()) + ", " + std::to_string(place.width()) + " x " +
           std::to_string(place.height());
}

/// Whether the toolkit itself lays out what lies within.
bool isWhole(const QWidget* widget)
{
    return qobject_cast<const QAbstractScrollArea*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QLineEdit*>(widget) != nullptr;
}

/// Values of an author, which are cut when they are longer than their place.
bool mayBeCut(const QWidget& widget)
{
    return widget.minimumWidth() == 1;
}

QSize neededSize(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->wordWrap()) {
            return {0, label->heightForWidth(label->width())};
        }
        return label->text().isEmpty() ? QSize() : label->sizeHint();
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(button);
        const QSize border =
            button->size() -
            button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button).size();
        return button->fontMetrics().size(Qt::TextShowMnemonic, button->text()) + border;
    }
    if (qobject_cast<const QAbstractButton*>(&widget) != nullptr) {
        return widget.sizeHint();
    }
    const bool oneLine = qobject_cast<const QLineEdit*>(&widget) != nullptr ||
                         qobject_cast<const QComboBox*>(&widget) != nullptr;
    return oneLine ? QSize(0, widget.fontMetrics().height() + 4) : QSize();
}

/// What is cut off, covered or too small for its text on a surface and all that lies on it.
void findFaults(const QWidget& parent, std::vector<std::string>& faults)
{
    QList<QWidget*> shown = parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    shown.removeIf([](const QWidget* child) {
        return !child->isVisible() || child->testAttribute(Qt::WA_TransparentForMouseEvents);
    });
    for (const QWidget* child : shown) {
        if (!parent.rect().contains(child->geometry())) {
            faults.push_back("cut off: " + told(*child));
        }
        const QSize needed = neededSize(*child);
        if ((child->width() < needed.width() && !mayBeCut(*child)) || child->height() < needed.height()) {
            faults.push_back("too small: " + told(*child) + " instead of " + std::to_string(needed.width()) +
                             " x " + std::to_string(needed.height()));
        }
        for (const QWidget* other : shown) {
            const QRect inner = child->geometry().adjusted(1, 1, -1, -1); // edges may share a pixel
            if (child < other && inner.intersects(other->geometry().adjusted(1, 1, -1, -1))) {
                faults.push_back("overlap: " + told(*child) + " and " + told(*other));
            }
        }
        if (!isWhole(child)) {
            findFaults(*child, faults);
        }
    }
}

std::vector<std::string> faultsOf(QWidget& view)
{
    settle();
    std::vector<std::string> faults;
    findFaults(*qobject_cast<QScrollArea*>(&view)->widget(), faults);
    return faults;
}

} // namespace

class Layout : private Letters, public Program, public testing::WithParamInterface<double>
{
protected:
    Layout()
        : Letters(GetParam())
    {
        addTiles("01", 4);
        app.makeProject();
    }

    void expectWhole(const char* name) const
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(faultsOf(view(name)), std::vector<std::string>());
    }
};

INSTANTIATE_TEST_SUITE_P(Letters, Layout, testing::Values(1, 1.25));

TEST_P(Layout, CutsAndCoversNothingBeforeAProjectIsOpen)
{
    expectWhole("Acc");
    mainform->showNouvprojet();
    mainform->showOpenp();
    expectWhole("nouvprojet");
    expectWhole("openp");
    sendtopsp publishing(*mainform);
    publishing.show();
    EXPECT_EQ(faultsOf(publishing), std::vector<std::string>());
}

TEST_P(Layout, CutsAndCoversNothingInAProject)
{
    openProject("demo");
    for (const int entry : {0, 1, 2}) {
        chooseEntry(entry);
    }
    for (const char* name : {"Controlpanel", "combateditor", "var", "gameoptions"}) {
        expectWhole(name);
    }
}

TEST_P(Layout, CutsAndCoversNothingInTheMapEditorWithAllItsFrames)
{
    const std::string name = "The forest by night, where nobody goes alone";
    WriteIni("Carte01", "nom", name, Descriptor());
    WriteIni("Carte02", "nom", name, Descriptor());
    WriteIni("Jeu", "cartes", "2", Descriptor());
    openProject("demo");
    const QWidget& map = view("mapeditor");
    expectWhole("mapeditor");
    control(map, "Label1").parentWidget()->show();
    moveBar(map, "HScroll1", 2);
    EXPECT_EQ(control(map, "Label3").toolTip().toStdString(),
              Qt::convertFromPlainText(QString::fromStdString(name)).toStdString());
    click(map, "Option1_2");
    pressCell(map, 1, 1);
    for (QGroupBox* frame : map.findChildren<QGroupBox*>()) {
        frame->show();
    }
    expectWhole("mapeditor");
}
