// Pipes, permissions, owners and links as only these systems have them.
#include "wholefile.h"

#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

/// What a file keeps: mode, owner and group.
std::tuple<mode_t, uid_t, gid_t> ownershipOf(const Path& path)
{
    struct stat state = {};
    ::stat(path.c_str(), &state);
    return {state.st_mode & 07777, state.st_uid, state.st_gid};
}

} // namespace

TEST_F(WholeFile, APipeOrACircleOfLinksIsNeitherReadNorReplaced)
{
    ASSERT_EQ(::mkfifo(app.at("pipe").c_str(), 0666), 0);
    expectNoFile(app.at("pipe"));
    fs::create_symlink("two", app.at("one"));
    fs::create_symlink("one", app.at("two"));
    expectNoFile(app.at("one"));
}

TEST_F(WholeFile, KeepsItsPermissionsAndItsOwnerAndANewOneHasTheUsersMask)
{
    for (const auto& [name, write] : waysToWrite) {
        for (const mode_t mode : {0600u, 0755u}) {
            app.write("file", oldBytes);
            fs::permissions(app.at("file"), fs::perms(mode));
            ASSERT_TRUE(::geteuid() != 0 || ::chown(app.at("file").c_str(), 12345, 54321) == 0);
            const auto before = ownershipOf(app.at("file"));
            write(app.at("file"));
            EXPECT_NE(app.read("file"), oldBytes) << name;
            EXPECT_EQ(ownershipOf(app.at("file")), before) << name;
        }
    }
    const mode_t mask = ::umask(027);
    WriteWholeFile("new", app.at("made"));
    ::umask(mask);
    EXPECT_EQ(std::get<0>(ownershipOf(app.at("made"))), 0640u);
}

TEST_F(WholeFile, IsWrittenAndMadeThroughItsLinks)
{
    fs::create_directories(app.at("other/deep"));
    fs::create_symlink("deep/real", app.at("other/second"));
    fs::create_symlink(app.at("other/second"), app.at("first"));
    for (const auto& [name, write] : waysToWrite) {
        app.write("other/deep/real", oldBytes);
        Snapshot before = app.snapshot();
        write(app.at("first"));
        EXPECT_NE(app.read("other/deep/real"), oldBytes) << name;
        before["other/deep/real"] = app.read("other/deep/real");
        EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
    }
    app.remove("other/deep/real");
    WriteWholeFile("abc", app.at("first"));
    EXPECT_EQ(app.read("other/deep/real"), "abc\r\n");
}
