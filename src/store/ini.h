/// INI text: finding and replacing the value of one key, on text alone. The files are the store's business.
///
/// Section and key names match without regard to the case of their ASCII letters. Of sections with one name
/// the first counts, of keys with one name the first in its section. Lines that are neither (comments, blank
/// lines) are passed over, and so is a UTF-8 byte-order mark before the first line.
///
/// The profile functions of Windows, as Wine has them, do the same with what this program writes, but keep
/// the spelling of a key that they replace and drop blanks before a value that they write. Of a file that a
/// person edited they also clear blanks and blank lines away; here all other lines stay as they are. They end
/// a line at a CR alone, which no editor of today writes. They find no value in a line without "=", here a
/// later line has it. A section's name goes up to the last "]" of its line, here to the first, lest a remark
/// behind it hides it; a line without "]" opens none, here it does, lest its keys count for the section
/// above. Of a quoted value of the longest length they lose the last byte. They clear blanks around the names
/// that they are asked for; here a name counts as it is given. They write a line break in a value as it is,
/// so that the rest becomes a line of its own; here it becomes a blank. They fill a line that has the key and
/// no "=", here a line is added. After a UTF-8 mark they write UTF-8, here a value's bytes stay Windows-1252.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// The values of one key in the sections prefix + "1" to prefix + `count`, each as IniValue gives it, in a
/// single pass for callers that read many. numberText: how a number is written in the sections' names.
std::vector<std::string> NumberedIniValues(std::string_view text, std::string_view prefix,
                                           std::string (*numberText)(int), std::string_view key, int count);
