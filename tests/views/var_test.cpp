#include "program.h"

#include <QApplication>
#include <QTimer>

namespace
{

const std::string prompt = "Taper la valeur de départ de la variable";
const std::string badCount = "Erreur : the number of variables in projet.ini is not a number from 0 to 32767";

} // namespace

class Variables : public Program
{
protected:
    Variables()
    {
        app.makeProject();
        openProject("demo");
    }

    const QWidget& open() const
    {
        chooseEntry(1);
        return view("var");
    }
    static std::string count() { return ReadIni("Variables", "nombre", Descriptor()); }
    static void setCount(const std::string& count) { WriteIni("Variables", "nombre", count, Descriptor()); }
};

TEST_F(Variables, AreAddedWithTheirStartValue)
{
    const std::string before = app.read("projets/demo/projet.ini");
    const QWidget& variables = open();
    EXPECT_EQ(variables.windowTitle().toStdString(), "Variables of the game");
    EXPECT_EQ(text(variables, "Label1"), "Number of variables :");
    EXPECT_EQ(text(variables, "Label2"), "0");
    EXPECT_EQ(text(variables, "Label3"), "Variables :");
    EXPECT_EQ(lines(variables, "List1").size(), 0U);
    answers.line(prompt, "5é");
    click(variables, "Command1");
    answers.line(prompt, Reply::Cancel);
    click(variables, "Command1");
    EXPECT_EQ(text(variables, "Label2"), "2");
    EXPECT_EQ(lines(variables, "List1"),
              (std::vector<std::string>{"1 | Valeur de départ : 5é", "2 | Valeur de départ : "}));
    std::string expected = before + "[Variable1]\r\nnumero=1\r\nvaleur=5\xE9\r\n"
                                    "[Variable2]\r\nnumero=2\r\nvaleur=\r\n";
    expected.replace(expected.find("nombre=0"), 8, "nombre=2");
    EXPECT_EQ(app.read("projets/demo/projet.ini"), expected);
}

TEST_F(Variables, StayOpenWhileTheirBoxWaits)
{
    const QWidget& variables = open();
    QTimer closing;
    closing.callOnTimeout([&] {
        if (QApplication::activeModalWidget() != nullptr) {
            variables.parentWidget()->close();
            closing.stop();
        }
    });
    closing.start(0);
    answers.line(prompt, "7");
    click(variables, "Command1");
    settle();
    EXPECT_FALSE(closing.isActive());
    EXPECT_TRUE(isShown("var"));
    EXPECT_EQ(ReadIni("Variable1", "valeur", Descriptor()), "7");
    variables.parentWidget()->close(); // nothing waits any more
    settle();
    EXPECT_EQ(findView("var"), nullptr);
}

TEST_F(Variables, AClickOnALineAsksForItsNewStartValue)
{
    setCount("2");
    WriteIni("Variable2", "valeur", "old", Descriptor());
    const QWidget& variables = open();
    answers.line(prompt, "new");
    clickLine(variables, "List1", 1);
    EXPECT_EQ(lines(variables, "List1").back(), "2 | Valeur de départ : new");
    EXPECT_EQ(ReadIni("Variable2", "valeur", Descriptor()), "new");
    for (const Reply reply : {Reply::Cancel, Reply::Escape, Reply::CloseBox, Reply::Enter}) {
        WriteIni("Variable2", "valeur", "old", Descriptor());
        answers.line(prompt, reply);
        clickLine(variables, "List1", 1);
        EXPECT_EQ(lines(variables, "List1").back(), "2 | Valeur de départ : ");
    }
    EXPECT_EQ(count(), "2");
}

TEST_F(Variables, APastedLineBreakStaysWithinTheValue)
{
    answers.line(prompt, "1\r\n[Jeu]\r\ncartes=9");
    click(open(), "Command1");
    EXPECT_EQ(ReadIni("Jeu", "cartes", Descriptor()), "1");
    EXPECT_EQ(count(), "1");
    EXPECT_EQ(lines(view("var"), "List1").size(), 1U);
}

TEST_F(Variables, TheOneViewReadsAnewWheneverItBecomesActive)
{
    open();
    setCount("1");
    WriteIni("Variable1", "valeur", "0", Descriptor());
    activate(view("Controlpanel"));
    EXPECT_EQ(lines(view("var"), "List1").size(), 0U);
    activate(view("var"));
    EXPECT_EQ(text(view("var"), "Label2"), "1");
    EXPECT_EQ(lines(view("var"), "List1"), std::vector<std::string>{"1 | Valeur de départ : 0"});
    setCount("02");
    activate(view("Controlpanel"));
    open();
    EXPECT_EQ(views("var").size(), 1U);
    EXPECT_EQ(lines(view("var"), "List1").size(), 2U);
}

TEST_F(Variables, ACountThatIsNoNumberIsReportedAndNothingWritten)
{
    open();
    for (const char* bad : {"abc", "-1", "40000", "1000000000", "1.5"}) {
        SCOPED_TRACE(bad);
        setCount(bad);
        const Snapshot before = app.snapshot();
        activate(view("Controlpanel"));
        answers.message(badCount);
        activate(view("var"));
        answers.allCame();
        EXPECT_EQ(lines(view("var"), "List1").size(), 0U);
        answers.message(badCount);
        click(view("var"), "Command1");
        answers.allCame();
        EXPECT_EQ(Changes(before, app.snapshot()), "");
    }
}

TEST_F(Variables, AnEmptyCountShowsNothingAndCannotBeAddedTo)
{
    setCount("");
    const Snapshot before = app.snapshot();
    EXPECT_EQ(text(open(), "Label2"), "");
    answers.message(badCount);
    click(view("var"), "Command1");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(Variables, TheLastNumberIsTheLargestThatCanBeReadBack)
{
    setCount("32766");
    const QWidget& variables = open();
    answers.line(prompt, "last");
    click(variables, "Command1");
    EXPECT_EQ(count(), "32767");
    EXPECT_EQ(lines(variables, "List1").size(), 32767U);
    answers.message("Erreur : the project holds as many variables as it can");
    click(variables, "Command1");
    EXPECT_EQ(count(), "32767");
}
