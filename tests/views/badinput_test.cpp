// Files that no program of this system wrote, and folders that vanish: nothing crashes, waits or is damaged.
#include "mapview.h"

class BadInput : public MapView
{
protected:
    void useMap() const
    {
        awaitRedraw(*map);
        click(*map, "Option1_1");
        pressCell(*map, 2, 2);
        click(*map, "Option1_2");
        pressCell(*map, 1, 1);
        for (const char* command : {"Command13", "Command18", "Command15", "Command2"}) {
            click(*map, command);
        }
    }

    const std::string badCount =
        "Erreur : the number of variables in projet.ini is not a number from 0 to 32767";
};

TEST_F(BadInput, CountsBeyondMeaningOpenAllTheSame)
{
    for (const char* count : {"-1", "abc", "99999999999999999999"}) {
        SCOPED_TRACE(count);
        setCount(count);
        WriteIni("Jeu", "combats", count, Descriptor());
        WriteIni("Variables", "nombre", count, Descriptor());
        const std::string text = app.read("projets/demo/projet.ini");
        open();
        useMap();
        answers.message(badCount);
        for (const int entry : {0, 1}) {
            chooseEntry(entry);
            activate(view("Controlpanel"));
        }
        EXPECT_EQ(app.read("projets/demo/projet.ini"), text);
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
    answers.stop(
        "No map was made.\nThe number of maps in projet.ini is missing or not a number from 0 to 32767.");
    newMap();
    answers.stop(invalidMap);
    load();
    answers.message(emptyValue);
    activate(view("Controlpanel"));
    answers.allCame();
    answers.message(badCount);
    activate(view("var"));
    click(view("var"), "Command1");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}
