#include "player/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace player
{

namespace
{

// The letters of bytes 80..9F; every other byte is the character of the same number.
constexpr std::array<char32_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t letterOf(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80U] : byte;
}

char byteOf(char32_t letter)
{
    if (letter < 0x80 || (letter >= 0xA0 && letter <= 0xFF)) {
        return static_cast<char>(letter);
    }
    const auto* const found = std::find(upperControls.begin(), upperControls.end(), letter);
    return found == upperControls.end() ? '?' : static_cast<char>(0x80 + (found - upperControls.begin()));
}

void append(std::string& text, char32_t letter)
{
    if (letter < 0x80) {
        text += static_cast<char>(letter);
    } else if (letter < 0x800) {
        text += static_cast<char>(0xC0U | letter >> 6U);
        text += static_cast<char>(0x80U | (letter & 0x3FU));
    } else {
        text += static_cast<char>(0xE0U | letter >> 12U);
        text += static_cast<char>(0x80U | (letter >> 6U & 0x3FU));
        text += static_cast<char>(0x80U | (letter & 0x3FU));
    }
}

struct Letter {
    char32_t value;
    std::size_t length;
};

constexpr char32_t notALetter = 0xFFFD;

std::size_t lengthFromLead(unsigned char lead)
{
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2) {
        return 0;
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

// The letter at the front of a text that is not empty; one byte that starts none is a letter on its own.
Letter firstLetter(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lengthFromLead(lead);
    if (length == 0 || length > text.size()) {
        return {notALetter, 1};
    }
    char32_t value = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) {
            return {notALetter, 1};
        }
        value = value << 6U | (byte & 0x3FU);
    }
    constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    if (value < smallest[length]) {
        return {notALetter, 1}; // spelled longer than it is: how a "/" slips past those who look for it
    }
    return {value, length};
}

} // namespace

std::string utf8From1252(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        append(text, letterOf(static_cast<unsigned char>(byte)));
    }
    return text;
}

std::string cp1252FromUtf8(std::string_view text)
{
    std::string bytes;
    while (!text.empty()) {
        const Letter letter = firstLetter(text);
        bytes += byteOf(letter.value);
        text.remove_prefix(letter.length);
    }
    return bytes;
}

} // namespace player
