#include "program.h"

#include "toolkit/scrollbar.h"

class Fights : public Program
{
protected:
    Fights()
    {
        app.makeProject();
        WriteIni("Combat1", "nom", "Wolves", Descriptor());
        WriteIni("Combat2", "nom", "\xC9v\xEAque", Descriptor());
    }

    const QWidget& open() const
    {
        mainform->openCombateditor();
        return view("combateditor");
    }
    /// Moves the selector and tells where it is then and the name shown.
    static std::string moved(const QWidget& fights, const std::string& count, Qt::Key key)
    {
        WriteIni("Jeu", "combats", count, Descriptor());
        keys(control(fights, "HScroll1"), {key});
        const int at = control<ScrollBar>(fights, "HScroll1").value();
        return std::to_string(at) + " " + text(fights, "Text1");
    }
};

TEST_F(Fights, WithoutACountTheSelectorGoesBackAndOffersANewFight)
{
    for (const char* count : {"0", "", "abc"}) {
        EXPECT_EQ(moved(open(), count, Qt::Key_Right), "0 Nouveau combat") << count;
    }
}

TEST_F(Fights, TheSelectorShowsTheNamesAsFarAsTheCountSaysAtEachMove)
{
    const QWidget& fights = open();
    EXPECT_EQ(text(fights, "Text1"), "");
    EXPECT_EQ(moved(fights, "3", Qt::Key_Right), "1 Wolves");
    EXPECT_EQ(moved(fights, "3", Qt::Key_Right), "2 Évêque");
    EXPECT_EQ(moved(fights, "3", Qt::Key_End), "3 ");
    EXPECT_EQ(moved(fights, "1", Qt::Key_Left), "1 Wolves");
    EXPECT_EQ(moved(fights, "1", Qt::Key_Home), "0 "); // there is no fight 0
    EXPECT_EQ(text(fights, "Label2"), "1");
}
