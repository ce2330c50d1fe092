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
    opening("NeighbourProject", "'../other/save'", outside),
    opening("BootScript", "'../../index.lua'", outside),
    opening("LinkToALink", "'linklink'", outside),
    opening("FolderLinkToALink", "'folderlink/secret'", outside),
    opening("BackOutOfAFolderLink", "'folder/../out/secret'", outside),
    opening("EndlessLink", "'ring'", "Too many levels of symbolic links"),
    opening("CutByNul", "'link\\0.png'", "is not a file name"),
    opening("OverlongDots", "'\\192\\174\\192\\174/out/secret'", noFile),
    opening("EndlessName", "string.rep('a', 300)", "File name too long"),
    opening("OwnRoot", "'/proc/self/root/etc/passwd'", outside),
    opening("Device", "'/dev/zero'", outside),
    opening("Pipe", "'pipe'", "Permission denied"),
    opening("Folder", "'images'", "Is a directory"),
    {"Lines", "return io.lines('link')", outside},
    {"Picture", "return Image.load('link')", outside},
    {"Script", "return dofile('link')", outside},
    {"LoadedScript", "return select(2, loadfile('link'))", outside},
    {"Leaving", "System.currentDirectory('..') return 'left'", outside},
    {"LeavingByALink", "System.currentDirectory('folder') return 'left'", outside},
    {"SecondProject", "System.currentDirectory('../../projets/other') return 'left'", outside},
};

const Attempt writings[] = {
    opening("AbsolutePath", "out .. '/new', 'w'", outside),
    opening("OverTheSecret", "'link', 'r+'", outside),
    opening("LinkToNothing", "'dangling', 'w'", "Too many levels of symbolic links"),
    opening("FolderLink", "'folder/new', 'a'", outside),
    opening("SecondNameOfAFile", "'twin', 'r+'", "Permission denied"),
    opening("Pipe", "'pipe', 'w'", "No such device or address"),
    opening("BootScript", "'../../index.lua', 'w'", outside),
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
    {"StringsOwnTables",
     "getmetatable('').__index = function() return 'x' end return select(2, io.open('link'))", outside},
    {"ScreensTable", "return getmetatable(screen)", "Screen"},
    {"FilesTable", "return getmetatable(io.open('text')).__gc", "nil"},
    {"NewTableForAColour", "setmetatable(Color.new(1, 2, 3), {})", "table expected, got userdata"},
    {"NewMethod", "screen.flip = print", "attempt to index"},
    {"PictureAsAFile", "return io.open('text').read(Image.createEmpty(1, 1))", "File expected, got userdata"},
    {"TableAsAPicture", "return screen.width(setmetatable({}, {__index = screen}))",
     "Image expected, got table"},
    {"FileClosedTwice", "local f = io.open('text') f:close() f:close()", "the file is closed"},
    {"CompiledText", "return select(2, loadstring('\\27Lua'))", compiled},
    {"CompiledPieces",
     "local n = 0 return select(2, load(function() n = n + 1 return ({'\\27', 'Lua'})[n] end))", compiled},
    {"CompiledAfterNothing",
     "local n = 0 return select(2, load(function() n = n + 1 return ({'', '\\27LuaQ'})[n] end))", "near"},
    {"CompiledFile",
     "local f = io.open('save', 'w') f:write('\\27LuaQ') f:close() return select(2, loadfile('save'))",
     "save: compiled Lua is not run"},
    {"CompiledScript", "local f = io.open('save', 'w') f:write('\\27LuaQ') f:close() return dofile('save')",
     compiled},
    {"DeepBrackets", "return select(2, loadstring('x = ' .. string.rep('(', 100000)))", "too many"},
};

const Attempt exhaustions[] = {
    {"Loop", "while true do end", noFrame},
    {"LoopInACoroutinesCoroutine",
     "coroutine.wrap(function() coroutine.wrap(function() while true do end end)() end)()", noFrame},
    {"LoopInAComparison", "table.sort({1, 2, 3}, function() while true do end end)", noFrame},
    {"LoopWhileLoading", "return select(2, load(function() while true do end end))", noFrame},
    {"LoopThatCatches", "while true do pcall(function() while true do end end) end", "closed"},
    {"LoopThatHandles", "while true do xpcall(error, function() while true do end end) end", "closed"},
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
    {"Pictures", "local t = {} for i = 1, 9 do t[i] = Image.createEmpty(4096, 4096) end",
     "the pictures take more than 128 MB"},
    {"Files",
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

    std::string outcomeOf(const std::string& body) const
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
#ifdef __SANITIZE_ADDRESS__
    if (GetParam().name == "Files") {
        GTEST_SKIP() << "the sanitizer needs files of its own";
    }
#endif
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

const auto nameOf = [](const auto& attempt) { return attempt.param.name; };
INSTANTIATE_TEST_SUITE_P(Reading, Escapes, ::testing::ValuesIn(readings), nameOf);
INSTANTIATE_TEST_SUITE_P(Writing, Escapes, ::testing::ValuesIn(writings), nameOf);
INSTANTIATE_TEST_SUITE_P(Code, Escapes, ::testing::ValuesIn(codes), nameOf);
INSTANTIATE_TEST_SUITE_P(Exhaustion, Escapes, ::testing::ValuesIn(exhaustions), nameOf);

} // namespace
} // namespace player::testing
