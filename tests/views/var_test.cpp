#include "program.h"

#include <QTimer>

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
    const std::string prompt = "Taper la valeur de départ de la variable";
    static void setCount(const std::string& count) { WriteIni("Variables", "nombre", count, Descriptor()); }
};

TEST_F(Variables, AreAddedWithTheirStartValue)
{
    const std::string before = app.read("projets/demo/projet.ini");
    const QWidget& variables = open();
    EXPECT_EQ(text(variables, "Label2"), "0");
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

TEST_F(Variables, AClickOnALineAsksForItsNewStartValue)
{
    setCount("2");
    const QWidget& variables = open();
    answers.line(prompt, "new");
    clickLine(variables, "List1", 1);
    EXPECT_EQ(lines(variables, "List1").back(), "2 | Valeur de départ : new");
    EXPECT_EQ(ReadIni("Variable2", "valeur", Descriptor()), "new");
    answers.line(prompt, Reply::Cancel);
    clickLine(variables, "List1", 1);
    EXPECT_EQ(lines(variables, "List1").back(), "2 | Valeur de départ : ");
}

TEST_F(Variables, StayOpenWhileTheirBoxWaits)
{
    const QWidget& variables = open();
    QTimer::singleShot(0, [&variables] { variables.parentWidget()->close(); }); // once the box is there
    answers.line(prompt, "7");
    click(variables, "Command1");
    settle();
    ASSERT_TRUE(isShown("var"));
    EXPECT_EQ(ReadIni("Variable1", "valeur", Descriptor()), "7");
    variables.parentWidget()->close(); // nothing waits any more
    settle();
    EXPECT_EQ(findView("var"), nullptr);
}

TEST_F(Variables, CannotBeAddedToACountThatIsNoNumberOrFull)
{
    const std::string badCount = "the number of variables in projet.ini is not a number from 0 to 32767";
    const struct {
        const char* count;
        bool toldAtOnce;
        std::string message;
    } cases[] = {{"abc", true, badCount},
                 {"40000", true, badCount},
                 {"", false, badCount},
                 {"32767", false, "the project holds as many variables as it can"}};
    for (const auto& [count, toldAtOnce, message] : cases) {
        setCount(count);
        const Snapshot before = app.snapshot();
        if (toldAtOnce) {
            answers.message("Erreur : " + message);
        }
        const QWidget& variables = open(); // the one view, which reads anew as it becomes active
        EXPECT_EQ(text(variables, "Label2"), count);
        EXPECT_EQ(lines(variables, "List1").empty(), message == badCount) << count;
        answers.message("Erreur : " + message);
        click(variables, "Command1");
        EXPECT_EQ(Changes(before, app.snapshot()), "");
        activate(view("mapeditor"));
    }
}
