#include "player/error_report.h"

#include <algorithm>
#include <charconv>
#include <lua.hpp>

namespace player
{

namespace
{

constexpr int traceLevels = 20;
constexpr std::size_t longestMessage = 4000; // bytes: more than a page shows

struct Position {
    std::string_view file;
    int line = 0;
    std::size_t length = 0;
};

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// The "file:line: " at the front of a message; a length of 0 if there is none.
Position positionIn(std::string_view message)
{
    for (std::size_t colon = message.find(':'); colon != std::string_view::npos;
         colon = message.find(':', colon + 1)) {
        std::size_t end = colon + 1;
        while (end < message.size() && isDigit(message[end])) {
            ++end;
        }
        int line = 0;
        const auto parsed = std::from_chars(message.data() + colon + 1, message.data() + end, line);
        if (parsed.ec == std::errc() && message.substr(end, 2) == ": ") {
            return {message.substr(0, colon), line, end + 2};
        }
    }
    return {};
}

std::string messageOf(lua_State* L)
{
    switch (lua_type(L, -1)) {
    case LUA_TSTRING: {
        std::size_t length = 0;
        const char* const text = lua_tolstring(L, -1, &length);
        return {text, std::min(length, longestMessage)};
    }
    case LUA_TNUMBER:
        return std::to_string(lua_tonumber(L, -1));
    default:
        return std::string("the error is not a text but a value of type ") + luaL_typename(L, -1);
    }
}

std::string callText(const lua_Debug& call)
{
    std::string text = call.short_src;
    if (call.currentline > 0) {
        text += ':';
        text += std::to_string(call.currentline);
    }
    if (call.name != nullptr) {
        return text + ": in function '" + call.name + "'";
    }
    return text + (*call.what == 'm' ? ": in the script itself" : ": in a function");
}

// The trace, and the innermost script line if the message did not tell.
void addTrace(lua_State* L, ErrorReport& report)
{
    lua_Debug call{};
    for (int level = 1; lua_getstack(L, level, &call) != 0; ++level) {
        if (level > traceLevels) {
            report.trace.emplace_back("...");
            return;
        }
        lua_getinfo(L, "nSl", &call);
        if (*call.what == 'C' && call.name == nullptr) {
            continue;
        }
        report.trace.push_back(callText(call));
        if (report.line == 0 && call.currentline > 0) {
            report.file = call.short_src;
            report.line = call.currentline;
        }
    }
}

} // namespace

std::string ErrorReport::headline() const
{
    return file.empty() ? message : file + ":" + std::to_string(line) + ": " + message;
}

ErrorReport reportOf(std::string_view message)
{
    const Position position = positionIn(message);
    ErrorReport report;
    report.file = position.file;
    report.line = position.line;
    report.message = message.substr(position.length);
    return report;
}

ErrorReport describeError(lua_State* L)
{
    ErrorReport report = reportOf(messageOf(L));
    addTrace(L, report);
    return report;
}

} // namespace player
