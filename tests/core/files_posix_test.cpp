// Pipes, permissions, owners and links as only these systems have them.
#include "wholefile.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

/// Runs the action as somebody whom the permissions of files bind: in a process of its own when the tests run
/// as the administrator, so that only its files tell what it did.
void asOrdinaryUser(const std::function<void()>& action)
{
    if (::geteuid() != 0) {
        action();
        return;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr unsigned nobody = 65534;
        const bool changed = ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
        if (changed) {
            action();
        }
        ::_exit(changed ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

struct stat stateOf(const Path& path)
{
    struct stat state = {};
    ::stat(path.c_str(), &state);
    return state;
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

TEST_F(WholeFile, KeepsItsPermissionsAndItsOwnerAndANewOneHasTheUsersMask)
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
    const mode_t mask = ::umask(027);
    WriteWholeFile("new", app.at("made"));
    ::umask(mask);
    EXPECT_EQ(stateOf(app.at("made")).st_mode & 07777, 0640u);
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
