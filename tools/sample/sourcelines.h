/// Lines of a sample game's source.
#pragma once

#include "maps/mapmodel.h"
#include "store/platform.h"

#include <string>
#include <string_view>
#include <vector>

/// A word and what belongs to it, in Windows-1252 bytes.
struct SourceLine {
    std::string word;
    std::string rest;
    std::string place; ///< file and line number, for messages

    /// Throws std::runtime_error with the place and `reason`.
    [[noreturn]] void fail(const std::string& reason) const;
};

/// The lines of a file (UTF-8), without remarks and empty ones, carried-on lines joined by a blank.
/// Failure: std::runtime_error when it cannot be read or holds characters that a game cannot.
std::vector<SourceLine> sourceLines(const Path& file);

/// The pieces between blanks.
std::vector<std::string> wordsOf(std::string_view text);

/// The whole number that a text is. Failure: SourceLine::fail.
int numberIn(const SourceLine& line, std::string_view text);

/// The cell that "column,row" names, rows 1 to 8. Failure: SourceLine::fail.
Cell cellIn(const SourceLine& line, std::string_view text);
