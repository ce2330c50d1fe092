#include "appdir.h"

#include "fights/fights.h"
#include "variables/variables.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using Values = std::vector<std::string>;

class DescriptorValues : public testing::Test
{
protected:
    DescriptorValues() { app.makeProject(); }

    TemporaryAppDir app;
};

} // namespace

TEST_F(DescriptorValues, AVariableIsAddedInTwoSteps)
{
    const std::string before = app.read("projets/demo/projet.ini");
    BeginVariable(1);
    EXPECT_EQ(app.read("projets/demo/projet.ini"), before + "[Variable1]\r\nnumero=1\r\n");
    EXPECT_EQ(VariableCountText(), "0");
    FinishVariable(1, "abc");
    std::string after = before + "[Variable1]\r\nnumero=1\r\nvaleur=abc\r\n";
    after.replace(after.find("nombre=0"), 8, "nombre=1");
    EXPECT_EQ(app.read("projets/demo/projet.ini"), after);
    EXPECT_EQ(StartValues(), Values{"abc"});
}

TEST_F(DescriptorValues, AStartValueIsReplacedAloneAndMayBeEmpty)
{
    for (int number = 1; number <= 12; ++number) {
        BeginVariable(number);
        FinishVariable(number, std::to_string(number * 10));
    }
    SetStartValue(2, "");
    SetStartValue(12, "last");
    EXPECT_EQ(StartValues(),
              (Values{"10", "", "30", "40", "50", "60", "70", "80", "90", "100", "110", "last"}));
    EXPECT_EQ(VariableCountText(), "12");
}

TEST_F(DescriptorValues, MissingStartValuesAreEmpty)
{
    WriteIni("variable2", "VALEUR", "two", Descriptor());
    EXPECT_EQ(StartValues(3), (Values{"", "two", ""}));
    EXPECT_EQ(StartValues(), Values{});
}

TEST_F(DescriptorValues, WithoutACountThereAreNoVariables)
{
    BeginVariable(1);
    FinishVariable(1, "abc");
    for (const std::string_view count : {"", "x", "-1", "1.0", "32768"}) {
        WriteIni("Variables", "nombre", count, Descriptor());
        EXPECT_EQ(StartValues(), Values{}) << count;
        EXPECT_EQ(VariableCount(), 0) << count;
        EXPECT_EQ(VariableCountText(), count);
    }
    WriteIni("Variables", "nombre", "01", Descriptor());
    EXPECT_EQ(StartValues(), Values{"abc"});
    EXPECT_EQ(VariableCount(), 1);
}

TEST_F(DescriptorValues, FightsAreCountedAndNamed)
{
    EXPECT_EQ(FightCount(), 0);
    EXPECT_EQ(FightTitle(0), "Nouveau combat");
    WriteIni("Jeu", "combats", "2", Descriptor());
    WriteIni("Combat2", "nom", "Dragon", Descriptor());
    EXPECT_EQ(FightCount(), 2);
    EXPECT_EQ(FightTitle(0), "");
    EXPECT_EQ(FightTitle(2), "Dragon");
    WriteIni("Jeu", "combats", "many", Descriptor());
    EXPECT_EQ(FightCount(), std::nullopt);
    EXPECT_EQ(FightTitle(2), "Nouveau combat");
}

TEST_F(DescriptorValues, AVariableFollowsItsCountUpToTheLargest)
{
    EXPECT_EQ(VariableAfter("0").number, 1);
    EXPECT_EQ(VariableAfter("32766").number, 32767);
    for (const char* count : {"32767", "", "abc", "-1", "1e9"}) {
        EXPECT_EQ(VariableAfter(count).number, 0) << count;
        EXPECT_FALSE(VariableAfter(count).failure.empty()) << count;
    }
    EXPECT_NE(VariableAfter("32767").failure, BadVariableCount());
}

TEST_F(DescriptorValues, ListEntriesKeepTheirWordsAndBytes)
{
    EXPECT_EQ(VariableLine(12, "a\"b"), "12 | Valeur de d\xE9part : a\"b");
    EXPECT_EQ(ConditionEntry(3, ""), "Variable 3 de valeur initale : ");
}
