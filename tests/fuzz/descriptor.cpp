// Input: section, key and value on a line each, then the text of a descriptor.
#include "target.h"
#include "tests/core/inirules.h"

#include "store/codepage.h"

namespace
{

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
    std::string_view rest = TextOf(data, size);
    const std::string section = OneLine(TakeLine(rest));
    const std::string key = OneLine(TakeLine(rest));
    const std::string value = OneLine(TakeLine(rest));
    const std::string text(rest);

    requireAgreement(text, section, key);
    if (WithIniValue(text, section, key, value) && isKey(key) && section == trimmed(section) &&
        section.find(']') == std::string::npos) {
        const std::string broken = BrokenIniRule(text, section, key, value, readBack(value));
        Require(broken.empty(), broken);
    }
    return 0;
}
