/// What counts as a number: read once, at the border, by these functions; behind them it is an int.
#pragma once

#include <optional>
#include <string_view>

/// A count stored as text ("cartes", "combats", "nombre", "nbimg"): a whole number from 0 to 32767, blanks
/// around it and leading zeros allowed. Failure: nothing.
std::optional<int> CountFrom(std::string_view text);

/// The marks of the user's locale, as Windows-1252 bytes.
struct NumberMarks {
    char decimal = '.';
    char group = ',';
};

/// A whole number from -32768 to 32767 as a person types it: blanks around it, a sign, group marks before the
/// decimal mark, a fraction and an exponent ("1e3"). A fraction is rounded to the nearest whole number, an
/// exact half to the even neighbour, on the digits as typed. Failure: nothing.
std::optional<int> WholeNumber16(std::string_view text, NumberMarks marks = {});
