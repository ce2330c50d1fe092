#include "store/numbers.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace
{

constexpr char noBreakBlank = '\xA0';

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r') || c == noBreakBlank;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isSign(char c)
{
    return c == '+' || c == '-';
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

/// The whole text as digits of a base. Failure: nothing, for any other character or beyond 16 bits.
std::optional<std::uint16_t> bitsFrom(std::string_view digits, int base)
{
    std::uint16_t bits = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, failure] = std::from_chars(digits.data(), end, bits, base);
    return failure == std::errc() && stop == end ? std::optional(bits) : std::nullopt;
}

/// What follows "&": the letter of a base, or none for octal, and digits that spell the sixteen bits.
std::optional<int> numberFromBits(std::string_view text)
{
    const char letter = text.empty() ? '\0' : text.front();
    const bool hexadecimal = letter == 'H' || letter == 'h';
    if (hexadecimal || letter == 'O' || letter == 'o') {
        text.remove_prefix(1);
    }
    const auto bits = bitsFrom(text, hexadecimal ? 16 : 8);
    return bits ? std::optional<int>(static_cast<std::int16_t>(*bits)) : std::nullopt;
}

/// Sign, parentheses, currency symbol and blanks around the digits: a symbol at most once on each side, a
/// sign at most once in all, parentheses in its place.
class Surroundings
{
public:
    explicit Surroundings(std::string_view currency)
        : currency_(currency)
    {
    }

    /// Take off the text's front what may stand before or after the digits.
    void takeBefore(std::string_view& text) { takeAll(text, '('); }
    void takeAfter(std::string_view& text) { takeAll(text, ')'); }

    /// True when no parenthesis stands alone.
    bool isWhole() const { return opened_ == closed_; }
    bool isNegative() const { return negative_; }

private:
    void takeAll(std::string_view& text, char parenthesis)
    {
        bool priced = false;
        std::size_t taken = 0;
        do {
            taken = lengthOfNext(text, parenthesis, priced);
            text.remove_prefix(taken);
        } while (taken > 0);
    }

    std::size_t lengthOfNext(std::string_view text, char parenthesis, bool& priced)
    {
        if (!priced && !currency_.empty() && text.starts_with(currency_)) {
            priced = true;
            return currency_.size();
        }
        if (text.empty()) {
            return 0;
        }
        const char c = text.front();
        return isBlank(c) || takeSign(c) || (c == parenthesis && takeParenthesis(c)) ? 1 : 0;
    }

    bool takeSign(char c)
    {
        if (signed_ || !isSign(c)) {
            return false;
        }
        signed_ = true;
        negative_ = c == '-';
        return true;
    }

    bool takeParenthesis(char c)
    {
        bool& side = c == '(' ? opened_ : closed_;
        if (side || (c == '(' && signed_)) {
            return false;
        }
        side = signed_ = negative_ = true;
        return true;
    }

    std::string_view currency_;
    bool signed_ = false;
    bool negative_ = false;
    bool opened_ = false;
    bool closed_ = false;
};

/// value = 0.digits × 10 ^ point, the digits without zeros at their ends.
struct Decimal {
    std::string digits;
    std::int64_t point = 0;
};

bool isGroupMark(char c, const NumberMarks& marks)
{
    return marks.group != '\0' && (c == marks.group || (c == ' ' && marks.group == noBreakBlank));
}

/// Adds one more digit; zeros in front only move the point.
void append(Decimal& number, char digit, bool fraction)
{
    const bool counts = digit != '0' || !number.digits.empty();
    if (counts) {
        number.digits += digit;
    }
    number.point += (counts ? 1 : 0) - (fraction ? 1 : 0);
}

/// Takes the digits with their group and decimal marks off the front. Failure: nothing, when there is no
/// digit.
std::optional<Decimal> takeDigits(std::string_view& text, const NumberMarks& marks)
{
    Decimal number;
    bool found = false;
    bool fraction = false;
    for (; !text.empty(); text.remove_prefix(1)) {
        const char c = text.front();
        if (isDigit(c)) {
            append(number, c, fraction);
            found = true;
        } else if (c == marks.decimal && !fraction) {
            fraction = true;
        } else if (!found || !isGroupMark(c, marks)) {
            break;
        }
    }
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    return found ? std::optional(number) : std::nullopt;
}

/// Takes an exponent off the front, if there is one, and applies it. A letter that no digit follows is none:
/// it may begin the currency symbol.
void takeExponent(std::string_view& text, Decimal& number)
{
    constexpr std::int64_t farther = 1'000'000'000'000; // than any number of typed digits can make up for
    if (text.empty() || std::string_view("eEdD").find(text.front()) == std::string_view::npos) {
        return;
    }
    std::string_view rest = text.substr(1);
    const bool minus = rest.starts_with('-');
    rest.remove_prefix(!rest.empty() && isSign(rest.front()) ? 1 : 0);
    if (rest.empty() || !isDigit(rest.front())) {
        return;
    }
    std::int64_t exponent = 0;
    for (; !rest.empty() && isDigit(rest.front()); rest.remove_prefix(1)) {
        exponent = std::min(farther, exponent * 10 + (rest.front() - '0'));
    }
    number.point += minus ? -exponent : exponent;
    text = rest;
}

/// The nearest whole number, the even one of two. Anything beyond 16 bits comes out as some number beyond.
int rounded(const Decimal& number)
{
    constexpr int beyond = 100000;
    if (number.digits.empty() || number.point < 0) {
        return 0;
    }
    if (number.point > 5) {
        return beyond;
    }
    int value = 0;
    const auto whole = static_cast<std::size_t>(number.point);
    for (std::size_t i = 0; i < whole; ++i) {
        value = value * 10 + (i < number.digits.size() ? number.digits[i] - '0' : 0);
    }
    const std::string_view digits = number.digits;
    // Digits without zeros behind them compare as fractions do.
    const int toHalf = digits.substr(std::min(whole, digits.size())).compare("5");
    return toHalf > 0 || (toHalf == 0 && value % 2 != 0) ? value + 1 : value;
}

} // namespace

std::optional<int> CountFrom(std::string_view text)
{
    const auto count = bitsFrom(withoutBlanks(text), 10);
    return count && *count <= largestCount ? std::optional<int>(*count) : std::nullopt;
}

std::string TwoDigits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::optional<int> WholeNumber16(std::string_view text, const NumberMarks& marks)
{
    text = withoutBlanks(text);
    if (text.starts_with('&')) {
        return numberFromBits(text.substr(1));
    }
    Surroundings around(marks.currency);
    around.takeBefore(text);
    auto number = takeDigits(text, marks);
    if (!number) {
        return std::nullopt;
    }
    takeExponent(text, *number);
    around.takeAfter(text);
    const int value = around.isNegative() ? -rounded(*number) : rounded(*number);
    if (!text.empty() || !around.isWhole() || value < -largestCount - 1 || value > largestCount) {
        return std::nullopt;
    }
    return value;
}
