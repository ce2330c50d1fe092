// Files that no program of this system wrote, and folders that vanish: nothing crashes, waits or is damaged.
#include "mapview.h"

class BadInput : public MapView
{
protected:
    static constexpr const char* descriptor = "projets/demo/projet.ini";

    void useMap() const
    {
        awaitRedraw(*map);
        click(*map, "Option1_1");
        pressCell(*map, 2, 2);
        click(*map, "Option1_2");
        pressCell(*map, 1, 1);
        click(*map, "Command13");
        click(*map, "Command18");
        click(*map, "Command15");
        click(*map, "Command2");
    }
    /// Opens the project and the editors that the control panel leads to, and uses the map.
    void workThrough()
    {
        open();
        useMap();
        for (const int entry : {0, 1}) {
            chooseEntry(entry);
            activate(view("Controlpanel"));
        }
    }

    const std::string badCount =
        "Erreur : the number of variables in projet.ini is not a number from 0 to 32767";
};

TEST_F(BadInput, JunkAroundADescriptorsKeysIsKept)
{
    const std::string good = app.read(descriptor);
    std::string sections;
    for (int number = 0; number < 100000; ++number) {
        sections += "[Section" + std::to_string(number) + "]\r\nkey=" + std::to_string(number) + "\r\n";
    }
    for (const std::string& extra : {sections, "[Long]\r\nkey=" + std::string(10 << 20, 'x') + "\r\n"}) {
        app.write(descriptor, good + extra);
        workThrough();
        EXPECT_TRUE(app.read(descriptor) == good + extra);
        EXPECT_EQ(blocks(), savedBlocks(grid({{2, 2, '1'}})));
        app.write("projets/demo/map01.ev", savedBlocks(grid()));
    }
}

TEST_F(BadInput, CountsBeyondMeaningOpenAllTheSame)
{
    for (const char* count : {"-1", "abc", "99999999999999999999"}) {
        SCOPED_TRACE(count);
        setCount(count);
        WriteIni("Jeu", "combats", count, Descriptor());
        WriteIni("Variables", "nombre", count, Descriptor());
        const std::string text = app.read(descriptor);
        answers.message(badCount);
        workThrough();
        EXPECT_EQ(app.read(descriptor), text);
    }
}

TEST_F(BadInput, AMapIsReadByPositionWhateverItsFilesHold)
{
    const std::string emptyRows = "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n";
    for (const auto& [content, saved] :
         {std::pair{std::string("0305\r\n123"), savedMap("0305", "123" + emptyRows)},
          {"0", savedMap("0001", emptyRows)}, // a start that is no number is saved as 1
          {"-1ab\r\n" + grid(), savedMap("0101", grid())}}) {
        app.write("projets/demo/map01.map", content);
        app.remove("projets/demo/map01.ev");
        open();
        saveMap();
        EXPECT_EQ(tiles(), saved);
        EXPECT_EQ(blocks(), savedBlocks(emptyRows));
    }
}

TEST_F(BadInput, AProjectThatVanishesUnderItsViewsIsNotMadeAgain)
{
    open();
    chooseEntry(1);
    app.remove("projets/demo");
    const Snapshot before = app.snapshot();
    useMap();
    EXPECT_FALSE(isVisible(*map, "Frame6"));
    reset();
    click(*map, "Command11");
    answers.stop("The tileset's picture was not copied for the game.\nNo such file or directory (map01)");
    click(*map, "Command14");
    answers.stop(noMapMade);
    newMap();
    answers.stop(invalidMap);
    load();
    answers.message(emptyValue);
    activate(view("Controlpanel"));
    answers.allCame();
    answers.message(badCount);
    activate(view("var"));
    click(view("var"), "Command1");
    answers.allCame();
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(BadInput, AViewClosedWhileItsEventIsOpenLeavesNothingBehind)
{
    open();
    click(*map, "Option1_2");
    pressCell(*map, 1, 1);
    click(*map, "Command15");
    const Snapshot before = app.snapshot();
    map->parentWidget()->close();
    settle();
    EXPECT_EQ(findView("mapeditor"), nullptr);
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}
