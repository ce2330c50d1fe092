#include "program.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class EventCommands : public Program
{
protected:
    EventCommands()
    {
        app.makeProject();
        openProject("demo");
        map = &view("mapeditor");
        click(*map, "Option1_2");
        pressCell(*map, 1, 1);
    }

    /// The lines appended since the last call.
    std::vector<std::string> appended()
    {
        const std::vector<std::string> all = lines(*map, "listev");
        std::vector<std::string> fresh(all.begin() + static_cast<long>(seen_), all.end());
        seen_ = all.size();
        return fresh;
    }
    using Lines = std::vector<std::string>;

    void setVariables(const std::vector<std::string>& values) const
    {
        WriteIni("Variables", "nombre", std::to_string(values.size()), Descriptor());
        for (std::size_t i = 0; i < values.size(); ++i) {
            WriteIni("Variable" + std::to_string(i + 1), "valeur", values[i], Descriptor());
        }
    }

    QWidget* map = nullptr;

private:
    std::size_t seen_ = 0;
};

TEST_F(EventCommands, DisplayTextTakesTheAnswerAsTyped)
{
    for (const char* typed : {"Hello", "", " \"quoted\\\" ", "é€"}) {
        answers.line("Type the text! :", typed);
        click(*map, "Command8");
        EXPECT_EQ(appended(), Lines{std::string("affichertexte(\"") + typed + "\")"});
    }
    for (const Reply reply : {Reply::Cancel, Reply::Escape, Reply::CloseBox}) {
        answers.line("Type the text! :", reply);
        click(*map, "Command8");
        EXPECT_EQ(appended(), Lines{"affichertexte(\"\")"});
    }
    click(*map, "Command2");
    const std::string saved = app.read("projets/demo/ev/map01/ev11");
    EXPECT_NE(saved.find("affichertexte(\"\xE9\x80\")\r\n"), std::string::npos);
}

TEST_F(EventCommands, PastedLineBreaksDoNotSplitALine)
{
    answers.line("Type the text! :", "one\ntwo\r\nthree");
    click(*map, "Command8");
    EXPECT_EQ(appended().size(), 1U);
    setText(*map, "Text2", "1\n2");
    click(*map, "Command17");
    click(*map, "Command22");
    EXPECT_EQ(appended().size(), 1U);
    click(*map, "Command2");
    pressCell(*map, 1, 1);
    EXPECT_EQ(lines(*map, "listev").size(), 2U);
}

TEST_F(EventCommands, PauseTakesAWholeNumberOf16Bits)
{
    for (const auto& [typed, line] : {std::pair{"7", "screen.waitVblankStart(7)"},
                                      {" 7 ", "screen.waitVblankStart(7)"},
                                      {"2.5", "screen.waitVblankStart(2)"},
                                      {"-3", "screen.waitVblankStart(-3)"}}) {
        answers.line("Type the time frame", typed);
        click(*map, "Command12");
        EXPECT_EQ(appended(), Lines{line});
    }
    for (const char* typed : {"40000", "", "abc"}) {
        answers.line("Type the time frame", typed);
        answers.stop("Incorrect Value!");
        click(*map, "Command12");
        EXPECT_EQ(appended(), Lines{}) << typed;
    }
}

TEST_F(EventCommands, ChangesOfTheHerosHpFollowTheOption)
{
    EXPECT_FALSE(isVisible(*map, "Frame10"));
    EXPECT_EQ(text(*map, "Text2"), "0");
    const std::pair<const char*, std::string> cases[] = {
        {"Option2_0", "hero.vie = hero.vie - 10 -- Retrait de 10 de vie au héro"},
        {"Option2_1", "hero.vie = hero.vie + 10 -- Ajout de 10 de vie au héro"},
        {"Option2_2", "hero.vie = 10 -- Changement de la vie du héro"}};
    for (const auto& [option, line] : cases) {
        click(*map, "Command17");
        click(*map, option);
        setText(*map, "Text2", "10");
        click(*map, "Command22");
        EXPECT_EQ(appended(), Lines{line});
        EXPECT_FALSE(isVisible(*map, "Frame10"));
    }
    click(*map, "Command17"); // option and amount stayed
    setText(*map, "Text2", "");
    click(*map, "Command22");
    EXPECT_EQ(appended(), Lines{"hero.vie =  -- Changement de la vie du héro"});
}

TEST_F(EventCommands, TheHerosNewPlaceIsTheNextCellClicked)
{
    const Snapshot before = app.snapshot();
    answers.box("[Event] Click the new position of hero (OK)", Reply::Ok);
    click(*map, "Command23");
    EXPECT_EQ(mainform->focusWidget(), &control(*map, "CarteImg"));
    pressCell(*map, 8, 17);
    EXPECT_EQ(mainform->focusWidget(), &control(*map, "listev"));
    EXPECT_EQ(appended(), (Lines{"hero.x = 17 -- Déplacement du héro(vertical)",
                                 "hero.y = 8 -- Déplacelement du héro(horizontal)"}));
    EXPECT_EQ(text(*map, "ln"), "1"); // the cell clicked was not opened
    pressCell(*map, 2, 2);            // one click only
    EXPECT_EQ(appended(), Lines{});
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(EventCommands, CancelEndsAPendingMoveOfTheHeroAndSaveDoesNot)
{
    answers.box("[Event] Click the new position of hero (OK)", Reply::Ok);
    click(*map, "Command23");
    click(*map, "Command20");
    click(*map, "Option1_1");
    pressCell(*map, 2, 2);
    EXPECT_EQ(app.read("projets/demo/map01.ev"), savedBlocks(grid({{2, 2, '1'}})));

    click(*map, "Option1_2");
    pressCell(*map, 1, 1);
    appended();
    answers.box("[Event] Click the new position of hero (OK)", Reply::Ok);
    click(*map, "Command23");
    click(*map, "Command2");
    click(*map, "Option1_1");
    pressCell(*map, 2, 2);
    EXPECT_EQ(appended().size(), 2U);
    EXPECT_TRUE(isVisible(*map, "Frame6")); // whose buttons alone enable the picture again
    EXPECT_EQ(app.read("projets/demo/map01.ev"), savedBlocks(grid({{2, 2, '1'}})));
    EXPECT_FALSE(control(*map, "CarteImg").isEnabled());
}

TEST_F(EventCommands, TheHerosStartGoesBeforeItsMove)
{
    answers.box("[Event] Click the new position of hero (OK)", Reply::Ok);
    click(*map, "Command23");
    answers.message("Click the box to the starting position of the hero on this map");
    click(*map, "Command9");
    pressCell(*map, 4, 5);
    EXPECT_EQ(text(*map, "Label4") + text(*map, "Label5"), "54");
    EXPECT_EQ(appended(), Lines{});
    pressCell(*map, 6, 7);
    EXPECT_EQ(appended().size(), 2U);
}

TEST_F(EventCommands, ChangeMapNamesTheTargetThatTheChooserShows)
{
    WriteIni("Jeu", "cartes", "12", Descriptor());
    WriteIni("Carte12", "nom", "End", Descriptor());
    click(*map, "Command19");
    EXPECT_TRUE(isVisible(*map, "Frame9"));
    EXPECT_EQ(text(*map, "Label14"), "Carte 1"); // the map being edited
    EXPECT_EQ(text(*map, "Label12"), "01");
    keys(control(*map, "HScroll3"), {Qt::Key_End});
    EXPECT_EQ(text(*map, "Label12"), "12");
    EXPECT_EQ(text(*map, "Label14"), "End");
    click(*map, "Command21");
    EXPECT_EQ(appended(), Lines{"runmap(\"12\")"});
    EXPECT_FALSE(isVisible(*map, "Frame9"));
    moveBar(*map, "HScroll3", 2);
    EXPECT_EQ(text(*map, "Label14"), "");
}

TEST_F(EventCommands, ChangeMapWithoutACountEndsTheProgram)
{
    for (const char* count : {"0", "", "abc", "-1", "40000"}) {
        WriteIni("Jeu", "cartes", count, Descriptor());
        answers.box(
            "stop [Erreur] Erreur : Fichier projet.ini corrompus ou introuvable, veuillez reporter ce "
            "bug sur www.questforge.example/forum\nLe programme va s'arrêter (OK)",
            Reply::Ok);
        QTimer press;
        press.setSingleShot(true);
        QObject::connect(&press, &QTimer::timeout, &control<QAbstractButton>(*map, "Command19"),
                         &QAbstractButton::click);
        press.start();
        QTimer goesOn;
        QObject::connect(&goesOn, &QTimer::timeout, &goesOn, [] { QApplication::exit(1); });
        goesOn.start(2000);
        EXPECT_EQ(QApplication::exec(), 0) << count;
    }
}

TEST_F(EventCommands, AConditionComparesTheChosenVariable)
{
    setVariables({"0", "abc", ""});
    click(*map, "Command13");
    auto& variables = control<QComboBox>(*map, "Combo1");
    auto& operators = control<QComboBox>(*map, "Combo2");
    ASSERT_EQ(variables.count(), 3);
    EXPECT_EQ(variables.itemText(0).toStdString(), "Variable 1 de valeur initale : 0");
    EXPECT_EQ(variables.itemText(1).toStdString(), "Variable 2 de valeur initale : abc");
    EXPECT_EQ(variables.itemText(2).toStdString(), "Variable 3 de valeur initale : ");
    EXPECT_EQ(operators.placeholderText().toStdString(), "=  : égal | ! : différent");
    EXPECT_EQ(text(*map, "Text3"), "0");
    EXPECT_EQ(control(*map, "Text3").toolTip().toStdString(), "Taper la valeur (texte ou nombre)");

    click(*map, "Command3"); // neither chosen
    keys(variables, {Qt::Key_Down, Qt::Key_Down});
    click(*map, "Command3"); // no operator
    EXPECT_EQ(appended(), Lines{});
    EXPECT_TRUE(isVisible(*map, "Frame7"));
    for (const auto& [key, value, line] : {std::tuple{Qt::Key_Home, "abc", "if var[2] == \"abc\" then"},
                                           {Qt::Key_Home, "", "if var[2] == \"\" then"},
                                           {Qt::Key_End, "abc", "if var[2] ~= abc then"},
                                           {Qt::Key_End, "", "if var[2] ~=  then"}}) {
        variables.setCurrentIndex(1);
        keys(operators, {key});
        setText(*map, "Text3", value);
        click(*map, "Command3");
        EXPECT_EQ(appended(), Lines{line});
        EXPECT_FALSE(isVisible(*map, "Frame7"));
        EXPECT_EQ(variables.currentIndex(), 1);
        click(*map, "Command13");
    }
    click(*map, "Command15");
    click(*map, "Command15");
    EXPECT_EQ(appended(), (Lines{"end", "end"}));
}

TEST_F(EventCommands, AVariableIsGivenItsNewValue)
{
    setVariables({"", "", ""});
    const std::string prompt = "Taper la nouvelle valeur de la variable : ";
    click(*map, "Command18");
    EXPECT_EQ(lines(*map, "List1"), (Lines{"Variable1", "Variable2", "Variable3"}));
    answers.line(prompt, "7");
    clickLine(*map, "List1", 2);
    EXPECT_EQ(appended(), Lines{"var[3] = \"7\""});
    EXPECT_FALSE(isVisible(*map, "Frame8"));
    click(*map, "Command18");
    answers.line(prompt, Reply::Cancel);
    clickLine(*map, "List1", 0);
    EXPECT_EQ(appended(), Lines{"var[1] = \"\""});
    click(*map, "Command18");
    clickLine(*map, "listev", 0);
    answers.line(prompt, "é");
    clickLine(*map, "List1", 1);
    EXPECT_EQ(appended(), Lines{"var[2] = \"é\""});
}

TEST_F(EventCommands, VariablesAreListedAnewAtEveryPressAndNeverFromABadCount)
{
    for (const auto& [count, expected] :
         {std::pair{"3", 3}, {"", 0}, {"abc", 0}, {"1", 1}, {"-1", 0}, {"40000", 0}, {"1000000000", 0}}) {
        WriteIni("Variables", "nombre", count, Descriptor());
        click(*map, "Command13");
        click(*map, "Command18");
        EXPECT_EQ(control<QComboBox>(*map, "Combo1").count(), expected) << count;
        EXPECT_EQ(lines(*map, "List1").size(), static_cast<std::size_t>(expected)) << count;
    }
}

TEST_F(EventCommands, FramesAreIndependentAndOpeningACellLeavesThem)
{
    for (const char* button : {"Command17", "Command13", "Command18", "Command19"}) {
        click(*map, button);
    }
    click(*map, "Command16"); // no behaviour
    click(*map, "Command20");
    pressCell(*map, 2, 2);
    for (const char* frame : {"Frame7", "Frame8", "Frame9", "Frame10"}) {
        EXPECT_TRUE(isVisible(*map, frame)) << frame;
    }
    EXPECT_EQ(lines(*map, "listev"), Lines{});
}
