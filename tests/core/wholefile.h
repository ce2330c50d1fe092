/// A file with old bytes in a tool folder, and every way in which the program replaces one.
#pragma once

#include "appdir.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

/// Each leaves other bytes than oldBytes in the file that it can write.
inline const std::vector<std::pair<std::string, std::function<void(const Path&)>>> waysToWrite = {
    {"WriteWholeFile", [](const Path& path) { WriteWholeFile("new", path); }},
    {"WriteIni", [](const Path& path) { WriteIni("a", "k", "new", path); }},
    {"CopyWholeFile", [](const Path& path) { CopyWholeFile(AppDir() / "source", path); }},
};

constexpr std::string_view oldBytes = "[a]\r\nk=old\r\n";

class WholeFile : public testing::Test
{
protected:
    WholeFile()
    {
        app.write("source", "copied");
        app.write("file", oldBytes);
    }

    static void writeInEveryWay(const Path& path)
    {
        for (const auto& [name, write] : waysToWrite) {
            write(path);
        }
    }

    /// Expects that no way of writing to this path changes anything below the folder.
    void expectRefused(const Path& path) const
    {
        const Snapshot before = app.snapshot();
        writeInEveryWay(path);
        EXPECT_EQ(Changes(before, app.snapshot()), "") << path;
    }

    /// Expects that something other than a file is neither read nor copied nor written.
    void expectNoFile(const Path& path) const
    {
        EXPECT_EQ(ReadWholeFile(path), "") << path;
        EXPECT_TRUE(CopyWholeFile(path, app.at("file"))) << path;
        expectRefused(path);
        EXPECT_EQ(app.read("file"), oldBytes);
    }

    TemporaryAppDir app;
};
