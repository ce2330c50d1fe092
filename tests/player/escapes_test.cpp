// Attempts of a game to reach what is not its own. Each runs in a project full of traps, beside a secret.
#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/stat.h>

namespace player::testing
{
namespace
{

namespace fs = std::filesystem;

/// The body of a function, where `out` is the path of the folder with the secret, and what it must return or
/// the error's message, or a part of either.
using Attempt = std::pair<std::string, std::string>;

/// An attempt to open a file.
Attempt opening(const std::string& arguments, const std::string& result)
{
    return {"return select(2, io.open(" + arguments + "))", result};
}

constexpr const char* outside = "lies outside the project folder";
constexpr const char* noFile = "No such file or directory";
constexpr const char* noFrame = "no frame for 20 million steps";
constexpr const char* noMemory = "not enough memory";
constexpr const char* notTheGames = "which a game may not write";
constexpr const char* compiled = "compiled Lua is not run";

const Attempt attempts[] = {
    // Reading.
    opening("System.currentDirectory() .. '/../../out/secret'", outside),
    opening("System.currentDirectory() .. '-twin/secret'", outside),
    opening("'folder/../out/secret'", outside),
    opening("'link\\0.png'", "is not a file name"),
    opening("'pipe'", "Permission denied"),
    {"return io.lines('link')", outside},
    {"return Image.load('link')", outside},
    {"return dofile('link')", outside},
    {"System.currentDirectory('..') return 'left'", outside},
    // Writing.
    opening("'link', 'r+'", outside),
    opening("'dangling', 'w'", "Too many levels of symbolic links"),
    opening("'folder/new', 'a'", outside),
    opening("'twin', 'r+'", "Permission denied"),
    opening("'pipe', 'w'", "No such device or address"),
    opening("'projet.ini', 'w'", notTheGames),
    opening("'map01.map', 'a'", notTheGames),
    opening("'images/../MAP01.EV', 'w'", notTheGames),
    opening("'new.Lua', 'w'", notTheGames),
    opening("'projet.ini. .', 'w'", notTheGames),
    opening("'ev/map01/0101.txt', 'w'", notTheGames),
    opening("'images/x.txt', 'w'", notTheGames),
    opening("'inner', 'w'", notTheGames),
    opening("'.git/config', 'w'", notTheGames),
    opening("'new/save', 'w'", noFile),
    {"for _, n in ipairs{'sauve.txt', 'score', 'save.dat', 'maps', 'image.png'} do "
     "local f = assert(io.open(n, 'w')) f:write(n) f:close() end return 'written'",
     "written"},
    {"local f = io.open('save', 'w') local s = string.rep('x', 1000000) "
     "for i = 1, 20 do local ok, why = f:write(s) if not ok then return i .. why end end",
     "17a game may write 16 MB in one run"},
    {"for i = 1, 9999 do local f, why = io.open('save' .. i, 'w') "
     "if not f then return i .. why end f:close() end",
     "4097save4097: the game has made too many files"},
    {"local f = io.open('save', 'w') return select(2, f:seek('set', 1000000000))", "Invalid argument"},
    // Leaving the language.
    {"local left = '' for name in string.gmatch('package require module debug newproxy os.execute os.exit "
     "os.getenv os.remove os.rename os.tmpname os.setlocale io.popen io.tmpfile io.input io.output io.stdin "
     "io.stdout io.stderr', '%S+') do left = left .. (loadstring('return ' .. name)() and name or '') end "
     "return 'left: ' .. left .. '.'",
     "left: ."},
    {"return io.read('*a')", "nil"},
    {"return getmetatable('').__index.dump", "nil"},
    {"return getfenv(0).debug", "nil"},
    {"return tostring(getfenv(io.open) == _G) .. tostring(getfenv(dofile).package)", "truenil"},
    {"return setfenv(io.open, {})", "cannot change environment"},
    {"string, table, error, setfenv = nil return select(2, io.open('link'))", outside},
    {"setmetatable(Color.new(1, 2, 3), {})", "table expected, got userdata"},
    {"screen.flip = print", "attempt to index"},
    {"return io.open('text').read(Image.createEmpty(1, 1))", "File expected, got userdata"},
    {"local f = io.open('text') f:close() f:close()", "the file is closed"},
    {"return select(2, loadstring('\\27Lua'))", compiled},
    {"local n = 0 return select(2, load(function() n = n + 1 return ({'\\27', 'Lua'})[n] end))", compiled},
    {"local f = io.open('save', 'w') f:write('\\27LuaQ') f:close() return dofile('save')", compiled},
    {"return select(2, loadstring('x = ' .. string.rep('(', 100000)))", "too many"},
    // Taking all there is.
    {"return select(2, xpcall(error, function() error('again') end))", "error in error handling"},
    {"local t = setmetatable({}, {__gc = function() while true do end end}) t = nil collectgarbage() "
     "return 'collected'",
     "collected"},
    {"collectgarbage('stop') local t = {} while true do t = {t} end", noMemory},
    {"local s = string.rep('x', 1000000) return select(2, load(function() return s end))", noMemory},
    {"local function f() return (string.gsub('a', 'a', f)) end return f()", "C stack overflow"},
    {"local function f() return coroutine.wrap(f)() end return f()", "C stack overflow"},
};

struct Project {
    Project()
    {
        for (const char* name : {"out/secret", "projets/demo-twin/secret"}) {
            folder.write(name, "the secret");
        }
        for (const char* name : {"projet.ini", "map01.map", "map01.ev", "ev/map01/0101.txt", "images/a.png",
                                 "text", ".git/config"}) {
            folder.write(demo / name, "mine");
        }
        folder.write("index.lua", bootScript);
        fs::create_symlink(out / "secret", demo / "link");
        fs::create_symlink(out / "new", demo / "dangling");
        fs::create_symlink("projet.ini", demo / "inner");
        fs::create_directory_symlink(out, demo / "folder");
        fs::create_hard_link(out / "secret", demo / "twin");
        ::mkfifo((demo / "pipe").c_str(), 0600);
    }

    /// Everything but what the game made in its project since then, which is its own.
    Snapshot rest(const Snapshot& before) const
    {
        Snapshot files = folder.snapshot();
        std::erase_if(files, [&before](const auto& file) {
            return !before.contains(file.first) && file.first.starts_with("projets/demo/");
        });
        return files;
    }

    static constexpr const char* bootScript = "System.currentDirectory('projets/demo') dofile('index.lua')";
    const TempFolder folder;
    const fs::path demo = folder.at("projets/demo");
    const fs::path out = folder.at("out");
};

TEST(Escapes, LeadNowhere)
{
    for (const auto& [body, part] : attempts) {
        const Project project;
        project.folder.write(project.demo / "index.lua",
                             "local tostring, select, out = tostring, select, '" + project.out.string() +
                                 "' local function answer(ok, ...) result = tostring((...)) end "
                                 "answer(pcall(function() " +
                                 body + " end))");
        const Snapshot before = project.folder.snapshot();
        const std::string result = resultOf(Project::bootScript, project.folder);
        EXPECT_NE(result.find(part), std::string::npos) << body << ": " << result;
        EXPECT_EQ(result.find("the secret"), std::string::npos) << body << ": " << result;
        EXPECT_EQ(Changes(before, project.rest(before)), "") << body;
    }
}

} // namespace
} // namespace player::testing
