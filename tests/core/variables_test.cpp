#include "inproject.h"

#include "fights/fights.h"
#include "variables/variables.h"

#include <vector>

namespace
{

using Values = std::vector<std::string>;
using DescriptorValues = InProject;

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
}

TEST_F(DescriptorValues, AStartValueIsReplacedAloneAndMayBeEmptyOrMissing)
{
    WriteIni("variable2", "VALEUR", "two", Descriptor());
    EXPECT_EQ(StartValues(3), (Values{"", "two", ""}));
    EXPECT_EQ(StartValues(), Values{});
    for (int number = 1; number <= 12; ++number) {
        FinishVariable(number, std::to_string(number * 10));
    }
    SetStartValue(2, "");
    SetStartValue(12, "last");
    EXPECT_EQ(StartValues(),
              (Values{"10", "", "30", "40", "50", "60", "70", "80", "90", "100", "110", "last"}));
}

TEST_F(DescriptorValues, VariablesAreAsManyAsTheCountSaysAndTheNextFollowsIt)
{
    struct Case {
        std::string_view count;
        int variables;
        int next; // 0: none
    };
    FinishVariable(1, "abc");
    for (const auto& [count, variables, next] : std::vector<Case>{{"", 0, 0},
                                                                  {"x", 0, 0},
                                                                  {"-1", 0, 0},
                                                                  {"1.0", 0, 0},
                                                                  {"32768", 0, 0},
                                                                  {"0", 0, 1},
                                                                  {"01", 1, 2},
                                                                  {"32766", 32766, 32767},
                                                                  {"32767", 32767, 0}}) {
        WriteIni("Variables", "nombre", count, Descriptor());
        EXPECT_EQ(VariableCountText(), count);
        EXPECT_EQ(VariableCount(), variables) << count;
        EXPECT_EQ(StartValues().size(), static_cast<std::size_t>(variables)) << count;
        EXPECT_EQ(VariableAfter(count).number, next) << count;
        EXPECT_EQ(VariableAfter(count).failure.empty(), next != 0) << count;
    }
    EXPECT_NE(VariableAfter("32767").failure, BadVariableCount());
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

TEST(VariableLists, KeepTheirWordsAndBytes)
{
    EXPECT_EQ(VariableLine(12, "a\"b"), "12 | Valeur de d\xE9part : a\"b");
    EXPECT_EQ(ConditionEntry(3, ""), "Variable 3 de valeur initale : ");
}
