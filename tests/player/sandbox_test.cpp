#include "player/sandbox.h"
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

constexpr std::size_t enough = 1000;

bool canRead(const Sandbox& sandbox, const std::string& path)
{
    try {
        sandbox.read(path, enough);
        return true;
    } catch (const PathRefused& refused) {
        EXPECT_TRUE(std::string(refused.what()).starts_with(path.c_str())) << refused.what();
        return false;
    }
}

bool canWrite(const Sandbox& sandbox, const std::string& path)
{
    try {
        return std::fputs("x", sandbox.open(path, FileMode::Write).get()) >= 0;
    } catch (const PathRefused&) {
        return false;
    }
}

// A tool folder with two projects, and a secret beside it.
class Projects : public ::testing::Test
{
protected:
    Projects()
    {
        folder_.write("app/index.lua", "boot");
        folder_.write("app/data/template", "data");
        folder_.write("app/projets/demo/index.lua", "demo");
        folder_.write("app/projets/demo/images/a.png", "picture");
        folder_.write("app/projets/other/save", "other");
        folder_.write("secret", "secret");
    }

    fs::path app() const { return folder_.path() / "app"; }
    fs::path demo() const { return app() / "projets" / "demo"; }

    TempFolder folder_;
};

TEST_F(Projects, OnlyTheBootScriptIsReadBeforeAProjectIsEntered)
{
    const Sandbox sandbox(app());
    EXPECT_EQ(sandbox.read("index.lua", enough), "boot");
    for (const char* path : {"data/template", "projets/demo/index.lua", "../secret", "missing", "", "."}) {
        EXPECT_FALSE(canRead(sandbox, path)) << path;
    }
    EXPECT_FALSE(canWrite(sandbox, "new"));
    EXPECT_FALSE(canWrite(sandbox, "index.lua"));
    EXPECT_EQ(folder_.read("app/index.lua"), "boot");
}

TEST_F(Projects, OnlyAProjectIsEnteredAndIsTheRootForGood)
{
    fs::create_directory_symlink(folder_.path(), app() / "projets" / "link");
    Sandbox sandbox(app());
    for (const char* path : {"data", "projets", "projets/demo/images", "..", "/", "projets/missing",
                             "projets/link", "index.lua"}) {
        EXPECT_THROW(sandbox.changeDirectory(path), PathRefused) << path;
    }
    EXPECT_EQ(sandbox.currentDirectory(), app().string());
    sandbox.changeDirectory("projets\\demo");
    EXPECT_EQ(sandbox.currentDirectory(), demo().string());
    EXPECT_EQ(sandbox.read("index.lua", enough), "demo");
    for (const char* path : {"..", "../other", "../..", "projets/other", "/tmp"}) {
        EXPECT_THROW(sandbox.changeDirectory(path), PathRefused) << path;
    }
    EXPECT_FALSE(canRead(sandbox, "../other/save"));
    EXPECT_FALSE(canWrite(sandbox, "../other/save"));
}

TEST_F(Projects, AProjectStartedAloneIsItsOwnRootWhoseFoldersAreEnteredAndLeft)
{
    fs::create_symlink("images/a.png", demo() / "link");
    Sandbox sandbox(demo());
    const std::string root = sandbox.currentDirectory();
    EXPECT_TRUE(canWrite(sandbox, "save"));
    EXPECT_EQ(folder_.read("app/projets/demo/save"), "x");
    EXPECT_EQ(sandbox.read("link", enough), "picture");
    sandbox.changeDirectory("images");
    EXPECT_EQ(sandbox.read("a.png", enough), "picture");
    EXPECT_EQ(sandbox.read("../index.lua", enough), "demo");
    EXPECT_EQ(sandbox.read(root + "/images\\a.png", enough), "picture");
    sandbox.changeDirectory(root);
    EXPECT_EQ(sandbox.read("images/a.png", enough), "picture");
    EXPECT_THROW(sandbox.changeDirectory("../other"), PathRefused);
}

TEST_F(Projects, NothingLeadsOutOfTheRootOrToWhatIsNoFile)
{
    fs::create_symlink(folder_.path() / "secret", demo() / "file");
    fs::create_directory_symlink(folder_.path(), demo() / "folder");
    ASSERT_EQ(::mkfifo((demo() / "pipe").c_str(), 0600), 0);
    const Sandbox sandbox(demo());
    for (const std::string& path :
         {std::string("file"), std::string("folder/secret"), std::string("images/../../../../secret"),
          std::string("folder/unborn"), std::string("save\0.txt", 9), std::string("missing/save"),
          std::string("save/"), std::string("pipe"), std::string("images")}) {
        EXPECT_FALSE(canRead(sandbox, path)) << path;
        EXPECT_FALSE(canWrite(sandbox, path)) << path;
    }
    EXPECT_EQ(folder_.read("secret"), "secret");
    EXPECT_FALSE(fs::exists(folder_.path() / "unborn"));
}

TEST_F(Projects, AFileIsReadUpToTheLimit)
{
    const Sandbox sandbox(demo());
    EXPECT_EQ(sandbox.read("index.lua", 4), "demo");
    EXPECT_THROW(sandbox.read("index.lua", 3), PathRefused);
}

TEST(Sandbox, TakesNamesForWindows1252)
{
    const TempFolder folder;
    folder.write("projets/Épée €/œuvre.lua", "found");
    Sandbox sandbox(folder.path());
    sandbox.changeDirectory("projets/\xC9p\xE9\x65 \x80");
    EXPECT_EQ(sandbox.read("\x9Cuvre.lua", enough), "found");
    EXPECT_TRUE(canWrite(sandbox, "\x8A\x81"));
    EXPECT_EQ(folder.read("projets/Épée €/Š\u0081"), "x");
    EXPECT_EQ(sandbox.currentDirectory(), folder.path().string() + "/projets/\xC9p\xE9\x65 \x80");
}

TEST(Sandbox, ComesBackToAFolderWhoseNameTheCodePageLacks)
{
    const TempFolder folder;
    folder.write("игра/images/a", "found");
    Sandbox sandbox(folder.path() / "игра");
    const std::string root = sandbox.currentDirectory();
    sandbox.changeDirectory("images");
    sandbox.changeDirectory(root);
    EXPECT_EQ(sandbox.read(root + "/images/a", enough), "found");
}

} // namespace
} // namespace player::testing
