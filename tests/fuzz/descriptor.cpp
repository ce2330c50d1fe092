// Input: section, key and value on a line each, then the text of a descriptor.
#include "target.h"

#include "store/codepage.h"
#include "store/ini.h"

#include <algorithm>

namespace
{

using Lines = std::vector<std::string_view>;

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\v\f";
    const std::size_t start = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

/// Whether a line of this key can be told from all others.
bool isKey(std::string_view key)
{
    return key == trimmed(key) && !key.starts_with('[') && key.find('=') == std::string_view::npos &&
           !key.starts_with("\xEF\xBB\xBF");
}

/// What a value must be read as.
std::string_view readBack(std::string_view value)
{
    value = trimmed(value);
    const bool quoted =
        value.size() > 1 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return (quoted ? value.substr(1, value.size() - 2) : value).substr(0, longestIniValue);
}

/// The lines of a text, without their ends.
Lines linesOf(std::string_view text)
{
    Lines lines;
    while (!text.empty()) {
        lines.push_back(TakeLine(text));
        lines.back().remove_suffix(lines.back().ends_with('\r') ? 1 : 0);
    }
    return lines;
}

/// Whether `after` is `before` with one line replaced, or with one or two lines added in one place.
bool differsInOnePlace(const Lines& before, const Lines& after)
{
    const auto [oldStart, newStart] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const Lines oldRest(oldStart, before.end());
    const Lines newRest(newStart, after.end());
    const auto [oldEnd, newEnd] =
        std::mismatch(oldRest.rbegin(), oldRest.rend(), newRest.rbegin(), newRest.rend());
    const auto removed = oldRest.rend() - oldEnd;
    const auto added = newRest.rend() - newEnd;
    return removed == 0 ? added <= 2 : removed == 1 && added == 1;
}

/// The reader of many values and the reader of one find the same.
void requireAgreement(std::string_view text, const std::string& prefix, std::string_view key)
{
    const auto decimal = +[](int number) { return std::to_string(number); };
    const auto values = NumberedIniValues(text, prefix, decimal, key, 11);
    for (int number = 1; number <= 11; ++number) {
        Require(values[static_cast<std::size_t>(number) - 1] ==
                    IniValue(text, prefix + std::to_string(number), key),
                "both readers agree");
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view text = TextOf(data, size);
    const std::string section = OneLine(TakeLine(text));
    const std::string key = OneLine(TakeLine(text));
    const std::string value = OneLine(TakeLine(text));

    requireAgreement(text, section, key);
    const auto changed = WithIniValue(text, section, key, value);
    if (changed && isKey(key) && section == trimmed(section) && section.find(']') == std::string::npos) {
        Require(IniValue(*changed, section, key) == readBack(value), "what was written is read back");
        Require(differsInOnePlace(linesOf(text), linesOf(*changed)), "no other line is changed");
        Require(changed->ends_with("\r\n"), "the last line is ended");
        Require(WithIniValue(*changed, section, key, value) == changed, "written twice is the same");
    }
    return 0;
}
