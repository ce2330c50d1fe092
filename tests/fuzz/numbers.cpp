// Input: one byte that chooses the locale, then what somebody typed.
#include "target.h"

#include "store/numbers.h"

#include <array>
#include <cmath>

namespace
{

const std::array<NumberMarks, 5> locales = {{
    {'.', ',', "$"},
    {',', '\xA0', "\x80"},
    {',', '.', "kr"},
    {'.', '\x92', "CHF"},
    {'.', '\0', "E"},
}};

/// The number by the way of doubles, for texts that are short enough for it to be exact: a sign, digits with
/// at most one decimal mark, and a short exponent.
std::optional<double> simpleNumber(std::string text, char decimalMark)
{
    constexpr std::size_t exact = 14;
    const std::size_t exponent = std::min(text.find('e'), text.size());
    const std::size_t mark = text.find(decimalMark);
    if (mark < exponent) {
        text[mark] = '.';
    }
    const std::size_t first = text.find_first_of("0123456789");
    const bool plain = first < exponent && text.find_first_not_of("0123456789.e+-") == std::string::npos &&
                       text.find_first_of("+-", first) >= exponent && exponent <= exact &&
                       text.size() - exponent < 5;
    if (!plain || (mark >= exponent && text.find('.') != std::string::npos)) {
        return std::nullopt;
    }
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    return *end == '\0' ? std::optional(number) : std::nullopt;
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
