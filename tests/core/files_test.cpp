#include "appdir.h"
#include "ordinaryuser.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

/// Every way in which the program replaces a file. Each would leave other bytes than "[a]\r\nk=old\r\n".
const std::vector<std::pair<std::string, std::function<void(const Path&)>>> waysToWrite = {
    {"WriteWholeFile", [](const Path& path) { WriteWholeFile("new", path); }},
    {"WriteIni", [](const Path& path) { WriteIni("a", "k", "new", path); }},
    {"CopyWholeFile", [](const Path& path) { CopyWholeFile(AppDir() / "source", path); }},
};

constexpr std::string_view oldBytes = "[a]\r\nk=old\r\n";

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

class WholeFile : public testing::Test
{
protected:
    WholeFile()
    {
        app.write("source", "copied");
        app.write("file", oldBytes);
    }

    /// Expects that no way of writing to this path changes anything below the folder.
    void expectRefused(std::string_view relative) const
    {
        const Snapshot before = app.snapshot();
        for (const auto& [name, write] : waysToWrite) {
            write(app.at(relative));
            EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
        }
    }

    TemporaryAppDir app;
};

} // namespace

TEST_F(WholeFile, HoldsTheContentAndOneCrLf)
{
    const std::string everyByte = [] {
        std::string bytes;
        for (int byte = 0; byte < 256; ++byte) {
            bytes += static_cast<char>(byte);
        }
        return bytes;
    }();
    for (const std::string& content :
         {std::string("abc"), std::string(), everyByte, std::string(70000, 'x')}) {
        WriteWholeFile(content, app.at("file"));
        EXPECT_EQ(app.read("file"), content + "\r\n");
        EXPECT_EQ(ReadWholeFile(app.at("file")), content + "\r\n");
    }
}

TEST_F(WholeFile, AnEmptyPathReadsEmptyAndIsNotWritten)
{
    const Path home = fs::current_path();
    fs::current_path(app.path());
    const Snapshot before = app.snapshot();
    for (const auto& [name, write] : waysToWrite) {
        write({});
        EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
    }
    EXPECT_EQ(ReadWholeFile({}), "");
    EXPECT_EQ(ReadIni("a", "k", {}), "");
    fs::current_path(home);
}

TEST_F(WholeFile, WhatIsMissingReadsEmptyAndIsNotMade)
{
    const Snapshot before = app.snapshot();
    EXPECT_EQ(ReadWholeFile(app.at("missing")), "");
    EXPECT_EQ(ReadIni("a", "k", app.at("missing")), "");
    EXPECT_EQ(CopyWholeFile(app.at("missing"), app.at("file")), std::errc::no_such_file_or_directory);
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(WholeFile, AMissingFolderIsNotMade)
{
    expectRefused("missing/file");
    expectRefused("file/file");
    EXPECT_EQ(CopyWholeFile(app.at("source"), app.at("missing/file")), std::errc::no_such_file_or_directory);
}

TEST_F(WholeFile, OnlyRegularFilesAreReadAndReplaced)
{
    fs::create_directory(app.at("folder"));
    ASSERT_EQ(::mkfifo(app.at("pipe").c_str(), 0666), 0);
    for (const std::string_view name : {"folder", "pipe"}) {
        EXPECT_EQ(ReadWholeFile(app.at(name)), "");
        EXPECT_TRUE(CopyWholeFile(app.at(name), app.at("file")));
        expectRefused(name);
    }
    EXPECT_EQ(app.read("file"), oldBytes);
}

TEST_F(WholeFile, AFileBeyondTheLargestIsLeftAlone)
{
    constexpr std::uintmax_t largest = 256 * 1024 * 1024;
    fs::resize_file(app.at("file"), largest + 1);
    EXPECT_EQ(ReadWholeFile(app.at("file")), "");
    WriteIni("a", "k", "new", app.at("file"));
    EXPECT_EQ(fs::file_size(app.at("file")), largest + 1);
}

TEST_F(WholeFile, AReadOnlyFileStays)
{
    fs::permissions(app.at("file"), fs::perms(0444));
    expectRefused("file");
    EXPECT_EQ(CopyWholeFile(app.at("source"), app.at("file")), std::errc::permission_denied);
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

TEST_F(WholeFile, NothingStaysBesideAWrittenFile)
{
    Snapshot expected = app.snapshot();
    expected["file"] = "copied";
    for (const auto& [name, write] : waysToWrite) {
        write(app.at("file"));
    }
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}
