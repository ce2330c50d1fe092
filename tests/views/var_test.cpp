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
};

TEST_F(Variables, AreAddedAndChangedByAnswersOfWhichCancelIsAnEmptyOne)
{
    const QWidget& variables = open();
    EXPECT_EQ(lines(variables, "List1").size(), 0U);
    for (const char* value : {"5é", "old"}) {
        answers.line(prompt, value);
        click(variables, "Command1");
    }
    EXPECT_EQ(text(variables, "Label2"), "2");
    EXPECT_EQ(lines(variables, "List1").front(), "1 | Valeur de départ : 5é");
    for (const auto& [value, reply] : {std::pair{"new", Reply::Ok}, {"", Reply::Cancel}}) {
        answers.line(prompt, value, reply);
        clickLine(variables, "List1", 1);
        EXPECT_EQ(lines(variables, "List1").back(), "2 | Valeur de départ : " + std::string(value));
        EXPECT_EQ(ReadIni("Variable2", "valeur", Descriptor()), value);
    }
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
}

TEST_F(Variables, CannotBeAddedBeyondTheLargestCount)
{
    WriteIni("Variables", "nombre", "32767", Descriptor());
    const QWidget& variables = open();
    EXPECT_EQ(lines(variables, "List1").size(), 32767U);
    const Snapshot before = app.snapshot();
    answers.message("Erreur : the project holds as many variables as it can");
    click(variables, "Command1");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(Variables, CannotBeCountedWithoutANumberOrAProject)
{
    WriteIni("Variables", "nombre", "x", Descriptor());
    const std::string failure =
        "Erreur : the number of variables in projet.ini is not a number from 0 to 32767";
    answers.message(failure);
    const QWidget& variables = open();
    answers.message(failure);
    click(variables, "Command1");
    WriteIni("Variables", "nombre", "1", Descriptor());
    activate(view("var"));
    closePanel(Reply::Yes);
    answers.message("Erreur : no project is open");
    click(variables, "Command1");
}
