// Input: one byte that chooses the locale, then what somebody typed.
#include "target.h"

#include "store/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace
{

const std::array<NumberMarks, 5> locales = {{
    {'.', ',', "$"},
    {',', '\xA0', "\x80"},
    {',', '.', "kr"},
    {'.', '\x92', "CHF"},
    {'.', '\0', "E"},
}};

/// The number by the way of doubles, of a text that is plain, and short enough for it to be exact.
std::optional<double> simpleNumber(std::string text, char decimalMark)
{
    constexpr std::size_t exact = 14;
    if (text.size() > exact ||
        text.find_first_not_of(std::string("0123456789e-") + decimalMark) != std::string::npos) {
        return std::nullopt;
    }
    std::replace(text.begin(), text.end(), decimalMark, '.');
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && last == end ? std::optional(number) : std::nullopt;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view rest = TextOf(data, size);
    if (rest.empty()) {
        return 0;
    }
    const NumberMarks& marks = locales[data[0] % locales.size()];
    rest.remove_prefix(1);
    const std::string text(rest);

    const auto number = WholeNumber16(text, marks);
    Require(!number || (*number >= -32768 && *number <= 32767), "a number has sixteen bits");
    Require(WholeNumber16(" \t" + text + "\r\xA0", marks) == number, "blanks around change nothing");
    if (const auto count = CountFrom(text)) {
        Require(number == count, "a count is a number");
    }
    if (const auto exact = simpleNumber(text, marks.decimal)) {
        const double nearest = std::nearbyint(*exact);
        const bool fits = nearest >= -32768 && nearest <= 32767;
        Require(number.has_value() == fits && (!fits || *number == nearest), "the nearest number is found");
    }
    return 0;
}
