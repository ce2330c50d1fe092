#include "sourcelines.h"

#include "store/codepage.h"
#include "store/numbers.h"

#include <sstream>
#include <stdexcept>

namespace
{

std::string trimmed(const std::string& text)
{
    const auto first = text.find_first_not_of(' ');
    const auto last = text.find_last_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first, last - first + 1);
}

std::string textOf(const Path& file)
{
    std::string utf8;
    if (const std::error_code failure = platform::readFile(file, utf8)) {
        throw std::runtime_error(file.string() + ": " + failure.message());
    }
    std::string ansi = AnsiFromUtf8(utf8);
    if (Utf8FromAnsi(ansi) != utf8) {
        throw std::runtime_error(file.string() + ": a character is not in code page 1252");
    }
    return ansi;
}

} // namespace

void SourceLine::fail(const std::string& reason) const
{
    throw std::runtime_error(place + ": " + reason);
}

std::vector<SourceLine> sourceLines(const Path& file)
{
    std::vector<SourceLine> lines;
    std::istringstream text(textOf(file));
    int number = 0;
    for (std::string raw; std::getline(text, raw);) {
        ++number;
        const std::string content = trimmed(raw);
        if (content.empty() || content.front() == '#') {
            continue;
        }
        const auto end = std::min(content.find(' '), content.size());
        SourceLine line{content.substr(0, end), trimmed(content.substr(end)),
                        file.string() + ":" + std::to_string(number)};
        if (line.word != "|") {
            lines.push_back(std::move(line));
        } else if (!lines.empty()) {
            lines.back().rest.append(" ").append(line.rest);
        }
    }
    return lines;
}

std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words;
    std::istringstream stream{std::string(text)};
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

int numberIn(const SourceLine& line, std::string_view text)
{
    const auto number = CountFrom(text);
    if (!number) {
        line.fail("not a number: " + std::string(text));
    }
    return *number;
}

Cell cellIn(const SourceLine& line, std::string_view text)
{
    const auto comma = text.find(',');
    if (comma == std::string_view::npos) {
        line.fail("not a column and a row: " + std::string(text));
    }
    const Cell cell{numberIn(line, text.substr(comma + 1)), numberIn(line, text.substr(0, comma))};
    if (cell.row < 1 || cell.row > MapModel::rows || cell.column < 1 || cell.column > MapModel::columns) {
        line.fail("outside the map: " + std::string(text));
    }
    return cell;
}
