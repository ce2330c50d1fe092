/// INI text: finding and replacing the value of one key, on text alone. The files are the store's business.
///
/// Section and key names match without regard to the case of their ASCII letters. Of sections with one name
/// the first counts, of keys with one name the first in its section. Lines that are neither (comments, blank
/// lines) are passed over, and so is a UTF-8 byte-order mark before the first line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

/// The longest value, in bytes, that can be read back: values pass through a buffer of 255 with its closing
/// zero.
constexpr std::size_t longestIniValue = 254;

/// The value of a key: blanks around it and a pair of quotation marks that encloses it taken away, cut to the
/// longest value. Empty when the section or the key is missing.
std::string IniValue(std::string_view text, std::string_view section, std::string_view key);

/// The text with key=value in its place: the key's line replaced, or a line added after the last line of the
/// section that is not blank, or a new section at the end. All other lines stay, each ended by CR LF. Line
/// breaks within section, key or value become blanks. Failure: nothing, for text in UTF-16, which single
/// bytes would spoil.
std::optional<std::string> WithIniValue(std::string_view text, std::string_view section, std::string_view key,
                                        std::string_view value);

/// The sections of one INI text, found in a single pass, for callers that read many keys at once.
class IniSections
{
public:
    explicit IniSections(std::string text);
    IniSections(const IniSections&) = delete;
    IniSections& operator=(const IniSections&) = delete;

    /// As IniValue.
    std::string value(std::string_view section, std::string_view key) const;

private:
    std::string text_;
    std::unordered_map<std::string, std::string_view> bodies_;
};
