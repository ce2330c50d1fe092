// Pipes, permissions, owners and links as only these systems have them.
#include "ordinaryuser.h"
#include "wholefile.h"

#include "build/scripts.h"

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

struct stat stateOf(const Path& path)
{
    struct stat state = {};
    ::stat(path.c_str(), &state);
    return state;
}

} // namespace

TEST_F(WholeFile, APipeIsNeitherReadNorReplaced)
{
    ASSERT_EQ(::mkfifo(app.at("pipe").c_str(), 0666), 0);
    expectNoFile(app.at("pipe"));
}

TEST_F(WholeFile, OfOthersThatMayNotBeWrittenOrReadStays)
{
    fs::permissions(app.path(), fs::perms(0777));
    const Snapshot before = app.snapshot();
    fs::permissions(app.at("file"), ::geteuid() == 0 ? fs::perms(0644) : fs::perms(0444));
    asOrdinaryUser([this] { writeInEveryWay(app.at("file")); });
    fs::permissions(app.at("file"), fs::perms(0222));
    asOrdinaryUser([this] { WriteIni("a", "j", "new", app.at("file")); });
    fs::permissions(app.at("file"), fs::perms(0644));
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(WholeFile, KeepsItsPermissionsAndItsOwner)
{
    for (const auto& [name, write] : waysToWrite) {
        for (const mode_t mode : {0600u, 0755u}) {
            app.write("file", oldBytes);
            fs::permissions(app.at("file"), fs::perms(mode));
            ASSERT_TRUE(::geteuid() != 0 || ::chown(app.at("file").c_str(), 12345, 54321) == 0);
            const struct stat before = stateOf(app.at("file"));
            write(app.at("file"));
            const struct stat after = stateOf(app.at("file"));
            EXPECT_NE(app.read("file"), oldBytes) << name;
            EXPECT_EQ(after.st_mode, before.st_mode) << name;
            EXPECT_EQ(after.st_uid, before.st_uid) << name;
            EXPECT_EQ(after.st_gid, before.st_gid) << name;
        }
    }
}

TEST_F(WholeFile, ANewFileGetsThePermissionsOfTheUsersMask)
{
    const mode_t mask = ::umask(027);
    WriteWholeFile("new", app.at("made"));
    ::umask(mask);
    EXPECT_EQ(stateOf(app.at("made")).st_mode & 07777, 0640u);
}

TEST_F(WholeFile, IsWrittenAndMadeThroughItsLinks)
{
    fs::create_directories(app.at("other/deep"));
    app.write("other/deep/real", oldBytes);
    fs::create_symlink("deep/real", app.at("other/second"));
    fs::create_symlink(app.at("other/second"), app.at("first"));
    for (const auto& [name, write] : waysToWrite) {
        app.write("other/deep/real", oldBytes);
        write(app.at("first"));
        EXPECT_NE(app.read("other/deep/real"), oldBytes) << name;
        EXPECT_EQ(fs::read_symlink(app.at("first")), app.at("other/second")) << name;
        EXPECT_EQ(fs::read_symlink(app.at("other/second")), "deep/real") << name;
    }
    app.remove("other/deep/real");
    WriteWholeFile("abc", app.at("first"));
    EXPECT_TRUE(fs::is_symlink(app.at("other/second")));
    EXPECT_EQ(app.read("other/deep/real"), "abc\r\n");
}

TEST_F(WholeFile, ACircleOfLinksStays)
{
    fs::create_symlink("two", app.at("one"));
    fs::create_symlink("one", app.at("two"));
    expectNoFile(app.at("one"));
}

TEST_F(WholeFile, ARefusedRenameLeavesTheOldFileAndNothingBesideIt)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "needs a file of another owner";
    }
    // In a folder like /tmp anybody makes files, but only a file's owner renames over it.
    fs::create_directory(app.at("shared"));
    app.write("shared/file", oldBytes);
    fs::permissions(app.path(), fs::perms(0755));
    fs::permissions(app.at("shared"), fs::perms(01777));
    fs::permissions(app.at("shared/file"), fs::perms(0666));
    const Snapshot before = app.snapshot();
    asOrdinaryUser([this] { writeInEveryWay(app.at("shared/file")); });
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST(EventFolder, IsReadThoughItDoesNotTellItsNames)
{
    const TemporaryAppDir app;
    app.makeProject();
    const Path folder = app.at("projets/demo/ev/map01");
    app.write("projets/demo/ev/map01/ev312", "hidden");
    fs::permissions(app.path(), fs::perms(0755));
    fs::permissions(app.at("projets/demo"), fs::perms(0777));
    fs::remove(app.at("projets/demo/ev.lua"));
    fs::permissions(folder, fs::perms(0311));
    asOrdinaryUser([] { WriteEventScript(1); });
    fs::permissions(folder, fs::perms(0755));
    EXPECT_NE(app.read("projets/demo/ev.lua").find("colonne == 12 then\r\n    hidden\r\n"),
              std::string::npos);
}
