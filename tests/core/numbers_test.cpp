#include "store/numbers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

struct Case {
    std::string_view text;
    std::optional<int> number;
};

} // namespace

TEST(Count, IsAWholeNumberFrom0To32767)
{
    const std::vector<Case> cases = {
        {"0", 0},
        {"02", 2},
        {"12", 12},
        {" \t7 ", 7},
        {"0000000000000000000009", 9},
        {"32767", 32767},
        {"32768", {}},
        {"99999999999999999999", {}},
        {"", {}},
        {"  ", {}},
        {"-1", {}},
        {"+1", {}},
        {"1.0", {}},
        {"1 2", {}},
        {"1e3", {}},
        {"0x10", {}},
        {"2a", {}},
        {"\xB2", {}}, // a raised two
        {std::string_view("1\0", 2), {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CountFrom(c.text), c.number) << c.text;
    }
}

TEST(WholeNumber, IsReadAsAPersonTypesIt)
{
    const std::vector<Case> cases = {
        {"7", 7},
        {"  7\t", 7},
        {"-3", -3},
        {"+3", 3},
        {"- 3", -3},
        {"007", 7},
        {"1,234", 1234},
        {"32767", 32767},
        {"-32768", -32768},
        {"1e3", 1000},
        {"1E+3", 1000},
        {"1500e-2", 15},
        {".25e2", 25},
        {"5.", 5},
        {"0e99999999999999999999", 0},
        {"1e-99999999999999999999", 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(WholeNumber16(c.text), c.number) << c.text;
    }
    EXPECT_EQ(WholeNumber16("1" + std::string(100, '0') + "e-100"), 1);
}

TEST(WholeNumber, AFractionIsRoundedAndAnExactHalfGoesToTheEvenNeighbour)
{
    const std::vector<Case> cases = {
        {"2.5", 2},           {"3.5", 4},      {"-2.5", -2},        {"-3.5", -4},
        {"0.5", 0},           {"1.5", 2},      {"2.4999999999", 2}, {"2.50000000000000000001", 3},
        {"9.5", 10},          {"99.51", 100},  {"25e-1", 2},        {"35e-1", 4},
        {"0.05e1", 0},        {"0.051e1", 1},  {"0.09", 0},         {"32767.4999", 32767},
        {"-32768.5", -32768}, {"32767.5", {}}, {"-32768.51", {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(WholeNumber16(c.text), c.number) << c.text;
    }
}

TEST(WholeNumber, EverythingElseIsRefused)
{
    for (const std::string_view text :
         {"",      " ",   "abc",  "40000", "32768", "-32769", "99999", "100000", "1e5", "1e999999999999",
          "1e",    "1e+", "e3",   "-",     ".",     ",5",     "--3",   "3-",     "1 2", "1.2.3",
          "1.5,0", "7x",  "0x10", "\xA0",  "1e3.0"}) {
        EXPECT_EQ(WholeNumber16(text), std::nullopt) << text;
    }
}

TEST(WholeNumber, FollowsTheMarksOfTheLocale)
{
    constexpr NumberMarks french = {',', '\xA0'};
    EXPECT_EQ(WholeNumber16("2,5", french), 2);
    EXPECT_EQ(WholeNumber16("3,5", french), 4);
    EXPECT_EQ(WholeNumber16("1\xA0"
                            "234",
                            french),
              1234);
    EXPECT_EQ(WholeNumber16("2.5", french), std::nullopt);
}
