// Attempts of a game to reach what is not its own. Each runs in a project full of traps, beside a secret.
#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>

namespace player::testing
{
namespace
{

namespace fs = std::filesystem;

struct Attempt {
    std::string name;
    /// The body of a function; `out` is the path of the folder with the secret.
    std::string body;
    /// What it must return, or the error's message, or a part of it; "closed" if it runs until it is closed.
    std::string result;

    friend void PrintTo(const Attempt& attempt, std::ostream* out) { *out << attempt.name; }
};

/// An attempt to open a file.
Attempt opening(const std::string& name, const std::string& arguments, const std::string& result)
{
    return {name, "return select(2, io.open(" + arguments + "))", result};
}

constexpr const char* outside = "lies outside the project folder";
constexpr const char* noFile = "No such file or directory";
constexpr const char* noFrame = "no frame for 20 million steps";
constexpr const char* noMemory = "not enough memory";
constexpr const char* notTheGames = "which a game may not write";
constexpr const char* compiled = "compiled Lua is not run";

const Attempt readings[] = {
    opening("AbsolutePath", "out .. '/secret'", outside),
    opening("Parents", "'../../../out/secret'", outside),
    opening("Backslashes", "'images\\\\../..\\\\..\\\\../out/secret'", outside),
    opening("ThroughTheRootsName", "System.currentDirectory() .. '/../../../out/secret'", outside),
    opening("BesideTheRootsName", "System.currentDirectory() .. '-twin/secret'", outside),
    opening("LinkToALink", "'linklink'", outside),
    opening("BackOutOfAFolderLink", "'folder/../out/secret'", outside),
    opening("EndlessLink", "'ring'", "Too many levels of symbolic links"),
    opening("CutByNul", "'link\\0.png'", "is not a file name"),
    opening("OverlongDots", "'\\192\\174\\192\\174/out/secret'", noFile),
    opening("OwnRoot", "'/proc/self/root/etc/passwd'", outside),
    opening("Pipe", "'pipe'", "Permission denied"),
    {"Lines", "return io.lines('link')", outside},
    {"Picture", "return Image.load('link')", outside},
    {"Script", "return dofile('link')", outside},
    {"Leaving", "System.currentDirectory('..') return 'left'", outside},
    {"LeavingByALink", "System.currentDirectory('folder') return 'left'", outside},
    {"SecondProject", "System.currentDirectory('../../projets/other') return 'left'", outside},
};

const Attempt writings[] = {
    opening("OverTheSecret", "'link', 'r+'", outside),
    opening("LinkToNothing", "'dangling', 'w'", "Too many levels of symbolic links"),
    opening("FolderLink", "'folder/new', 'a'", outside),
    opening("SecondNameOfAFile", "'twin', 'r+'", "Permission denied"),
    opening("Pipe", "'pipe', 'w'", "No such device or address"),
    opening("Descriptor", "'projet.ini', 'w'", notTheGames),
    opening("Map", "'map01.map', 'a'", notTheGames),
    opening("BlocksByADetour", "'images/../MAP01.EV', 'w'", notTheGames),
    opening("NewScript", "'new.Lua', 'w'", notTheGames),
    opening("DotAtTheEnd", "'projet.ini. .', 'w'", notTheGames),
    opening("Event", "'ev/map01/0101.txt', 'w'", notTheGames),
    opening("Picture", "'images/x.txt', 'w'", notTheGames),
    opening("LinkToTheDescriptor", "'inner', 'w'", notTheGames),
    opening("HiddenFolder", "'.git/config', 'w'", notTheGames),
    opening("NewFolder", "'new/save', 'w'", noFile),
    {"OnlyTheGamesOwn",
     "for _, n in ipairs{'sauve.txt', 'score', 'save.dat', 'maps', 'image.png'} do "
     "local f = assert(io.open(n, 'w')) f:write(n) f:close() end return 'written'",
     "written"},
    {"Flood",
     "local f = io.open('save', 'w') local s = string.rep('x', 1000000) "
     "for i = 1, 20 do local ok, why = f:write(s) if not ok then return i .. why end end",
     "17a game may write 16 MB in one run"},
    {"FloodOfFiles",
     "for i = 1, 9999 do local f, why = io.open('save' .. i, 'w') "
     "if not f then return i .. why end f:close() end",
     "4097save4097: the game has made too many files"},
    {"Hole", "local f = io.open('save', 'w') return select(2, f:seek('set', 1000000000))",
     "Invalid argument"},
};

const Attempt codes[] = {
    {"NoNameThatLeaves",
     "local s = '' for _, n in ipairs{'package', 'require', 'module', 'debug', 'newproxy'} do "
     "s = s .. tostring(_G[n]) end for _, n in ipairs{'execute', 'exit', 'getenv', 'remove', 'rename', "
     "'tmpname', 'setlocale'} do s = s .. tostring(os[n]) end for _, n in ipairs{'popen', 'tmpfile', "
     "'input', "
     "'output', 'stdin', 'stdout', 'stderr'} do s = s .. tostring(io[n]) end return #s .. s:gsub('nil', '')",
     "57"},
    {"NothingFromTheInput", "return io.read('*a')", "nil"},
    {"Process", "os.execute('touch ' .. out .. '/new')", "attempt to call field 'execute' (a nil value)"},
    {"LibraryByAString", "return getmetatable('').__index.dump", "nil"},
    {"GlobalsOfTheBase", "return getfenv(0).debug", "nil"},
    {"GlobalsOfAFunctionInC", "return tostring(getfenv(io.open) == _G) .. tostring(getfenv(dofile).package)",
     "truenil"},
    {"AnotherBase",
     "local base = getfenv(0) setfenv(0, {}) local why = select(2, io.open('link')) "
     "setfenv(0, base) return why",
     outside},
    {"AnotherWorldForC", "return setfenv(io.open, {})", "cannot change environment"},
    {"ReplacedGlobals", "string, table, error, setfenv = nil return select(2, io.open('link'))", outside},
    {"ScreensTable", "return getmetatable(screen)", "Screen"},
    {"FilesTable", "return getmetatable(io.open('text')).__gc", "nil"},
    {"NewTableForAColour", "setmetatable(Color.new(1, 2, 3), {})", "table expected, got userdata"},
    {"NewMethod", "screen.flip = print", "attempt to index"},
    {"PictureAsAFile", "return io.open('text').read(Image.createEmpty(1, 1))", "File expected, got userdata"},
    {"FileClosedTwice", "local f = io.open('text') f:close() f:close()", "the file is closed"},
    {"CompiledText", "return select(2, loadstring('\\27Lua'))", compiled},
    {"CompiledPieces",
     "local n = 0 return select(2, load(function() n = n + 1 return ({'\\27', 'Lua'})[n] end))", compiled},
    {"CompiledScript", "local f = io.open('save', 'w') f:write('\\27LuaQ') f:close() return dofile('save')",
     compiled},
    {"DeepBrackets", "return select(2, loadstring('x = ' .. string.rep('(', 100000)))", "too many"},
};

const Attempt exhaustions[] = {
    {"Loop", "while true do end", noFrame},
    {"LoopInAComparison", "table.sort({1, 2, 3}, function() while true do end end)", noFrame},
    {"LoopWhileLoading", "return select(2, load(function() while true do end end))", noFrame},
    {"LoopThatCatches", "while true do pcall(function() while true do end end) end", "closed"},
    {"HandlerThatFails", "return select(2, xpcall(error, function() error('again') end))",
     "error in error handling"},
    {"StormOfCoroutines", "while true do coroutine.wrap(function() end)() end", noFrame},
    {"Finalizer",
     "local t = setmetatable({}, {__gc = function() while true do end end}) t = nil collectgarbage() "
     "return 'collected'",
     "collected"},
    {"LongText", "return string.rep('x', 1000000000)", noMemory},
    {"TableInACoroutine", "coroutine.wrap(function() local t = {} while true do t[#t + 1] = {} end end)()",
     noMemory},
    {"NoCollector", "collectgarbage('stop') local t = {} while true do t = {t} end", noMemory},
    {"EndlessText", "local s = string.rep('x', 1000000) return select(2, load(function() return s end))",
     noMemory},
    {"ManyResults", "return unpack({}, 1, 100000000)", "too many results"},
    {"RecursionInC", "local function f() return (string.gsub('a', 'a', f)) end return f()",
     "C stack overflow"},
    {"RecursionOfCoroutines", "local function f() return coroutine.wrap(f)() end return f()",
     "C stack overflow"},
    {"Files",
     "local t = {} for i = 1, 99999 do local f, why = io.open('text') "
     "if not f then return why end t[i] = f end",
     "Too many open files"},
};

bool hasStartedProcess()
{
    return ::waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD;
}

class Escapes : public ::testing::TestWithParam<Attempt>
{
protected:
    Escapes()
    {
        folder_.write("app/index.lua", "System.currentDirectory('projets/demo') dofile('index.lua')");
        for (const char* name : {"out/secret", "app/projets/other/save", "app/projets/demo-twin/secret"}) {
            folder_.write(name, "the secret");
        }
        for (const char* name : {"projet.ini", "map01.map", "map01.ev", "ev/map01/0101.txt", "images/a.png",
                                 "text", ".git/config"}) {
            folder_.write(demo_ / name, "mine");
        }
        layTraps(folder_.at(demo_));
    }

    void layTraps(const fs::path& project) const
    {
        fs::create_symlink(out_ / "secret", project / "link");
        fs::create_symlink("link", project / "linklink");
        fs::create_symlink(out_ / "new", project / "dangling");
        fs::create_symlink("ring", project / "ring");
        fs::create_symlink("projet.ini", project / "inner");
        fs::create_directory_symlink(out_, project / "folder");
        fs::create_hard_link(out_ / "secret", project / "twin");
        ::mkfifo((project / "pipe").c_str(), 0600);
    }

    std::string outcome() const
    {
        PlayerRun run(folder_.at("app"));
        switch (run.play(60)) {
        case Outcome::Closed:
            return "closed";
        case Outcome::Failed:
            return run.error();
        default:
            return run.value("result");
        }
    }

    const fs::path demo_ = "app/projets/demo";
    const TempFolder folder_;
    const fs::path out_ = folder_.at("out");
};

TEST_P(Escapes, LeadNowhere)
{
#ifdef __SANITIZE_ADDRESS__
    if (GetParam().name == "Files") {
        GTEST_SKIP() << "the sanitizer needs files of its own";
    }
#endif
    folder_.write(demo_ / "index.lua", "local tostring, select, out = tostring, select, '" + out_.string() +
                                           "' local function answer(ok, ...) result = tostring((...)) end "
                                           "answer(pcall(function() " +
                                           GetParam().body + " end))");
    const Snapshot before = folder_.snapshot();
    const std::string result = outcome();
    EXPECT_NE(result.find(GetParam().result), std::string::npos) << result;
    EXPECT_EQ(result.find("the secret"), std::string::npos) << result;
    Snapshot after = folder_.snapshot();
    std::erase_if(after, [&before](const auto& file) { // what the game made in its project is its own
        return !before.contains(file.first) && file.first.starts_with("app/projets/demo/");
    });
    EXPECT_EQ(Changes(before, after), "");
    EXPECT_FALSE(hasStartedProcess());
}

const auto nameOf = [](const auto& attempt) { return attempt.param.name; };
INSTANTIATE_TEST_SUITE_P(Reading, Escapes, ::testing::ValuesIn(readings), nameOf);
INSTANTIATE_TEST_SUITE_P(Writing, Escapes, ::testing::ValuesIn(writings), nameOf);
INSTANTIATE_TEST_SUITE_P(Code, Escapes, ::testing::ValuesIn(codes), nameOf);
INSTANTIATE_TEST_SUITE_P(Exhaustion, Escapes, ::testing::ValuesIn(exhaustions), nameOf);

} // namespace
} // namespace player::testing
