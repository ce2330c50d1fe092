// Attempts of a game to reach what is not its own. Each runs in a project full of traps, beside a secret.
#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <map>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>

namespace player::testing
{
namespace
{

namespace fs = std::filesystem;

struct Attempt {
    const char* name;
    /// The body of a function; `out` is the path of the folder with the secret.
    const char* body;
    /// What it must return, or the error's message, or a part of it; "closed" if it runs until it is closed.
    const char* result;
};

constexpr const char* outside = "lies outside the project folder";
constexpr const char* noFile = "No such file or directory";
constexpr const char* noFrame = "no frame for 20 million steps";
constexpr const char* noMemory = "not enough memory";
constexpr const char* notTheGames = "which a game may not write";
constexpr const char* compiled = "compiled Lua is not run";

constexpr Attempt readings[] = {
    {"absolute", "return select(2, io.open(out .. '/secret'))", outside},
    {"parents", "return select(2, io.open('../../../out/secret'))", outside},
    {"backslashes", "return select(2, io.open('..\\\\..\\\\..\\\\out\\\\secret'))", outside},
    {"mixed slashes", "return select(2, io.open('images\\\\../..\\\\../../out/secret'))", outside},
    {"many slashes", "return select(2, io.open('//' .. out .. '///secret'))", outside},
    {"through the root's name",
     "return select(2, io.open(System.currentDirectory() .. '/../../../out/secret'))", outside},
    {"beside the root's name", "return select(2, io.open(System.currentDirectory() .. '-twin/secret'))",
     outside},
    {"neighbour project", "return select(2, io.open('../other/save'))", outside},
    {"boot script", "return select(2, io.open('../../index.lua'))", outside},
    {"link", "return select(2, io.open('link'))", outside},
    {"link to a link", "return select(2, io.open('linklink'))", outside},
    {"folder link", "return select(2, io.open('folder/secret'))", outside},
    {"folder link to a link", "return select(2, io.open('folderlink/secret'))", outside},
    {"back out of a folder link", "return select(2, io.open('folder/../out/secret'))", outside},
    {"endless link", "return select(2, io.open('ring'))", "Too many levels of symbolic links"},
    {"cut by NUL", "return select(2, io.open('link\\0.png'))", "is not a file name"},
    {"NUL in front", "return select(2, io.open('\\0' .. out .. '/secret'))", "is not a file name"},
    {"lines", "return io.lines('link')", outside},
    {"overlong dots", "return select(2, io.open('\\192\\174\\192\\174/out/secret'))", noFile},
    {"drive", "return select(2, io.open('C:\\\\secret'))", noFile},
    {"home", "return select(2, io.open('~/secret'))", noFile},
    {"address", "return select(2, io.open('file:///etc/passwd'))", noFile},
    {"endless name", "return select(2, io.open(string.rep('a', 300)))", "File name too long"},
    {"own environment", "return select(2, io.open('/proc/self/environ'))", outside},
    {"own root", "return select(2, io.open('/proc/self/root/etc/passwd'))", outside},
    {"own current folder", "return select(2, io.open('/proc/self/cwd'))", outside},
    {"device", "return select(2, io.open('/dev/zero'))", outside},
    {"standard input", "return select(2, io.open('/dev/stdin'))", outside},
    {"pipe", "return select(2, io.open('pipe'))", "Permission denied"},
    {"folder as a file", "return select(2, io.open('images'))", "Is a directory"},
    {"picture", "return Image.load(out .. '/secret')", outside},
    {"linked picture", "return Image.load('link')", outside},
    {"picture from a pipe", "return Image.load('pipe')", "Permission denied"},
    {"script", "return dofile(out .. '/secret')", outside},
    {"linked script", "return select(2, loadfile('link'))", outside},
    {"script from a device", "return dofile('/dev/stdin')", outside},
    {"leaving", "System.currentDirectory('..') return 'left'", outside},
    {"leaving by a link", "System.currentDirectory('folder') return 'left'", outside},
    {"leaving by a name", "System.currentDirectory(out) return 'left'", outside},
    {"leaving by backslashes", "System.currentDirectory('images\\\\..\\\\..\\\\other') return 'left'",
     outside},
    {"leaving by NUL", "System.currentDirectory('images\\0') return 'left'", "is not a file name"},
    {"second project", "System.currentDirectory('../../projets/other') return 'left'", outside},
};

constexpr Attempt writings[] = {
    {"absolute", "return select(2, io.open(out .. '/new', 'w'))", outside},
    {"over the secret", "return select(2, io.open(out .. '/secret', 'r+'))", outside},
    {"link", "return select(2, io.open('link', 'w'))", outside},
    {"link to nothing", "return select(2, io.open('dangling', 'w'))", "Too many levels of symbolic links"},
    {"folder link", "return select(2, io.open('folder/new', 'a'))", outside},
    {"second name of a file", "return select(2, io.open('twin', 'r+'))", "Permission denied"},
    {"pipe", "return select(2, io.open('pipe', 'w'))", "No such device or address"},
    {"boot script", "return select(2, io.open('../../index.lua', 'w'))", outside},
    {"descriptor", "return select(2, io.open('projet.ini', 'w'))", notTheGames},
    {"map", "return select(2, io.open('map01.map', 'a'))", notTheGames},
    {"blocks by a detour", "return select(2, io.open('images/../MAP01.EV', 'w'))", notTheGames},
    {"script", "return select(2, io.open('index.lua', 'r+'))", notTheGames},
    {"new script", "return select(2, io.open('new.Lua', 'w'))", notTheGames},
    {"dot at the end", "return select(2, io.open('projet.ini. .', 'w'))", notTheGames},
    {"event", "return select(2, io.open('ev/map01/0101.txt', 'w'))", notTheGames},
    {"picture", "return select(2, io.open('images/x.txt', 'w'))", notTheGames},
    {"link to the descriptor", "return select(2, io.open('inner', 'w'))", notTheGames},
    {"hidden file", "return select(2, io.open('.profile', 'w'))", notTheGames},
    {"hidden folder", "return select(2, io.open('.git/config', 'w'))", notTheGames},
    {"new folder", "return select(2, io.open('new/save', 'w'))", noFile},
    {"flood",
     "local f = io.open('save', 'w') local s = string.rep('x', 1000000) "
     "for i = 1, 20 do local ok, why = f:write(s) if not ok then return i .. why end end",
     "17a game may write 16 MB in one run"},
    {"flood of files",
     "for i = 1, 9999 do local f, why = io.open('save' .. i, 'w') "
     "if not f then return i .. why end f:close() end",
     "4097save4097: the game has made too many files"},
    {"hole", "local f = io.open('save', 'w') return select(2, f:seek('set', 1000000000))",
     "Invalid argument"},
};

constexpr Attempt codes[] = {
    {"no library that leaves",
     "local s = '' for _, n in ipairs{'package', 'require', 'module', 'debug', 'newproxy'} do "
     "s = s .. tostring(_G[n]) end return s",
     "nilnilnilnilnil"},
    {"no system call",
     "local s = '' for _, n in ipairs{'execute', 'exit', 'getenv', 'remove', 'rename', 'tmpname', "
     "'setlocale'} do s = s .. tostring(os[n]) end return s",
     "nilnilnilnilnilnilnil"},
    {"no foreign stream",
     "local s = '' for _, n in ipairs{'popen', 'tmpfile', 'input', 'output', 'stdin', 'stdout', "
     "'stderr'} do s = s .. tostring(io[n]) end return s",
     "nilnilnilnilnilnilnil"},
    {"nothing from the input", "return io.read('*a')", "nil"},
    {"process", "os.execute('touch ' .. out .. '/new')", "attempt to call field 'execute' (a nil value)"},
    {"piped process", "io.popen('touch ' .. out .. '/new')", "attempt to call field 'popen' (a nil value)"},
    {"dump", "return ('').dump", "nil"},
    {"library by a string", "return getmetatable('').__index.dump", "nil"},
    {"globals of the base", "return getfenv(0).debug", "nil"},
    {"globals of a function in C",
     "return tostring(getfenv(io.open) == _G) .. tostring(getfenv(dofile).package)", "truenil"},
    {"globals of a coroutine", "return coroutine.wrap(function() return getfenv(0).require end)()", "nil"},
    {"another base",
     "local base = getfenv(0) setfenv(0, {}) local why = select(2, io.open('link')) "
     "setfenv(0, base) return why",
     outside},
    {"another world for C", "return setfenv(io.open, {})", "cannot change environment"},
    {"replaced globals", "string, table, error, setfenv = nil return select(2, io.open('link'))", outside},
    {"string's own tables",
     "getmetatable('').__index = function() return 'x' end return select(2, io.open('link'))", outside},
    {"screen's table", "return getmetatable(screen)", "Screen"},
    {"file's table", "return getmetatable(io.open('text')).__gc", "nil"},
    {"picture's finalizer", "return Image.createEmpty(1, 1).__gc", "nil"},
    {"new table for a colour", "setmetatable(Color.new(1, 2, 3), {})", "table expected, got userdata"},
    {"new method", "screen.flip = print", "attempt to index"},
    {"picture as a file", "return io.open('text').read(Image.createEmpty(1, 1))",
     "File expected, got userdata"},
    {"colour as a picture", "return screen.blit(Color.new(1, 2, 3), 0, 0, screen)",
     "Image expected, got userdata"},
    {"table as a picture", "return screen.width(setmetatable({}, {__index = screen}))",
     "Image expected, got table"},
    {"file closed twice", "local f = io.open('text') f:close() f:close()", "the file is closed"},
    {"compiled text", "return select(2, loadstring('\\27Lua'))", compiled},
    {"compiled pieces",
     "local n = 0 return select(2, load(function() n = n + 1 return ({'\\27', 'Lua'})[n] end))", compiled},
    {"compiled after nothing",
     "local n = 0 return select(2, load(function() n = n + 1 return ({'', '\\27LuaQ'})[n] end))", "near"},
    {"compiled after a comment", "return select(2, loadstring('#\\n\\27LuaQ'))", "near"},
    {"compiled file",
     "local f = io.open('save', 'w') f:write('\\27LuaQ') f:close() return select(2, loadfile('save'))",
     compiled},
    {"compiled script", "local f = io.open('save', 'w') f:write('\\27LuaQ') f:close() return dofile('save')",
     compiled},
    {"deep brackets", "return select(2, loadstring('x = ' .. string.rep('(', 100000)))", "too many"},
};

constexpr Attempt exhaustions[] = {
    {"loop", "while true do end", noFrame},
    {"loop in a coroutine", "coroutine.wrap(function() while true do end end)()", noFrame},
    {"loop in a coroutine's coroutine",
     "coroutine.wrap(function() coroutine.wrap(function() while true do end end)() end)()", noFrame},
    {"loop in a comparison", "table.sort({1, 2, 3}, function() while true do end end)", noFrame},
    {"loop in a replacement", "return (string.gsub('a', 'a', function() while true do end end))", noFrame},
    {"loop while loading", "return select(2, load(function() while true do end end))", noFrame},
    {"loop in a text", "return tostring(setmetatable({}, {__tostring = function() while true do end end}))",
     noFrame},
    {"loop that catches", "while true do pcall(function() while true do end end) end", "closed"},
    {"loop that handles", "while true do xpcall(error, function() while true do end end) end", "closed"},
    {"handler that fails", "return select(2, xpcall(error, function() error('again') end))",
     "error in error handling"},
    {"storm of coroutines", "while true do coroutine.wrap(function() end)() end", noFrame},
    {"finalizer",
     "local t = setmetatable({}, {__gc = function() while true do end end}) t = nil collectgarbage() "
     "return 'collected'",
     "collected"},
    {"long text", "return string.rep('x', 1000000000)", noMemory},
    {"doubled text", "local s = 'x' while true do s = s .. s end", noMemory},
    {"table in a coroutine", "coroutine.wrap(function() local t = {} while true do t[#t + 1] = {} end end)()",
     noMemory},
    {"text in a coroutine", "coroutine.wrap(function() return string.rep('x', 1000000000) end)()", noMemory},
    {"no collector", "collectgarbage('stop') local t = {} while true do t = {t} end", noMemory},
    {"endless text", "local s = string.rep('x', 1000000) return select(2, load(function() return s end))",
     noMemory},
    {"many results", "return unpack({}, 1, 100000000)", "too many results"},
    {"recursion", "local function f() return 1 + f() end return f()", "stack overflow"},
    {"recursion in C", "local function f() return (string.gsub('a', 'a', f)) end return f()",
     "C stack overflow"},
    {"recursion of coroutines", "local function f() return coroutine.wrap(f)() end return f()",
     "C stack overflow"},
    {"pictures", "local t = {} for i = 1, 9 do t[i] = Image.createEmpty(4096, 4096) end",
     "the pictures take more than 128 MB"},
    {"files",
     "local t = {} for i = 1, 99999 do local f, why = io.open('text') "
     "if not f then return why end t[i] = f end",
     "Too many open files"},
};

// Every file below a folder with its content; what is no file counts by its name.
std::map<std::string, std::string> contentOf(const TempFolder& folder, const fs::path& below)
{
    std::map<std::string, std::string> content;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder.path() / below)) {
        const fs::path name = entry.path().lexically_relative(folder.path());
        content[name] = entry.is_regular_file() && !entry.is_symlink() ? folder.read(name) : "";
    }
    return content;
}

bool hasStartedProcess()
{
    return ::waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD;
}

class Escapes : public ::testing::TestWithParam<Attempt>
{
protected:
    Escapes()
    {
        folder_.write("out/secret", "the secret");
        folder_.write("app/index.lua", "System.currentDirectory('projets/demo') dofile('index.lua')");
        folder_.write("app/projets/other/save", "the secret");
        folder_.write("app/projets/demo-twin/secret", "the secret");
        for (const char* name : {"projet.ini", "map01.map", "map01.ev", "ev/map01/0101.txt", "images/a.png",
                                 "text", ".git/config"}) {
            folder_.write(demo() / name, "mine");
        }
        layTraps(folder_.path() / demo());
    }

    static fs::path demo() { return "app/projets/demo"; }

    void layTraps(const fs::path& project) const
    {
        const fs::path out = folder_.path() / "out";
        fs::create_symlink(out / "secret", project / "link");
        fs::create_symlink("link", project / "linklink");
        fs::create_symlink(out / "new", project / "dangling");
        fs::create_symlink("ring", project / "ring");
        fs::create_symlink("projet.ini", project / "inner");
        fs::create_directory_symlink(out, project / "folder");
        fs::create_directory_symlink("folder", project / "folderlink");
        fs::create_hard_link(out / "secret", project / "twin");
        ::mkfifo((project / "pipe").c_str(), 0600);
    }

    std::string outcomeOf(const char* body) const
    {
        folder_.write(demo() / "index.lua",
                      "local tostring, select, out = tostring, select, '" +
                          (folder_.path() / "out").string() +
                          "' local function answer(ok, ...) result = tostring((...)) end "
                          "answer(pcall(function() " +
                          body + " end))");
        PlayerRun run(folder_.path() / "app");
        switch (run.play(60)) {
        case Outcome::Closed:
            return "closed";
        case Outcome::Failed:
            return run.error();
        default:
            return run.value("result");
        }
    }

    TempFolder folder_;
};

TEST_P(Escapes, LeadNowhere)
{
    const auto before = contentOf(folder_, "out");
    const std::string outcome = outcomeOf(GetParam().body);
    EXPECT_NE(outcome.find(GetParam().result), std::string::npos) << outcome;
    EXPECT_EQ(outcome.find("the secret"), std::string::npos) << outcome;
    EXPECT_EQ(contentOf(folder_, "out"), before);
    for (const char* name :
         {"projet.ini", "map01.map", "map01.ev", "ev/map01/0101.txt", "images/a.png", ".git/config"}) {
        EXPECT_EQ(folder_.read(demo() / name), "mine") << name;
    }
    EXPECT_EQ(folder_.read("app/projets/other/save"), "the secret");
    EXPECT_FALSE(hasStartedProcess());
}

std::string testName(const ::testing::TestParamInfo<Attempt>& info)
{
    std::string name;
    bool startsWord = true;
    for (const char letter : std::string_view(info.param.name)) {
        const bool isLetter = letter >= 'a' && letter <= 'z';
        name += isLetter && startsWord ? static_cast<char>(letter - 'a' + 'A') : letter;
        startsWord = letter == ' ';
    }
    std::erase_if(name, [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) == 0; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(Reading, Escapes, ::testing::ValuesIn(readings), testName);
INSTANTIATE_TEST_SUITE_P(Writing, Escapes, ::testing::ValuesIn(writings), testName);
INSTANTIATE_TEST_SUITE_P(Code, Escapes, ::testing::ValuesIn(codes), testName);
INSTANTIATE_TEST_SUITE_P(Exhaustion, Escapes, ::testing::ValuesIn(exhaustions), testName);

TEST(Files, OfTheGameAreStillWritten)
{
    const TempFolder folder;
    folder.write("saves/old", "x");
    folder.write("index.lua",
                 "for _, n in ipairs{'sauve.txt', 'score', 'saves/old', 'save.dat', 'maps', 'image.png'} do "
                 "local f = assert(io.open(n, 'w')) f:write(n) f:close() end");
    PlayerRun run(folder.path());
    EXPECT_EQ(run.play(10), Outcome::Ended) << run.error();
    EXPECT_EQ(folder.read("sauve.txt"), "sauve.txt");
    EXPECT_EQ(folder.read("saves/old"), "saves/old");
}

} // namespace
} // namespace player::testing
