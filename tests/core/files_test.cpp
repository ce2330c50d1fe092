#include "store/leftovers.h"
#include "wholefile.h"

namespace fs = std::filesystem;

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

TEST_F(WholeFile, AFolderIsNeitherReadNorReplaced)
{
    fs::create_directory(app.at("folder"));
    expectNoFile("folder");
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

TEST_F(WholeFile, IsWrittenBesideTheFilesOfADeadProgramOfTheSameNumber)
{
    for (unsigned number = 1; number <= 300; ++number) {
        app.write(LeftoverName(platform::ownProcess(), number), "left");
    }
    Snapshot expected = app.snapshot();
    expected["file"] = "copied";
    for (const auto& [name, write] : waysToWrite) {
        write(app.at("file"));
    }
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
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
