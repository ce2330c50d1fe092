// The event of a cell: opened, changed by the commands, saved or left.
#include "mapview.h"

#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QTest>
#include <QTimer>

using Lines = std::vector<std::string>;

class EventPanelOfACell : public MapView
{
protected:
    EventPanelOfACell()
    {
        open();
        click(*map, "Option1_2");
    }

    Lines event() const { return lines(*map, "listev"); }
    /// The cell that is open: row and column.
    std::string place() const { return text(*map, "ln") + ' ' + text(*map, "co"); }
    static std::string file(const std::string& cell) { return "projets/demo/ev/map01/ev" + cell; }
    void doubleClickAndAnswer(int row, const std::string& named, Reply reply)
    {
        answers.question("Are you sure want to delete this line?\n" + named, reply);
        doubleClickLine(*map, "listev", row);
    }
};

TEST_F(EventPanelOfACell, IsShownOnlyWhileACellIsOpen)
{
    EXPECT_FALSE(isVisible(*map, "Frame6"));
    EXPECT_EQ(event(), Lines{"-- Evenements"});
    EXPECT_EQ(place(), "0 0");
    for (const char* leave : {"Command2", "Command20"}) {
        pressCell(*map, 3, 12);
        EXPECT_TRUE(isVisible(*map, "Frame6"));
        EXPECT_GE(map->parentWidget()->height(), control(*map, "Frame6").geometry().bottom());
        pressCell(*map, 1, 1); // the picture takes no clicks meanwhile
        EXPECT_EQ(place(), "3 12");
        click(*map, leave);
        EXPECT_FALSE(isVisible(*map, "Frame6"));
        EXPECT_TRUE(control(*map, "CarteImg").isEnabled());
        EXPECT_EQ(mainform->focusWidget(), &control(*map, "CarteImg"));
    }
}

TEST_F(EventPanelOfACell, SaveWritesTheListByteForByteAndCancelNothing)
{
    const std::string saved = "\r\nhero.x = 5 -- D\xE9placement\r\nend\r\n";
    app.write(file("312"), saved);
    for (const char* leave : {"Command20", "Command2"}) {
        pressCell(*map, 3, 12);
        EXPECT_EQ(event().size(), 2U);
        click(*map, "Command15");
        Snapshot expected = app.snapshot();
        click(*map, leave);
        expected[file("312")] = leave == std::string("Command2") ? saved + "end\r\n" : saved;
        EXPECT_EQ(Changes(expected, app.snapshot()), "");
    }
    pressCell(*map, 9, 1);
    click(*map, "Command2");
    EXPECT_EQ(app.read(file("91")), "\r\n");
}

TEST_F(EventPanelOfACell, SaveGoesToTheMapHeldByThen)
{
    pressCell(*map, 3, 12);
    click(*map, "Command15");
    newMap();
    click(*map, "Command2");
    EXPECT_FALSE(app.has(file("312")));
    EXPECT_EQ(app.read("projets/demo/ev/map02/ev312"), "\r\nend\r\n");
}

TEST_F(EventPanelOfACell, ALineIsDeletedAfterYes)
{
    const std::string longLine(1 << 20, 'x');
    const std::string bytes = "\r\n" + longLine + "\r\ntwo\r\nthree\r\n";
    app.write(file("11"), bytes);
    pressCell(*map, 1, 1);
    auto& list = control<QListView>(*map, "listev");
    keys(list, {Qt::Key_Return}); // nothing is selected
    answers.question("Are you sure want to delete this line?\n", Reply::Yes);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.viewport()->rect().bottomLeft());
    doubleClickAndAnswer(0, std::string(500, 'x') + "…", Reply::No);
    doubleClickAndAnswer(1, "two", Reply::Escape);
    EXPECT_EQ(event().size(), 3U);
    doubleClickAndAnswer(1, "two", Reply::Yes);
    EXPECT_TRUE(app.read(file("11")) == bytes); // until it is saved
    keys(list, {Qt::Key_End});
    answers.question("Are you sure want to delete this line?\nthree", Reply::Yes);
    keys(list, {Qt::Key_Return});
    click(*map, "Command2");
    EXPECT_TRUE(app.read(file("11")) == "\r\n" + longLine + "\r\n");
}

class EventCommands : public EventPanelOfACell
{
protected:
    EventCommands() { pressCell(*map, 1, 1); }

    /// The lines appended since the last call.
    Lines appended()
    {
        const Lines all = event();
        Lines fresh(all.begin() + static_cast<long>(seen_), all.end());
        seen_ = all.size();
        return fresh;
    }
    static void setVariables(const char* count) { WriteIni("Variables", "nombre", count, Descriptor()); }
    void moveHero()
    {
        answers.box("[Event] Click the new position of hero (OK)", Reply::Ok);
        click(*map, "Command23");
    }

private:
    std::size_t seen_ = 0;
};

TEST_F(EventCommands, DisplayTextTakesTheAnswerAsTyped)
{
    for (const char* typed : {"", " \"quoted\\\" ", "é€"}) {
        answers.line("Type the text! :", typed);
        click(*map, "Command8");
        EXPECT_EQ(appended(), Lines{std::string("affichertexte(\"") + typed + "\")"});
    }
    answers.line("Type the text! :", "one\ntwo\r\nthree");
    click(*map, "Command8");
    click(*map, "Command2");
    pressCell(*map, 1, 1);
    EXPECT_EQ(event().size(), 4U); // pasted line breaks do not split a line
    EXPECT_NE(app.read(file("11")).find("affichertexte(\"\xE9\x80\")\r\n"), std::string::npos);
}

TEST_F(EventCommands, APauseThatIsNoNumberIsRefused)
{
    answers.line("Type the time frame", "40000");
    answers.stop("Incorrect Value!");
    click(*map, "Command12");
    EXPECT_EQ(appended(), Lines{});
}

TEST_F(EventCommands, ChangesOfTheHerosHpFollowTheOption)
{
    EXPECT_EQ(text(*map, "Text2"), "0");
    for (const auto& [option, amount, line] :
         {std::tuple{"Option2_1", "10", "hero.vie = hero.vie + 10 -- Ajout de 10 de vie au héro"},
          {"Option2_2", "", "hero.vie =  -- Changement de la vie du héro"}}) {
        click(*map, "Command17");
        click(*map, option);
        setText(*map, "Text2", amount);
        click(*map, "Command22");
        EXPECT_EQ(appended(), Lines{line});
        EXPECT_FALSE(isVisible(*map, "Frame10"));
    }
}

TEST_F(EventCommands, TheHerosNewPlaceIsTheNextCellClicked)
{
    moveHero();
    EXPECT_EQ(mainform->focusWidget(), &control(*map, "CarteImg"));
    askForStart();
    pressCell(*map, 4, 5); // goes before
    EXPECT_EQ(start(), "5 4");
    EXPECT_EQ(appended(), Lines{});
    pressCell(*map, 8, 17);
    EXPECT_EQ(mainform->focusWidget(), &control(*map, "listev"));
    EXPECT_EQ(appended(), (Lines{"hero.x = 17 -- Déplacement du héro(vertical)",
                                 "hero.y = 8 -- Déplacelement du héro(horizontal)"}));
    EXPECT_EQ(place(), "1 1"); // the cell clicked was not opened
    click(*map, "Command2");
    pressCell(*map, 2, 2); // which the next one is
    EXPECT_EQ(place(), "2 2");
}

TEST_F(EventCommands, CancelEndsAPendingMoveOfTheHeroAndSaveDoesNot)
{
    moveHero();
    click(*map, "Command20");
    pressCell(*map, 2, 2);
    EXPECT_EQ(place(), "2 2");
    moveHero();
    click(*map, "Command2");
    click(*map, "Option1_1");
    pressCell(*map, 3, 3);
    EXPECT_EQ(appended().size(), 2U);
    EXPECT_TRUE(isVisible(*map, "Frame6")); // whose buttons alone enable the picture again
    EXPECT_FALSE(control(*map, "CarteImg").isEnabled());
    EXPECT_EQ(blocks(), savedBlocks(grid()));
}

TEST_F(EventCommands, ChangeMapWithoutACountEndsTheProgram)
{
    setCount("2.0"); // any number is one
    click(*map, "Command19");
    EXPECT_EQ(bound("HScroll3"), 2);
    EXPECT_EQ(text(*map, "Label12") + text(*map, "Label14"), "01Carte 1"); // the map being edited
    setCount("40000");
    answers.box("stop [Erreur] Erreur : Fichier projet.ini corrompus ou introuvable, veuillez reporter ce "
                "bug sur www.questforge.example/forum\nLe programme va s'arrêter (OK)",
                Reply::Ok);
    QObject here;
    QTimer::singleShot(0, &here, [&] { click(*map, "Command19"); });
    QTimer::singleShot(2000, &here, [] { QApplication::exit(1); }); // it goes on
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(EventCommands, AConditionNeedsAVariableAndAnOperator)
{
    setVariables("3");
    WriteIni("Variable2", "valeur", "abc", Descriptor());
    click(*map, "Command13");
    auto& variables = control<QComboBox>(*map, "Combo1");
    auto& operators = control<QComboBox>(*map, "Combo2");
    EXPECT_EQ(variables.itemText(1).toStdString(), "Variable 2 de valeur initale : abc");
    EXPECT_EQ(operators.placeholderText().toStdString(), "=  : égal | ! : différent");
    EXPECT_EQ(text(*map, "Text3"), "0");
    EXPECT_EQ(control(*map, "Text3").toolTip().toStdString(), "Taper la valeur (texte ou nombre)");
    click(*map, "Command3"); // neither chosen
    keys(variables, {Qt::Key_Down, Qt::Key_Down});
    click(*map, "Command3"); // no operator
    EXPECT_EQ(appended(), Lines{});
    keys(operators, {Qt::Key_End});
    click(*map, "Command3");
    EXPECT_EQ(appended(), Lines{"if var[2] ~= 0 then"});
    EXPECT_FALSE(isVisible(*map, "Frame7"));
    setVariables("2");
    click(*map, "Command13"); // lists them anew
    EXPECT_EQ(variables.count(), 2);
}

TEST_F(EventCommands, AVariableIsGivenItsNewValueByAStepToItsLine)
{
    for (const char* count : {"3", "1"}) {
        setVariables(count);
        click(*map, "Command18");
        EXPECT_EQ(std::to_string(lines(*map, "List1").size()), count);
        EXPECT_EQ(lines(*map, "List1").front(), "Variable1");
        answers.line("Taper la nouvelle valeur de la variable : ", "é");
        keys(control(*map, "List1"), {Qt::Key_Down});
        EXPECT_EQ(appended(), Lines{"var[1] = \"é\""});
        EXPECT_FALSE(isVisible(*map, "Frame8"));
    }
}
