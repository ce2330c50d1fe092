/// What must hold of every INI text, whatever is in it. The test feeds it made-up texts, the fuzzer its own.
#pragma once

#include "store/ini.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

using Lines = std::vector<std::string_view>;

/// The lines of a text, without their ends.
inline Lines LinesOf(std::string_view text)
{
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
        lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// Whether `after` is `before` with one line replaced, or with one or two lines added in one place.
inline bool DiffersInOnePlace(const Lines& before, const Lines& after)
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

/// Sets a key and says what is wrong with the outcome; empty when nothing is. `read`: what the value must be
/// read as. Text in UTF-16 is none.
inline std::string BrokenIniRule(const std::string& text, std::string_view section, std::string_view key,
                                 std::string_view value, std::string_view read)
{
    const auto changed = WithIniValue(text, section, key, value);
    if (!changed) {
        return "nothing written";
    }
    if (IniValue(*changed, section, key) != read) {
        return "not read back";
    }
    if (!DiffersInOnePlace(LinesOf(text), LinesOf(*changed))) {
        return "other lines changed";
    }
    if (!changed->ends_with("\r\n")) {
        return "last line not ended";
    }
    return WithIniValue(*changed, section, key, value) == changed ? "" : "written twice is not the same";
}
