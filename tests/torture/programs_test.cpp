// What several programs do to one project: two at once, one that hangs, one that is gone.
#include "../core/appdir.h"
#include "store/leftovers.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <functional>
#include <limits>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::string_literals;

namespace
{

/// Starts a program of its own beside this one.
void startOther(const std::function<void()>& action)
{
    if (::fork() == 0) {
        action();
        ::_exit(0);
    }
}

class Programs : public testing::Test
{
protected:
    TemporaryAppDir app;
};

} // namespace

TEST_F(Programs, LoseNoKeyOfOneDescriptorAndTearNoFileThatBothReplace)
{
    constexpr int keys = 300;
    app.makeProject();
    const std::string before = app.read("projets/demo/projet.ini");
    const std::string small(100, 's');
    const std::string large(300000, 'l');
    const auto write = [this](const std::string& section, const std::string& content) {
        for (int key = 1; key <= keys; ++key) {
            WriteIni(section, std::to_string(key), section, Descriptor());
            WriteWholeFile(content, app.at("file"));
        }
    };
    WriteWholeFile(small, app.at("file"));
    startOther([&] { write("first", small); });
    startOther([&] { write("second", large); });
    for (int running = 2; running > 0; running -= ::waitpid(-1, nullptr, WNOHANG) > 0 ? 1 : 0) {
        const std::string descriptor = ReadWholeFile(Descriptor());
        ASSERT_TRUE(descriptor.starts_with(before) && descriptor.ends_with("\r\n")) << descriptor;
        const std::string file = ReadWholeFile(app.at("file"));
        ASSERT_TRUE(file == small + "\r\n" || file == large + "\r\n") << file.size() << " bytes";
    }
    for (const std::string section : {"first", "second"}) {
        for (int key = 1; key <= keys; ++key) {
            ASSERT_EQ(ReadIni(section, std::to_string(key), Descriptor()), section) << key;
        }
    }
}

TEST_F(Programs, AreNotKeptFromWritingByOneThatHangs)
{
    app.makeProject();
    const int folder = ::open(ProjectDir().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(folder, LOCK_EX), 0); // a lock is the opened folder's: this program waits for it, too
    WriteIni("Jeu", "auteur", "Odile", Descriptor());
    ::close(folder);
    EXPECT_EQ(ReadIni("Jeu", "auteur", Descriptor()), "Odile");
}

TEST_F(Programs, ThatAreGoneAreSweptAfterInTheProjectAndNothingElseIs)
{
    app.makeProject("other");
    app.makeProject();
    const std::string gone = LeftoverName(std::numeric_limits<int>::max(), 1);
    for (const std::string& name :
         {LeftoverName(::getppid(), 1), gone + ".bak", "x" + gone, ".questforge-1.tmp"s,
          ".questforge-0-1.tmp"s, ".questforge--5-1.tmp"s, ".questforge-02147483647-1.tmp"s,
          ".questforge-2147483647-1x.tmp"s, ".questforge-99999999999-1.tmp"s}) {
        app.write("projets/demo/" + name, "kept");
    }
    for (const std::string folder : {"projets/other/", "projets/", "data/", "outside/"}) {
        app.write(folder + gone, "kept");
    }
    app.write("projets/demo/ev/" + gone + "/a folder", "kept");
    std::filesystem::create_symlink(app.at("outside/" + gone), app.at("projets/demo/images/" + gone));
    std::filesystem::create_directory_symlink(app.at("outside"), app.at("projets/demo/images/link"));
    const Snapshot expected = app.snapshot();

    for (const std::string folder :
         {"projets/demo/", "projets/demo/ev/map01/", "projets/demo/images/personnages/hero/", ""}) {
        app.write(folder + gone, "left");
        app.write(folder + LeftoverName(::getpid(), 1), "left by one of the same number");
    }
    SweepProject();
    EXPECT_EQ(Changes(expected, app.snapshot()), "");

    app.write(gone, "kept without a project");
    const Snapshot before = app.snapshot();
    for (const std::string name : {"", ".", ".."}) {
        SetCurrentProject(name);
        SweepProject();
        EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
    }
}
