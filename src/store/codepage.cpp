#include "store/codepage.h"

namespace
{

void appendUtf8(std::string& out, char32_t character)
{
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0 | (character >> 6));
        out += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (character >> 12));
        out += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (character & 0x3F));
    }
}

} // namespace

std::string AnsiFromUtf8(std::string_view utf8)
{
    std::string ansi;
    ansi.reserve(utf8.size());
    while (!utf8.empty()) {
        ansi += codepage::byteOf(codepage::takeCharacter(utf8));
    }
    return ansi;
}

std::string Utf8FromAnsi(std::string_view ansi)
{
    std::string utf8;
    utf8.reserve(ansi.size());
    for (const char c : ansi) {
        const auto byte = static_cast<unsigned char>(c);
        appendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? codepage::highTable[byte - 0x80] : byte);
    }
    return utf8;
}

std::string OneLine(std::string_view text)
{
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            continue;
        }
        line += text[i] == '\r' || text[i] == '\n' ? ' ' : text[i];
    }
    return line;
}
