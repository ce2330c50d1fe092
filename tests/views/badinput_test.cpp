// Files that no program of this system wrote, and folders that vanish: nothing crashes, waits or is damaged.
#include "program.h"

#include <sys/stat.h>

class BadInput : public Program
{
protected:
    BadInput()
    {
        addTiles("01", 4);
        app.makeProject();
        SetCurrentProject("");
    }

    void writeDescriptor(const std::string& text) const { app.write("projets/demo/projet.ini", text); }

    /// Opens the project and the editors that the control panel leads to, and uses the map.
    void workThrough()
    {
        openProject("demo");
        QWidget& map = view("mapeditor");
        awaitRedraw(map);
        click(map, "Option1_1");
        pressCell(map, 2, 2);
        click(map, "Option1_2");
        pressCell(map, 1, 1);
        click(map, "Command13");
        click(map, "Command18");
        click(map, "Command15");
        click(map, "Command2");
        chooseEntry(0);
        activate(view("Controlpanel"));
        chooseEntry(1);
        activate(view("Controlpanel"));
    }

    static std::string bytes(std::size_t count)
    {
        std::string junk;
        unsigned state = 1;
        for (std::size_t i = 0; i < count; ++i) {
            state = state * 1103515245 + 12345;
            junk += static_cast<char>(state >> 16);
        }
        return junk;
    }
};

TEST_F(BadInput, ADescriptorOfJunkIsNoProject)
{
    for (const std::string& junk : {bytes(5000), std::string(10 << 20, '\0'), std::string(100000, '[')}) {
        writeDescriptor(junk);
        answers.message("Erreur : Projet invalide !");
        openProject("demo");
        answers.allCame();
        EXPECT_TRUE(app.read("projets/demo/projet.ini") == junk);
    }
}

TEST_F(BadInput, JunkAroundADescriptorsKeysIsKept)
{
    const std::string good = app.read("projets/demo/projet.ini");
    std::string sections;
    for (int number = 0; number < 100000; ++number) {
        sections += "[Section" + std::to_string(number) + "]\r\nkey=" + std::to_string(number) + "\r\n";
    }
    for (const std::string& extra : {sections, "[Long]\r\nkey=" + std::string(10 << 20, 'x') + "\r\n"}) {
        writeDescriptor(good + extra);
        workThrough();
        EXPECT_TRUE(app.read("projets/demo/projet.ini") == good + extra);
        EXPECT_EQ(app.read("projets/demo/map01.ev"), savedBlocks(grid({{2, 2, '1'}})));
        app.write("projets/demo/map01.ev", savedBlocks(grid()));
    }
}

TEST_F(BadInput, CountsBeyondMeaningOpenAllTheSame)
{
    const std::string good = app.read("projets/demo/projet.ini");
    for (const char* count : {"-1", "1000000000", "abc", "40000", "99999999999999999999"}) {
        SCOPED_TRACE(count);
        std::string text = good;
        for (const char* key : {"cartes=1", "combats=0", "nombre=0"}) {
            const std::string name = std::string(key, std::string(key).find('=') + 1);
            text.replace(text.find(key), std::string(key).size(), name + count);
        }
        writeDescriptor(text);
        answers.message("Erreur : the number of variables in projet.ini is not a number from 0 to 32767");
        workThrough();
        EXPECT_EQ(app.read("projets/demo/projet.ini"), text);
    }
}

TEST_F(BadInput, AMapFileIsReadByPositionWhateverItHolds)
{
    std::string emptyRows;
    for (int row = 1; row <= 8; ++row) {
        emptyRows += "\r\n";
    }
    const struct {
        std::string map;
        std::string saved; // after a click beside the cells
    } cases[] = {{"0305\r\n", savedMap("0305", emptyRows)},
                 {"0305\r\n123", savedMap("0305", "123" + emptyRows)},
                 {"0", savedMap("0001", emptyRows)}, // a start that is no number is saved as 1
                 {"ab12\r\n" + grid(), savedMap("0112", grid())},
                 {"-1-1\r\n" + grid(), savedMap("0101", grid())}};
    for (const auto& [map, saved] : cases) {
        app.write("projets/demo/map01.map", map);
        openProject("demo");
        pressGrid(view("mapeditor"), 7150, 100);
        EXPECT_EQ(app.read("projets/demo/map01.map"), saved);
    }
}

TEST_F(BadInput, MapFilesOfJunkOpenAndDraw)
{
    std::string lineFeedsOnly;
    for (const char c : "0101\r\n" + grid({{3, 1, '2'}}, '1')) {
        lineFeedsOnly += c == '\r' ? std::string() : std::string(1, c);
    }
    for (const std::string& junk : {lineFeedsOnly, bytes(162), bytes(1 << 20), std::string(162, '\0')}) {
        app.write("projets/demo/map01.map", junk);
        app.write("projets/demo/map01.ev", junk);
        openProject("demo");
        awaitRedraw(view("mapeditor"));
        EXPECT_TRUE(app.read("projets/demo/map01.map") == junk);
    }
    app.write("projets/demo/map01.map", lineFeedsOnly);
    openProject("demo");
    EXPECT_EQ(cell(view("mapeditor"), 2, 17), tile("01", 3)); // each row one character farther to the right
}

TEST_F(BadInput, AnEventOfAMegabyteWithoutALineEndIsNotLoaded)
{
    const std::string junk(1 << 20, 'x');
    app.write("projets/demo/ev/map01/ev11", junk);
    openProject("demo");
    const QWidget& map = view("mapeditor");
    click(map, "Option1_2");
    pressCell(map, 1, 1);
    EXPECT_EQ(lines(map, "listev").size(), 0U);
    click(map, "Command20");
    EXPECT_TRUE(app.read("projets/demo/ev/map01/ev11") == junk);
}

TEST_F(BadInput, ATileThatIsAPipeIsNotWaitedFor)
{
    const Path pipe = app.at("data/images/terrains/terrain01/terrain02.JPG");
    std::filesystem::remove(pipe);
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    openProject("demo");
    awaitRedraw(view("mapeditor"));
    EXPECT_TRUE(isShown("mapeditor"));
}

TEST_F(BadInput, AProjectThatVanishesUnderItsViewsIsNotMadeAgain)
{
    openProject("demo");
    QWidget& map = view("mapeditor");
    chooseEntry(1);
    app.remove("projets/demo");
    const Snapshot before = app.snapshot();
    awaitRedraw(map);
    pressCell(map, 1, 1);
    click(map, "Option1_2");
    pressCell(map, 1, 1);
    click(map, "Command15");
    click(map, "Command2");
    answers.question(" Are you sure you want to return the card to zero?", Reply::Yes);
    click(map, "Command10");
    click(map, "Command11");
    answers.stop("The tileset's picture was not copied for the game.\nNo such file or directory (map01)");
    click(map, "Command14");
    click(map, "Command4");
    answers.stop(noMapMade);
    click(map, "Command5");
    click(map, "Command4");
    click(map, "Command6");
    answers.stop(invalidMap);
    click(map, "Command1");
    answers.message(emptyValue);
    activate(view("Controlpanel"));
    answers.allCame();
    answers.message("Erreur : the number of variables in projet.ini is not a number from 0 to 32767");
    activate(view("var"));
    click(view("var"), "Command1");
    answers.allCame();
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(BadInput, ReadOnlyFilesKeepTheirBytes)
{
    app.write("projets/demo/ev/map01/ev11", "\r\nend\r\n");
    app.write("projets/demo/map01.ev", savedBlocks(grid()));
    for (const auto& entry : std::filesystem::recursive_directory_iterator(app.at("projets/demo"))) {
        if (entry.is_regular_file()) {
            std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_read);
        }
    }
    const Snapshot before = app.snapshot();
    workThrough();
    answers.line("Taper la valeur de départ de la variable", "5");
    activate(view("var"));
    click(view("var"), "Command1");
    EXPECT_EQ(text(view("var"), "Label2"), "0"); // what the descriptor says
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(BadInput, AViewClosedWhileItsEventIsOpenLeavesNothingBehind)
{
    openProject("demo");
    QWidget& map = view("mapeditor");
    click(map, "Option1_2");
    pressCell(map, 1, 1);
    click(map, "Command15");
    const Snapshot before = app.snapshot();
    map.parentWidget()->close();
    settle();
    EXPECT_EQ(findView("mapeditor"), nullptr);
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}
