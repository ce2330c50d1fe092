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

    /// Expects that no way of writing to this path changes anything below the folder.
    void expectRefused(std::string_view relative) const
    {
        const Snapshot before = app.snapshot();
        for (const auto& [name, write] : waysToWrite) {
            write(app.at(relative));
            EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
        }
    }

    /// Expects that something other than a file is neither read nor copied nor written.
    void expectNoFile(std::string_view relative) const
    {
        EXPECT_EQ(ReadWholeFile(app.at(relative)), "");
        EXPECT_TRUE(CopyWholeFile(app.at(relative), app.at("file")));
        EXPECT_EQ(app.read("file"), oldBytes);
        expectRefused(relative);
    }

    TemporaryAppDir app;
};
