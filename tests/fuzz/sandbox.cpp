// Input: "p" to start in a project or anything else for the tool's folder, then one step on each line: "c"
// and a folder to change into, "r", "w" or "a" and a file to open.
#include "target.h"
#include "tests/core/tempfolder.h"

#include "player/sandbox.h"

#include <algorithm>
#include <map>
#include <string>

namespace
{

using namespace player;
namespace fs = std::filesystem;

/// A tool's folder with two projects, a secret beside it and links that lead out and about.
struct Tree {
    Tree()
    {
        folder.write("app/index.lua", "boot");
        folder.write("app/data/template", "data");
        folder.write("app/projets/demo/index.lua", "demo");
        folder.write("app/projets/demo/images/a.png", "picture");
        folder.write("app/projets/other/save", "other");
        folder.write("secret", "secret");
        fs::create_symlink("../../../secret", demo / "out");
        fs::create_symlink("../other", demo / "up");
        fs::create_symlink("loop", demo / "loop");
        fs::create_symlink("images", demo / "in");
        fs::create_symlink("/", demo / "all");
        fs::create_symlink("../..", app / "projets/parent");
    }

    TempFolder folder;
    fs::path app = folder.path() / "app";
    fs::path demo = app / "projets/demo";
};

bool isBelow(const fs::path& path, const fs::path& folder)
{
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

/// One game's run, checked at every step against what the sandbox says of itself.
struct Run {
    const Tree& tree;
    Sandbox sandbox;
    fs::path root; // of the game; empty until it enters a project

    void enter(std::string_view folder)
    {
        sandbox.changeDirectory(folder);
        const fs::path entered = sandbox.currentDirectory();
        if (root.empty() && entered != tree.app) {
            Require(entered == tree.demo || entered == tree.app / "projets/other", "a project is entered");
            root = entered;
        }
        Require(root.empty() || isBelow(entered, root), "no folder outside the project is entered");
        sandbox.changeDirectory(sandbox.currentDirectory());
        Require(sandbox.currentDirectory() == entered.string(), "the current folder leads to itself");
    }

    void open(std::string_view path, FileMode mode)
    {
        const bool isNew = !sandbox.exists(path);
        const FileHandle file = sandbox.open(path, mode);
        const fs::path place = fs::read_symlink("/proc/self/fd/" + std::to_string(::fileno(file.get())));
        Require(root.empty() ? place.parent_path() == tree.app && mode == FileMode::Read
                             : isBelow(place, root),
                "no file outside is opened");
        if (isNew) {
            fs::remove(place);
        }
    }
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Tree tree;
    static const std::map<char, FileMode> modes = {
        {'r', FileMode::Read}, {'w', FileMode::Write}, {'a', FileMode::AppendAndRead}};
    std::string_view input = TextOf(data, size);
    const bool inProject = TakeLine(input) == "p";
    Run run{tree, Sandbox(inProject ? tree.demo : tree.app), inProject ? tree.demo : fs::path()};
    while (!input.empty()) {
        const std::string_view line = TakeLine(input);
        try {
            if (line.starts_with('c')) {
                run.enter(line.substr(1));
            } else if (!line.empty() && modes.contains(line.front())) {
                run.open(line.substr(1), modes.at(line.front()));
            }
        } catch (const PathRefused&) {
            continue;
        }
    }
    return 0;
}
