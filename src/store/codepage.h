/// Windows-1252, the code page of every text that the core holds and every file that it writes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace codepage
{

/// Unicode of the bytes 0x80 to 0x9F. The five bytes that the code page leaves open stand for the control
/// character of the same number, as the system's own conversion has it, so that every byte survives a round
/// trip.
constexpr char32_t highTable[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

/// The byte of a character, "?" when the code page lacks it.
constexpr char byteOf(char32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    for (unsigned i = 0; i < 32; ++i) {
        if (highTable[i] == character) {
            return static_cast<char>(0x80 + i);
        }
    }
    return '?';
}

/// Takes one character off the front of UTF-8 text; malformed bytes are taken one by one and read as U+FFFD.
constexpr char32_t takeCharacter(std::string_view& utf8)
{
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || length > utf8.size()) {
        utf8.remove_prefix(1);
        return 0xFFFD;
    }
    char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[i]);
        if ((next & 0xC0) != 0x80) {
            utf8.remove_prefix(1);
            return 0xFFFD;
        }
        character = (character << 6) | (next & 0x3Fu);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (character < smallest[length]) {
        utf8.remove_prefix(1); // spelled longer than it is: how a "/" slips past those who look for it
        return 0xFFFD;
    }
    utf8.remove_prefix(length);
    return character;
}

/// A literal turned from the source file's UTF-8 into Windows-1252 bytes while compiling.
template <std::size_t N> struct Literal {
    char bytes[N] = {};
    std::size_t size = 0;

    // NOLINTNEXTLINE(google-explicit-constructor): a literal is converted implicitly by the language.
    consteval Literal(const char (&utf8)[N])
    {
        std::string_view rest(utf8, N - 1);
        while (!rest.empty()) {
            bytes[size++] = byteOf(takeCharacter(rest));
        }
    }
};

} // namespace codepage

/// `"Déplacement"_ansi`: the text in Windows-1252 bytes.
template <codepage::Literal text> constexpr std::string_view operator""_ansi()
{
    return {text.bytes, text.size};
}

/// Windows-1252 bytes of UTF-8 text; a character that the code page lacks becomes "?".
std::string AnsiFromUtf8(std::string_view utf8);

/// UTF-8 of Windows-1252 bytes; every byte has a character.
std::string Utf8FromAnsi(std::string_view ansi);

/// The text on one line: every CR LF, CR or LF becomes one blank.
std::string OneLine(std::string_view text);
