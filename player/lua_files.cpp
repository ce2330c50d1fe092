#include "player/lua_call.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace player
{

namespace
{

constexpr ObjectKind fileKind{"File"};

// What a file object holds; null once it is closed.
using File = std::FILE*;

File& openFileArgument(lua_State* L, int index)
{
    auto& file = check<File>(L, index, fileKind);
    luaL_argcheck(L, file != nullptr, index, "the file is closed");
    return file;
}

int pushOutcome(lua_State* L, bool success)
{
    if (success) {
        lua_pushboolean(L, 1);
        return 1;
    }
    const int reason = errno;
    lua_pushnil(L);
    lua_pushstring(L, std::strerror(reason));
    lua_pushinteger(L, reason);
    return 3;
}

struct NamedMode {
    std::string_view name;
    FileMode mode;
};

constexpr NamedMode namedModes[] = {{"r", FileMode::Read},          {"w", FileMode::Write},
                                    {"a", FileMode::Append},        {"r+", FileMode::ReadAndWrite},
                                    {"w+", FileMode::WriteAndRead}, {"a+", FileMode::AppendAndRead}};

FileMode modeArgument(lua_State* L, int index)
{
    std::string_view text = luaL_optstring(L, index, "r");
    if (text.ends_with('b')) {
        text.remove_suffix(1);
    }
    for (const NamedMode& named : namedModes) {
        if (named.name == text) {
            return named.mode;
        }
    }
    luaL_argerror(L, index, "not a mode of opening files");
    return FileMode::Read;
}

// Pushes a file object, closed if the file could not be opened; `message` says why then.
bool pushFile(lua_State* L, std::string_view path, FileMode mode, Message& message)
{
    Machine& machine = machineOf(L);
    auto& file = *static_cast<File*>(pushObject(L, fileKind, sizeof(File)));
    return succeeds(message, [&] { file = machine.openFile(path, mode).release(); });
}

int openFile(lua_State* L)
{
    const std::string_view path = checkText(L, 1);
    const FileMode mode = modeArgument(L, 2);
    Message message;
    if (pushFile(L, path, mode, message)) {
        return 1;
    }
    lua_pushnil(L);
    lua_pushstring(L, message.text());
    return 2;
}

int closeFile(lua_State* L)
{
    File& file = openFileArgument(L, 1);
    const bool written = std::fclose(file) == 0;
    file = nullptr;
    return pushOutcome(L, written);
}

int dropFile(lua_State* L)
{
    auto& file = check<File>(L, 1, fileKind);
    if (file != nullptr) {
        std::fclose(file);
        file = nullptr;
    }
    return 0;
}

// Pushes the next line without its end, or nil at the end of the file.
bool pushLine(lua_State* L, std::FILE* file)
{
    luaL_Buffer line;
    luaL_buffinit(L, &line);
    bool any = false;
    int byte = 0;
    while ((byte = std::getc(file)) != EOF) {
        any = true;
        if (byte == '\n') {
            break;
        }
        luaL_addchar(&line, static_cast<char>(byte));
    }
    luaL_pushresult(&line);
    if (!any) {
        lua_pop(L, 1);
        lua_pushnil(L);
    }
    return any;
}

// Pushes up to `count` bytes and gives how many they were.
std::size_t pushBytes(lua_State* L, std::FILE* file, std::size_t count)
{
    luaL_Buffer bytes;
    luaL_buffinit(L, &bytes);
    std::size_t total = 0;
    while (total < count) {
        const std::size_t wanted = std::min<std::size_t>(count - total, LUAL_BUFFERSIZE);
        const std::size_t got = std::fread(luaL_prepbuffer(&bytes), 1, wanted, file);
        luaL_addsize(&bytes, got);
        total += got;
        if (got < wanted) {
            break;
        }
    }
    luaL_pushresult(&bytes);
    return total;
}

bool pushAtMost(lua_State* L, std::FILE* file, lua_Number count)
{
    if (!(count >= 1)) {
        const int next = std::getc(file);
        std::ungetc(next, file);
        lua_pushliteral(L, "");
        return next != EOF;
    }
    constexpr lua_Number most = 1U << 30U;
    return pushBytes(L, file, static_cast<std::size_t>(std::min(count, most))) > 0;
}

bool pushNumber(lua_State* L, std::FILE* file)
{
    lua_Number number = 0;
    const bool found = std::fscanf(file, LUA_NUMBER_SCAN, &number) == 1;
    lua_pushnumber(L, number);
    return found;
}

bool pushFormat(lua_State* L, std::FILE* file, int index)
{
    if (lua_type(L, index) == LUA_TNUMBER) {
        return pushAtMost(L, file, lua_tonumber(L, index));
    }
    const char* const format = luaL_checkstring(L, index);
    luaL_argcheck(L, format[0] == '*' && std::strchr("lan", format[1]) != nullptr, index, "not a format");
    switch (format[1]) {
    case 'a':
        pushBytes(L, file, SIZE_MAX);
        return true;
    case 'n':
        return pushNumber(L, file);
    default:
        return pushLine(L, file);
    }
}

int readFile(lua_State* L)
{
    std::FILE* const file = openFileArgument(L, 1);
    const int last = lua_gettop(L);
    if (last == 1) {
        pushLine(L, file);
        return 1;
    }
    luaL_checkstack(L, last + LUA_MINSTACK, "too many formats");
    std::clearerr(file);
    for (int index = 2; index <= last; ++index) {
        if (!pushFormat(L, file, index)) {
            lua_pop(L, 1);
            lua_pushnil(L);
            return index - 1;
        }
    }
    return last - 1;
}

int writeArguments(lua_State* L, std::FILE* file, int first)
{
    bool written = true;
    const int last = lua_gettop(L);
    Machine& machine = machineOf(L);
    for (int index = first; index <= last; ++index) {
        const std::string_view text = checkText(L, index);
        if (!machine.mayWrite(text.size())) {
            lua_pushnil(L);
            lua_pushfstring(L, "a game may write %d MB in one run",
                            static_cast<int>(Machine::mostWritten >> 20U));
            return 2;
        }
        written = std::fwrite(text.data(), 1, text.size(), file) == text.size() && written;
    }
    return pushOutcome(L, written);
}

int writeFile(lua_State* L)
{
    return writeArguments(L, openFileArgument(L, 1), 2);
}

int flushFile(lua_State* L)
{
    return pushOutcome(L, std::fflush(openFileArgument(L, 1)) == 0);
}

// Beyond the end a script could blow up a file with one letter.
bool seekWithin(std::FILE* file, long offset, int origin)
{
    const long before = std::ftell(file);
    if (std::fseek(file, offset, origin) != 0) {
        return false;
    }
    const long place = std::ftell(file);
    std::fseek(file, 0, SEEK_END);
    const bool within = place <= std::ftell(file);
    std::fseek(file, within ? place : before, SEEK_SET);
    errno = EINVAL;
    return within;
}

int seekInFile(lua_State* L)
{
    static const char* const names[] = {"set", "cur", "end", nullptr};
    static constexpr int origins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    std::FILE* const file = openFileArgument(L, 1);
    const int origin = origins[luaL_checkoption(L, 2, "cur", names)];
    const lua_Number offset = luaL_optnumber(L, 3, 0);
    constexpr lua_Number farthest = 1U << 30U;
    luaL_argcheck(L, offset >= -farthest && offset <= farthest, 3, "too far");
    if (!seekWithin(file, static_cast<long>(offset), origin)) {
        return pushOutcome(L, false);
    }
    lua_pushnumber(L, static_cast<lua_Number>(std::ftell(file)));
    return 1;
}

// Upvalues: the file, and whether to close it at its end.
int nextLine(lua_State* L)
{
    auto& file = check<File>(L, lua_upvalueindex(1), fileKind);
    if (file == nullptr) {
        return luaL_error(L, "the file is closed");
    }
    if (!pushLine(L, file) && lua_toboolean(L, lua_upvalueindex(2)) != 0) {
        std::fclose(file);
        file = nullptr;
    }
    return 1;
}

int linesOfFile(lua_State* L)
{
    openFileArgument(L, 1);
    lua_pushvalue(L, 1);
    lua_pushboolean(L, 0);
    lua_pushcclosure(L, guarded<nextLine>, 2);
    return 1;
}

int linesOfPath(lua_State* L)
{
    Message message;
    if (!pushFile(L, checkText(L, 1), FileMode::Read, message)) {
        return raiseError(L, message);
    }
    lua_pushboolean(L, 1);
    lua_pushcclosure(L, guarded<nextLine>, 2);
    return 1;
}

// The player has no standard input that a game could ask.
int readNothing(lua_State* L)
{
    lua_pushnil(L);
    return 1;
}

int writeToOutput(lua_State* L)
{
    return writeArguments(L, stdout, 1);
}

void printText(lua_State* L, std::string_view text)
{
    if (machineOf(L).mayWrite(text.size())) {
        std::fwrite(text.data(), 1, text.size(), stdout);
    }
}

// As Lua's own, but within what the game may write; the rest is left out.
int print(lua_State* L)
{
    const int last = lua_gettop(L);
    for (int index = 1; index <= last; ++index) {
        lua_getglobal(L, "tostring");
        lua_pushvalue(L, index);
        lua_call(L, 1, 1);
        printText(L, checkText(L, -1));
        printText(L, index < last ? "\t" : "");
        lua_pop(L, 1);
    }
    printText(L, "\n");
    return 0;
}

int fileType(lua_State* L)
{
    luaL_checkany(L, 1);
    const auto* const file = static_cast<File*>(objectAt(L, 1, fileKind));
    if (file == nullptr) {
        lua_pushnil(L);
    } else {
        lua_pushstring(L, *file == nullptr ? "closed file" : "file");
    }
    return 1;
}

constexpr luaL_Reg fileMethods[] = {{"close", guarded<closeFile>},
                                    {"flush", guarded<flushFile>},
                                    {"lines", guarded<linesOfFile>},
                                    {"read", guarded<readFile>},
                                    {"seek", guarded<seekInFile>},
                                    {"write", guarded<writeFile>},
                                    {nullptr, nullptr}};

constexpr luaL_Reg fileFunctions[] = {{"close", guarded<closeFile>},
                                      {"lines", guarded<linesOfPath>},
                                      {"open", guarded<openFile>},
                                      {"read", guarded<readNothing>},
                                      {"type", guarded<fileType>},
                                      {"write", guarded<writeToOutput>},
                                      {nullptr, nullptr}};

} // namespace

void openFiles(lua_State* L)
{
    lua_newtable(L);
    setFunctions(L, fileMethods);
    defineKind(L, fileKind, guarded<dropFile>, nullptr);
    setLibrary(L, "io", fileFunctions);
    lua_pushcfunction(L, guarded<print>);
    lua_setglobal(L, "print");
}

} // namespace player
