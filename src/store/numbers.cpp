#include "store/numbers.h"

#include <algorithm>
#include <string>

namespace
{

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view withoutBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Takes a sign off the front; true for minus.
bool takeSign(std::string_view& text)
{
    const bool minus = text.starts_with('-');
    if (minus || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return minus;
}

/// Digits and where the decimal point stands among them: value = 0.digits × 10 ^ point.
struct Decimal {
    std::string digits;
    long point = 0;
};

/// Takes the digits with their group and decimal marks off the front. Failure: nothing, when there is no
/// digit.
std::optional<Decimal> takeDigits(std::string_view& text, NumberMarks marks)
{
    Decimal number;
    bool fraction = false;
    for (; !text.empty(); text.remove_prefix(1)) {
        const char c = text.front();
        if (isDigit(c)) {
            number.digits += c;
            number.point += fraction ? 0 : 1;
        } else if (c == marks.decimal && !fraction) {
            fraction = true;
        } else if (c != marks.group || fraction || number.digits.empty()) {
            break;
        }
    }
    if (number.digits.empty()) {
        return std::nullopt;
    }
    return number;
}

/// Takes an exponent off the front and applies it. Failure: false, for an "e" without digits.
bool takeExponent(std::string_view& text, Decimal& number)
{
    constexpr long farther = 1000000; // beyond any number that can be meant
    if (text.empty() || (text.front() != 'e' && text.front() != 'E')) {
        return true;
    }
    text.remove_prefix(1);
    const bool minus = takeSign(text);
    if (text.empty() || !isDigit(text.front())) {
        return false;
    }
    long exponent = 0;
    for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
        exponent = std::min(farther, exponent * 10 + (text.front() - '0'));
    }
    number.point += minus ? -exponent : exponent;
    return true;
}

/// The digits before the point as a number, rounded by the digits behind it. Anything beyond 16 bits comes
/// out as some number beyond 16 bits.
long rounded(Decimal number)
{
    constexpr long beyond = 100000;
    const std::size_t zeros = std::min(number.digits.find_first_not_of('0'), number.digits.size());
    number.digits.erase(0, zeros);
    number.point -= static_cast<long>(zeros);
    if (number.digits.empty() || number.point < 0) {
        return 0;
    }
    if (number.point > 5) {
        return beyond;
    }
    const auto whole = static_cast<std::size_t>(number.point);
    number.digits.resize(std::max(number.digits.size(), whole), '0');
    const long value = whole == 0 ? 0 : std::stol(number.digits.substr(0, whole));
    const std::string fraction = number.digits.substr(whole);
    if (fraction.empty() || fraction.front() < '5') {
        return value;
    }
    const bool exactHalf = fraction.front() == '5' && fraction.find_first_not_of('0', 1) == std::string::npos;
    return exactHalf && value % 2 == 0 ? value : value + 1;
}

} // namespace

std::optional<int> CountFrom(std::string_view text)
{
    constexpr int largest = 32767;
    text = withoutBlanks(text);
    if (text.empty() || !std::all_of(text.begin(), text.end(), isDigit)) {
        return std::nullopt;
    }
    int value = 0;
    for (const char c : text) {
        value = value * 10 + (c - '0');
        if (value > largest) {
            return std::nullopt;
        }
    }
    return value;
}

std::optional<int> WholeNumber16(std::string_view text, NumberMarks marks)
{
    text = withoutBlanks(text);
    const bool minus = takeSign(text);
    text = withoutBlanks(text);
    auto number = takeDigits(text, marks);
    if (!number || !takeExponent(text, *number) || !text.empty()) {
        return std::nullopt;
    }
    const long value = minus ? -rounded(*number) : rounded(*number);
    if (value < -32768 || value > 32767) {
        return std::nullopt;
    }
    return static_cast<int>(value);
}
