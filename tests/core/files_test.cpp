#include "store/leftovers.h"
#include "wholefile.h"

namespace fs = std::filesystem;

TEST_F(WholeFile, HoldsTheContentAndOneCrLf)
{
    std::string everyByte;
    for (int byte = 0; byte < 256; ++byte) {
        everyByte += static_cast<char>(byte);
    }
    for (const std::string& content : {everyByte, std::string(), std::string(70000, 'x')}) {
        WriteWholeFile(content, app.at("file"));
        EXPECT_EQ(app.read("file"), content + "\r\n");
        EXPECT_EQ(ReadWholeFile(app.at("file")), content + "\r\n");
    }
}

TEST_F(WholeFile, WhatIsNoFileReadsEmptyAndIsNotMade)
{
    fs::current_path(app.path()); // where an empty path might lead
    fs::create_directory(app.at("folder"));
    for (const Path& path : {Path(), app.at("folder"), app.at("missing/file"), app.at("file/file")}) {
        EXPECT_EQ(ReadIni("a", "k", path), "") << path;
        expectNoFile(path);
    }
    EXPECT_EQ(CopyWholeFile(app.at("missing"), app.at("file")), std::errc::no_such_file_or_directory);
    EXPECT_EQ(CopyWholeFile(app.at("source"), app.at("missing/file")), std::errc::no_such_file_or_directory);
    fs::current_path(app.path().parent_path());
}

TEST_F(WholeFile, BeyondTheLargestSizeIsLeftAlone)
{
    constexpr std::uintmax_t largest = 256 * 1024 * 1024;
    fs::resize_file(app.at("file"), largest + 1);
    EXPECT_EQ(ReadWholeFile(app.at("file")), "");
    WriteIni("a", "k", "new", app.at("file"));
    EXPECT_EQ(fs::file_size(app.at("file")), largest + 1);
    EXPECT_EQ(platform::replaceFile(app.at("file"), "new"), std::errc::file_too_large);
    EXPECT_EQ(platform::replaceFile(app.at("new"), std::string(largest + 1, 'a')), std::errc::file_too_large);
    EXPECT_FALSE(app.has("new"));
}

TEST_F(WholeFile, ThatIsReadOnlyStays)
{
    fs::permissions(app.at("file"), fs::perms(0444));
    expectRefused(app.at("file"));
    EXPECT_EQ(CopyWholeFile(app.at("source"), app.at("file")), std::errc::permission_denied);
}

TEST_F(WholeFile, IsWrittenBesideTheFilesOfADeadProgramOfTheSameNumberAndLeavesNoOther)
{
    for (unsigned number = 1; number <= 300; ++number) {
        app.write(LeftoverName(platform::ownProcess(), number), "left");
    }
    Snapshot expected = app.snapshot();
    expected["file"] = "copied";
    writeInEveryWay(app.at("file"));
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}
