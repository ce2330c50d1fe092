// Input: "p" to start in a project or anything else for the tool's folder, then one step on each line: "c"
// and a folder to change into, "r", "w" or "a" and a file to open.
#include "target.h"
#include "tests/player/harness.h"

#include "player/sandbox.h"

#include <algorithm>
#include <set>
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
        for (const auto& entry : fs::recursive_directory_iterator(folder.path())) {
            known.insert(entry.path());
        }
    }

    testing::TempFolder folder;
    fs::path app = folder.path() / "app";
    fs::path demo = app / "projets/demo";
    std::set<fs::path> known;
};

/// Where a file that is open truly lies.
fs::path placeOf(const FileHandle& file)
{
    return fs::read_symlink("/proc/self/fd/" + std::to_string(::fileno(file.get())));
}

bool isBelow(const fs::path& path, const fs::path& folder)
{
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

/// One game's run, checked at every step against what the sandbox says of itself.
class Run
{
public:
    Run(const Tree& tree, bool inProject)
        : tree_(tree)
        , sandbox_(inProject ? tree.demo : tree.app)
        , root_(inProject ? tree.demo : fs::path())
    {
    }

    void step(std::string_view line)
    {
        try {
            const char action = line.front();
            line.remove_prefix(1);
            if (action == 'c') {
                enter(line);
            } else if (action == 'r') {
                open(line, FileMode::Read);
            } else if (action == 'w' || action == 'a') {
                open(line, action == 'w' ? FileMode::Write : FileMode::AppendAndRead);
            }
        } catch (const PathRefused&) {
            return;
        }
    }

private:
    void enter(std::string_view folder)
    {
        sandbox_.changeDirectory(folder);
        const fs::path entered = sandbox_.currentDirectory();
        if (root_.empty() && entered != tree_.app) {
            Require(entered == tree_.demo || entered == tree_.app / "projets/other", "a project is entered");
            root_ = entered;
        }
        Require(root_.empty() || isBelow(entered, root_), "no folder outside the project is entered");
        sandbox_.changeDirectory(sandbox_.currentDirectory());
        Require(sandbox_.currentDirectory() == entered.string(), "the current folder leads to itself");
    }

    void open(std::string_view path, FileMode mode)
    {
        const fs::path place = placeOf(sandbox_.open(path, mode));
        if (!tree_.known.contains(place)) {
            fs::remove(place);
        }
        Require(root_.empty() ? place.parent_path() == tree_.app && mode == FileMode::Read
                              : isBelow(place, root_),
                "no file outside is opened");
    }

    const Tree& tree_;
    Sandbox sandbox_;
    fs::path root_;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Tree tree;
    std::string_view input = TextOf(data, size);
    Run run(tree, TakeLine(input) == "p");
    while (!input.empty()) {
        const std::string_view line = TakeLine(input);
        if (!line.empty()) {
            run.step(line);
        }
    }
    return 0;
}
