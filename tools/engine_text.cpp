// Turns a readable source (UTF-8, LF) into the text of a template: code page 1252, CR LF.
#include "store/codepage.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace
{

std::string withCrLf(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        result += c == '\n' ? "\r\n" : std::string(1, c);
    }
    return result;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 3) {
        std::fputs("usage: engine_text SOURCE TARGET\n", stderr);
        return 2;
    }
    std::ifstream source(arguments[1], std::ios::binary);
    std::stringstream text;
    text << source.rdbuf();
    const std::string ansi = AnsiFromUtf8(text.str());
    if (Utf8FromAnsi(ansi) != text.str()) {
        std::fprintf(stderr, "engine_text: %s holds a character that code page 1252 lacks\n", arguments[1]);
        return 1;
    }
    std::ofstream target(arguments[2], std::ios::binary);
    target << withCrLf(ansi);
    target.close();
    if (!source || !target) {
        std::fprintf(stderr, "engine_text: cannot turn %s into %s\n", arguments[1], arguments[2]);
        return 1;
    }
    return 0;
}
