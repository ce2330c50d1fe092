#include "store/numbers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

constexpr std::optional<int> no;

struct Row {
    std::string_view text;
    std::optional<int> number;
    std::string_view why;
};

void expectRead(const std::vector<Row>& rows, const NumberMarks& marks = {'.', ',', "$"})
{
    for (const auto& [text, number, why] : rows) {
        EXPECT_EQ(WholeNumber16(text, marks), number) << text.substr(0, 40) << ": " << why;
    }
}

} // namespace

TEST(Count, IsAWholeNumberFrom0To32767)
{
    const std::vector<Row> rows = {
        {"02", 2, "as map counts are written"},
        {" \t7 ", 7, "blanks around"},
        {"0000000000000000000009", 9, "leading zeros"},
        {"32767", 32767, "largest"},
        {"32768", no, "one more"},
        {"", no, "nothing"},
        {"-1", no, "counts have no sign"},
        {"1.0", no, "nor a fraction"},
        {"2a", no, "letter"},
        {std::string_view("1\0", 2), no, "zero byte"},
    };
    for (const auto& [text, number, why] : rows) {
        EXPECT_EQ(CountFrom(text), number) << text << ": " << why;
    }
}

TEST(WholeNumber, HasDigitsWithMarksAndAnExponent)
{
    expectRead({
        {"007", 7, "leading zeros"},
        {"\v\f\xA0 7\r\n\xA0", 7, "every blank there is"},
        {"32767", 32767, "largest"},
        {"32768", no, "one more"},
        {"-32768", -32768, "least"},
        {"-32769", no, "one less"},
        {"5.", 5, "mark without fraction"},
        {".25e2", 25, "fraction alone"},
        {".", no, "mark alone"},
        {"1.2.3", no, "two marks"},
        {"1,234", 1234, "thousands"},
        {"1,,2", 12, "groups of none"},
        {",5", no, "group mark before the first digit"},
        {"1.5,0", 2, "group mark in the fraction"},
        {"1e3", 1000, "exponent"},
        {"1500e-2", 15, "negative"},
        {"1d3", 1000, "exponent of double precision"},
        {"1e99999999999999999999", no, "exponent beyond integers"},
        {"1e-99999999999999999999", 0, "likewise"},
        {"0e99999999999999999999", 0, "zero all the same"},
        {"1e", no, "exponent without digits"},
        {"1 e3", no, "blank before it"},
        {"", no, "nothing"},
        {"1 2", no, "blank within, no group mark here"},
    });
}

TEST(WholeNumber, HasOneSignBeforeOrBehind)
{
    expectRead({
        {"-3", -3, "minus"},
        {"3-", -3, "minus behind"},
        {"3 -", -3, "blank between"},
        {"1e3-", -1000, "behind the exponent"},
        {"--3", no, "two"},
        {"-3-", no, "one on each side"},
        {"-0", 0, "zero has none"},
        {"(3)", -3, "parentheses mean minus"},
        {" ( 3 ) ", -3, "blanks everywhere"},
        {"(3", no, "not closed"},
        {"3)", no, "not opened"},
        {"-(3)", no, "parentheses and a sign"},
        {"(3-)", no, "and one behind"},
        {"(32768)", -32768, "least"},
    });
}

TEST(WholeNumber, HasOneCurrencySymbolBeforeOrBehind)
{
    expectRead({
        {"-$3", -3, "behind the sign"},
        {"$-3", -3, "before the sign"},
        {"-3 $", -3, "behind a blank"},
        {"($3)", -3, "within parentheses"},
        {"$(3)", -3, "around them"},
        {"$$3", no, "two on one side"},
        {"($1,23,,3.4,,,5,,E67$)", no, "well formed, too large"},
        {"($1,23,,3.4,,,5,,E-1$)", -123, "the same within the bounds"},
        {"1$2", no, "within"},
        {"3\x80", no, "of another country"},
    });
}

TEST(WholeNumber, HasSixteenBitsBehindAnAmpersand)
{
    expectRead({
        {"&H7F", 127, "hexadecimal"},
        {"&hff", 255, "lower case"},
        {"&H7FFF", 32767, "largest"},
        {"&H8000", -32768, "the highest bit is the sign"},
        {"&H0000FFFF", -1, "leading zeros"},
        {"&H10000", no, "seventeen bits"},
        {"&H1E3", 0x1E3, "no exponent"},
        {"&O17", 15, "octal"},
        {"&17", 15, "octal without its letter"},
        {"&8", no, "no octal digit"},
        {"&HG", no, "no hexadecimal digit"},
        {"-&H1", no, "the bits hold the sign"},
    });
}

TEST(WholeNumber, IsTheNearestAndOfTwoTheEvenOne)
{
    expectRead({
        {"2.5", 2, "half down to even"},
        {"3.5", 4, "half up to even"},
        {"-2.5", -2, "whatever the sign"},
        {"2.50000000000000000001", 3, "above, though no double tells"},
        {"0.051e1", 1, "above it"},
        {"0.06", 0, "not a half"},
        {"32767.4999999999999999999999", 32767, "below the last half"},
        {"32767.5", no, "rounds out of range"},
        {"-32768.50000000000000000001", no, "beyond"},
    });
}

TEST(WholeNumber, FollowsTheMarksOfTheLocale)
{
    expectRead(
        {
            {"2,5", 2, "decimal comma"},
            {"2.5", no, "the point is no mark"},
            {"1\xA0"
             "234,5 \x80",
             1234, "no-break blank"},
            {"1 234", 1234, "the blank that people type for it"},
            {"7 -", -7, "blank that groups nothing"},
        },
        {',', '\xA0', "\x80"});
    expectRead({{"1.234,5", 1234, "point for groups"}, {"2.5", 25, "however short"}}, {',', '.', "\x80"});
    expectRead({{"1 234 kr", 1234, "symbol of letters"}, {"kr3", 3, "before"}, {"3k", no, "part of it"}},
               {',', '\xA0', "kr"});
    expectRead({{"3E-", -3, "symbol, no exponent"}, {"3E2", 300, "exponent"}}, {'.', ',', "E"});
    expectRead({{"1234", 1234, "no group mark"},
                {std::string_view("1\0002", 3), no, "zero byte"},
                {"$3", no, "no symbol"}},
               {'.', '\0', ""});
}

TEST(WholeNumber, MayBeAMegabyteLong)
{
    const std::string zeros(1 << 20, '0');
    expectRead({
        {zeros + "7", 7, "leading zeros"},
        {"7" + zeros, no, "too large"},
        {"7" + zeros + "e-1048576", 7, "and its exponent"},
        {"0." + zeros + "7e1048577", 7, "fraction and its exponent"},
        {"2.5" + zeros + "1", 3, "above a half"},
        {std::string(1 << 20, '(') + "7", no, "parentheses"},
        {"&H" + zeros + "7", 7, "hexadecimal"},
    });
}
