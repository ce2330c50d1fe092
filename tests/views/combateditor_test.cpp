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
        mainform->openCombateditor();
    }

    /// Moves the selector of the view opened last and tells where it is then and the name shown.
    std::string moved(const std::string& count, Qt::Key key) const
    {
        WriteIni("Jeu", "combats", count, Descriptor());
        auto& selector = control<ScrollBar>(view("combateditor"), "HScroll1");
        keys(selector, {key});
        return std::to_string(selector.value()) + " " + text(view("combateditor"), "Text1");
    }
};

TEST_F(Fights, WithoutACountTheSelectorGoesBackAndOffersANewFight)
{
    for (const char* count : {"0", "", "abc"}) {
        EXPECT_EQ(moved(count, Qt::Key_Right), "0 Nouveau combat") << count;
        mainform->openCombateditor();
    }
}

TEST_F(Fights, TheSelectorShowsTheNamesAsFarAsTheCountSaysAtEachMove)
{
    EXPECT_EQ(moved("3", Qt::Key_Right), "1 Wolves");
    EXPECT_EQ(moved("3", Qt::Key_Right), "2 Évêque");
    EXPECT_EQ(moved("3", Qt::Key_End), "3 ");
    EXPECT_EQ(moved("1", Qt::Key_Left), "1 Wolves");
    EXPECT_EQ(moved("1", Qt::Key_Home), "0 "); // there is no fight 0
}
