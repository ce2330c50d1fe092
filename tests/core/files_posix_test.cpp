// Pipes, permissions, owners, links and file-size limits as only these systems have them.
#include "ordinaryuser.h"
#include "wholefile.h"

#include "build/scripts.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

/// A disk on which a file finds no room beyond so many bytes.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
        : oldHandler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &oldLimit_);
        rlimit limit = oldLimit_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &oldLimit_);
        std::signal(SIGXFSZ, oldHandler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*oldHandler_)(int);
    rlimit oldLimit_ = {};
};

mode_t modeOf(const Path& path)
{
    struct stat state = {};
    ::stat(path.c_str(), &state);
    return state.st_mode & 07777;
}

} // namespace

TEST_F(WholeFile, APipeIsNeitherReadNorReplaced)
{
    ASSERT_EQ(::mkfifo(app.at("pipe").c_str(), 0666), 0);
    expectNoFile("pipe");
}

TEST_F(WholeFile, AFileOfOthersThatMayNotBeWrittenStays)
{
    fs::permissions(app.path(), fs::perms(0777));
    fs::permissions(app.at("file"), ::geteuid() == 0 ? fs::perms(0644) : fs::perms(0444));
    const Snapshot before = app.snapshot();
    asOrdinaryUser([this] {
        for (const auto& [name, write] : waysToWrite) {
            write(app.at("file"));
        }
    });
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(WholeFile, ADescriptorThatCannotBeReadKeepsItsKeys)
{
    fs::permissions(app.path(), fs::perms(0777));
    fs::permissions(app.at("file"), fs::perms(0222));
    asOrdinaryUser([this] { WriteIni("a", "j", "new", app.at("file")); });
    fs::permissions(app.at("file"), fs::perms(0644));
    EXPECT_EQ(app.read("file"), oldBytes);
}

TEST_F(WholeFile, KeepsItsPermissionsAndItsOwner)
{
    for (const auto& [name, write] : waysToWrite) {
        for (const mode_t mode : {0600u, 0640u, 0666u, 0755u}) {
            app.write("file", oldBytes);
            fs::permissions(app.at("file"), fs::perms(mode));
            if (::geteuid() == 0) {
                ASSERT_EQ(::chown(app.at("file").c_str(), 12345, 54321), 0);
            }
            struct stat before = {};
            struct stat after = {};
            ::stat(app.at("file").c_str(), &before);
            write(app.at("file"));
            ::stat(app.at("file").c_str(), &after);
            EXPECT_NE(app.read("file"), oldBytes) << name;
            EXPECT_EQ(modeOf(app.at("file")), mode) << name;
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
    EXPECT_EQ(modeOf(app.at("made")), 0640u);
}

TEST_F(WholeFile, IsWrittenThroughItsLinks)
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
}

TEST_F(WholeFile, ALinkToNothingMakesTheFileThatItNames)
{
    fs::create_symlink("made", app.at("link"));
    WriteWholeFile("abc", app.at("link"));
    EXPECT_TRUE(fs::is_symlink(app.at("link")));
    EXPECT_EQ(app.read("made"), "abc\r\n");
}

TEST_F(WholeFile, ACircleOfLinksStays)
{
    fs::create_symlink("two", app.at("one"));
    fs::create_symlink("one", app.at("two"));
    EXPECT_EQ(ReadWholeFile(app.at("one")), "");
    expectRefused("one");
    EXPECT_TRUE(fs::is_symlink(app.at("one")) && fs::is_symlink(app.at("two")));
}

TEST_F(WholeFile, AFullDiskLeavesTheOldFileAndNothingBesideIt)
{
    const std::string large(20000, 'x');
    app.write("large", large);
    const Snapshot before = app.snapshot();
    std::error_code failure;
    {
        const FullDisk disk(8192);
        WriteWholeFile(large, app.at("file"));
        WriteIni("a", "k", large, app.at("file"));
        WriteIni("a", "k", large, app.at("made"));
        failure = CopyWholeFile(app.at("large"), app.at("file"));
    }
    EXPECT_EQ(failure, std::errc::file_too_large);
    EXPECT_EQ(Changes(before, app.snapshot()), "");
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
    asOrdinaryUser([this] {
        for (const auto& [name, write] : waysToWrite) {
            write(app.at("shared/file"));
        }
    });
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
