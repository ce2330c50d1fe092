/// What counts as a number: read once, at the border, by these functions; behind them it is an int.
///
/// Blanks are what the system calls white space: blank, tab, line and page breaks and the no-break blank.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What a count can say: sixteen bits, signed.
constexpr int largestCount = 32767;

/// A count stored as text ("cartes", "combats", "nombre", "nbimg"): decimal digits alone, of a value from 0
/// to 32767, with blanks around them and leading zeros as may be. No sign, mark, fraction or exponent.
/// Failure: nothing.
std::optional<int> CountFrom(std::string_view text);

/// A number from 0 on with at least two digits.
std::string TwoDigits(int number);

/// How the user's locale writes numbers, as Windows-1252 bytes.
struct NumberMarks {
    char decimal = '.';
    /// Between the thousands. A no-break blank stands for the plain one too, which is what people type. '\0':
    /// the locale has none.
    char group = ',';
    /// May stand once before the digits and once after them; empty: there is none.
    std::string currency{};
};

/// A whole number from -32768 to 32767 as a person types it, by the rules of the system's own conversion of
/// text to a 16-bit number:
/// - Around the digits, in any order: blanks, a currency symbol on each side, and one sign before or after
///   them, or parentheses around them, which mean minus.
/// - Digits with a fraction. Group marks may stand anywhere behind the first digit: the system does not count
///   the digits between them.
/// - An exponent after "e" or "d", of either case, with a sign of its own.
/// - Or, with nothing but blanks around: sixteen bits as "&H" and hexadecimal digits, or as "&O" or "&" and
///   octal ones; "&HFFFF" is -1.
///
/// A fraction is rounded to the nearest whole number, an exact half to the even neighbour, on the digits as
/// typed, however many. Failure: nothing.
std::optional<int> WholeNumber16(std::string_view text, const NumberMarks& marks = {});
