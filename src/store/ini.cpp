#include "store/ini.h"

#include "store/codepage.h"

#include <algorithm>
#include <charconv>

namespace
{

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lower(a[i]) != lower(b[i])) {
            return false;
        }
    }
    return true;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

std::string_view withoutBlanksBefore(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

std::string_view trimmed(std::string_view text)
{
    text = withoutBlanksBefore(text);
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Takes one line off the front of the text, without its LF (a CR before it still belongs to the line).
std::string_view takeLine(std::string_view& rest)
{
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return line;
}

/// The section that a line opens; nothing for any other line.
std::optional<std::string_view> sectionName(std::string_view line)
{
    line = withoutBlanksBefore(line);
    if (!line.starts_with('[')) {
        return std::nullopt;
    }
    line.remove_prefix(1);
    return trimmed(line.substr(0, line.find(']')));
}

/// Whether only blanks lie between a place in the text and the line end before it.
bool beginsLine(std::string_view text, std::size_t place)
{
    while (place > 0 && isBlank(text[place - 1])) {
        --place;
    }
    return place == 0 || text[place - 1] == '\n';
}

/// Takes off what lies before the next line that opens a section. Bracket by bracket, which in a long file
/// are fewer than lines. False when there is none.
bool takeToSection(std::string_view& rest)
{
    std::size_t place = rest.find('[');
    while (place != std::string_view::npos && !beginsLine(rest, place)) {
        place = rest.find('[', place + 1);
    }
    rest.remove_prefix(std::min(place, rest.size()));
    return !rest.empty();
}

/// The text after a line's first "=" when its key is the one asked for.
std::optional<std::string_view> valueOfLine(std::string_view line, std::string_view key)
{
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return std::nullopt;
    }
    if (!sameName(trimmed(line.substr(0, equals)), key)) {
        return std::nullopt;
    }
    return line.substr(equals + 1);
}

std::string cleanValue(std::string_view raw)
{
    std::string_view value = trimmed(raw);
    if (value.size() >= 2 && value.front() == value.back() &&
        (value.front() == '"' || value.front() == '\'')) {
        value = value.substr(1, value.size() - 2);
    }
    return std::string(value.substr(0, longestIniValue));
}

std::string valueInBody(std::string_view body, std::string_view key)
{
    while (!body.empty()) {
        const std::string_view line = takeLine(body);
        if (sectionName(line)) {
            break;
        }
        if (const auto raw = valueOfLine(line, key)) {
            return cleanValue(*raw);
        }
    }
    return {};
}

std::string_view withoutMark(std::string_view text)
{
    return text.starts_with(utf8Mark) ? text.substr(utf8Mark.size()) : text;
}

bool isUtf16(std::string_view text)
{
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

/// Adds the lines of a text, each ended by CR LF.
void appendLines(std::string& result, std::string_view text)
{
    while (!text.empty()) {
        std::string_view line = takeLine(text);
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
        result.append(line).append("\r\n");
    }
}

/// Where a key's line belongs in a text: the bytes that it replaces, none where it is inserted.
struct Place {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool sectionFound = false;
};

Place placeOf(std::string_view text, std::string_view section, std::string_view key)
{
    Place place = {text.size(), text.size(), false};
    std::string_view rest = withoutMark(text);
    while (!rest.empty()) {
        const std::size_t begin = text.size() - rest.size();
        const std::string_view line = takeLine(rest);
        const std::size_t end = text.size() - rest.size();
        if (const auto name = sectionName(line)) {
            if (place.sectionFound) {
                return place;
            }
            place.sectionFound = sameName(*name, section);
        } else if (place.sectionFound && valueOfLine(line, key)) {
            return {begin, end, true};
        }
        if (place.sectionFound && !trimmed(line).empty()) {
            place = {end, end, true};
        }
    }
    return place;
}

/// The number at the end of a section's name; 0 when the name is none of those counted.
std::size_t numberOf(std::string_view name, std::string_view prefix, std::string (*numberText)(int),
                     std::size_t count)
{
    if (name.size() < prefix.size() || !sameName(name.substr(0, prefix.size()), prefix)) {
        return 0;
    }
    const std::string_view digits = name.substr(prefix.size());
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (number < 1 || static_cast<std::size_t>(number) > count || digits != numberText(number)) {
        return 0;
    }
    return static_cast<std::size_t>(number);
}

} // namespace

std::string IniValue(std::string_view text, std::string_view section, std::string_view key)
{
    std::string_view rest = withoutMark(text);
    while (takeToSection(rest)) {
        if (sameName(*sectionName(takeLine(rest)), section)) {
            return valueInBody(rest, key);
        }
    }
    return {};
}

std::optional<std::string> WithIniValue(std::string_view text, std::string_view section, std::string_view key,
                                        std::string_view value)
{
    if (isUtf16(text)) {
        return std::nullopt;
    }
    const Place place = placeOf(text, section, key);
    std::string result;
    result.reserve(text.size() + section.size() + key.size() + value.size() + 16);
    appendLines(result, text.substr(0, place.begin));
    if (!place.sectionFound) {
        result.append("[").append(OneLine(section)).append("]\r\n");
    }
    result.append(OneLine(key)).append("=").append(OneLine(value)).append("\r\n");
    appendLines(result, text.substr(place.end));
    return result;
}

std::vector<std::string> NumberedIniValues(std::string_view text, std::string_view prefix,
                                           std::string (*numberText)(int), std::string_view key, int count)
{
    std::vector<std::string> values(static_cast<std::size_t>(count));
    std::vector<bool> met(values.size() + 1);
    std::size_t awaited = 0; // the number of the section whose key has not come yet
    std::string_view rest = withoutMark(text);
    while (!rest.empty()) {
        const std::string_view line = takeLine(rest);
        if (const auto name = sectionName(line)) {
            awaited = numberOf(*name, prefix, numberText, values.size());
            if (met[awaited]) {
                awaited = 0;
            }
            met[awaited] = awaited > 0;
        } else if (const auto raw = awaited > 0 ? valueOfLine(line, key) : std::nullopt) {
            values[awaited - 1] = cleanValue(*raw);
            awaited = 0;
        }
    }
    return values;
}
