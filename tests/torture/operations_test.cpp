// What the files hold when an operation of the author's is killed, or its calls fail, at any of its calls.
#include "../core/appdir.h"
#include "build/scripts.h"
#include "events/eventstore.h"
#include "faults.h"
#include "maps/maplist.h"
#include "store/ini.h"
#include "variables/variables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// What one click of the author's does to the files; again, it does it anew and makes up for what failed.
struct Operation {
    std::string name;
    std::function<void()> run;
    bool inProject = true;
    int stride = 1; ///< how many calls lie between two strikes

    friend void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }
};

const std::vector<Operation> operations = {
    {"SetsAKey", [] { WriteIni("Jeu", "auteur", "Odile", Descriptor()); }},
    {"AddsAVariable",
     [] {
         BeginVariable(2);
         FinishVariable(2, "new");
     }},
    {"SavesAMap",
     [] {
         WriteIni("Carte01", "nom", "Wood", Descriptor());
         WriteWholeFile(std::string(150, '1'), BlockFile("01"));
         WriteWholeFile(std::string(150, '2'), MapFile("01"));
     }},
    {"SavesAnEvent",
     [] {
         saveevent(eventpath("01", 1, 1), {"new line", "another"});
     }},
    {"EmptiesTheEvents", [] { ClearEvents("01"); }, true, 41},
    {"AppliesATileset",
     [] {
         WriteIni("Carte01", "texture", "02", Descriptor());
         CopyTilesetSheet("02", "01");
     }},
    {"AddsAMap",
     [] {
         if (MapCount() == 1) {
             NewMap();
         }
     }},
    {"WritesTheTestRun",
     [] {
         WriteVariablesScript();
         WriteEventScript(1);
         WriteBootScript();
     }},
    {"MakesAProject", [] { CreateProject("demo", "Odile"); }, false},
};

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t start = 0, end = 0; start < text.size(); start = end + 2) {
        end = std::min(text.find("\r\n", start), text.size());
        lines.push_back(text.substr(start, end + 2 - start));
    }
    return lines;
}

/// Whether a descriptor is one on the way from one to another, which is a way of whole lines: its lines are
/// theirs, and those that both have are there.
bool isBetween(const std::string& from, const std::string& to, const std::string& seen)
{
    const auto holds = [](const std::string& text, const std::string& line) {
        return ("\r\n" + text).find("\r\n" + line) != std::string::npos;
    };
    for (const std::string& line : linesOf(seen)) {
        if (!holds(from, line) && !holds(to, line)) {
            return false;
        }
    }
    for (const std::string& line : linesOf(from)) {
        if (holds(to, line) && !holds(seen, line)) {
            return false;
        }
    }
    return true;
}

/// The files as they were, but with the lines of descriptors in order: a key that was added later counts the
/// same.
Snapshot sorted(Snapshot files)
{
    for (auto& [name, bytes] : files) {
        if (name.ends_with("projet.ini")) {
            std::vector<std::string> lines = linesOf(bytes);
            std::sort(lines.begin(), lines.end());
            bytes = std::accumulate(lines.begin(), lines.end(), std::string());
        }
    }
    return files;
}

bool isLeftover(const std::string& name)
{
    return Path(name).filename().string().starts_with(".questforge-");
}

std::string contentIn(const Snapshot& files, const std::string& name)
{
    const auto found = files.find(name);
    return found == files.end() ? std::string() : found->second;
}

/// Names the files that hold neither their old nor their new content, leftovers aside, or that are gone.
std::string tornFiles(const Snapshot& before, const Snapshot& after, const Snapshot& seen)
{
    std::string torn;
    for (const auto& [name, bytes] : seen) {
        const std::string from = contentIn(before, name);
        const std::string to = contentIn(after, name);
        const bool known = (before.contains(name) && bytes == from) || (after.contains(name) && bytes == to);
        const bool descriptor = name.ends_with("projet.ini") && isBetween(from, to, bytes);
        if (!known && !descriptor && !isLeftover(name)) {
            torn.append(name).append(" holds: ").append(bytes).append("\n");
        }
    }
    for (const auto& [name, bytes] : before) {
        if (!seen.contains(name)) {
            torn.append(name).append(" is gone\n");
        }
    }
    return torn;
}

int leftoversIn(const Snapshot& files)
{
    int count = 0;
    for (const auto& [name, bytes] : files) {
        count += isLeftover(name) ? 1 : 0;
    }
    return count;
}

class EveryCall : public testing::TestWithParam<Operation>
{
protected:
    EveryCall()
    {
        app.addTileset("02", "9");
        if (GetParam().inProject) {
            app.makeProject();
            WriteIni("Variable1", "valeur", "old", Descriptor());
            saveevent(eventpath("01", 1, 1), {"old line"});
        }
        before_ = app.snapshot();
        GetParam().run();
        after_ = seen_ = app.snapshot();
        restore();
        void* memory =
            ::mmap(nullptr, sizeof(Faults), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        plan_ = memory == MAP_FAILED ? nullptr : new (memory) Faults;
    }
    ~EveryCall() override { ::munmap(plan_, sizeof(Faults)); }

    /// Runs the operation on the old files with a strike at one call; false when it makes fewer calls.
    bool strike(int call, Faults::Kind kind)
    {
        constexpr std::array errors = {ENOSPC, EIO, EACCES, EROFS, EDQUOT, EMFILE};
        restore();
        *plan_ = {call, kind, errors[static_cast<std::size_t>(call) % errors.size()], 0, {}};
        app.path().string().copy(plan_->below.data(), plan_->below.size() - 1);
        const pid_t child = kind == Faults::Kill ? ::fork() : 0;
        if (child == 0) {
            follow(plan_);
            GetParam().run();
            follow(nullptr);
            if (kind == Faults::Kill) {
                ::_exit(0);
            }
        } else {
            ::waitpid(child, nullptr, 0);
        }
        seen_ = app.snapshot();
        return plan_->calls >= call;
    }

    void restore()
    {
        for (const auto& [name, bytes] : seen_) {
            if (!before_.contains(name)) {
                app.remove(name);
            }
        }
        for (const auto& [name, bytes] : before_) {
            if (bytes != "folder" && contentIn(seen_, name) != bytes) {
                app.write(name, bytes);
            }
        }
    }

    TemporaryAppDir app;
    Snapshot before_, after_, seen_;
    Faults* plan_ = nullptr;
};

} // namespace

TEST_P(EveryCall, KilledThereLeavesWholeFilesAndAtMostOneToSweep)
{
    int call = 1;
    for (; strike(call, Faults::Kill); call += GetParam().stride) {
        ASSERT_EQ(tornFiles(before_, after_, seen_), "") << "killed at call " << call;
        ASSERT_LE(leftoversIn(seen_), 1) << "killed at call " << call;
        SetCurrentProject("demo");
        SweepProject();
        std::erase_if(seen_, [](const auto& file) { return isLeftover(file.first); });
        ASSERT_EQ(Changes(seen_, app.snapshot()), "") << "killed at call " << call;
    }
    EXPECT_GT(call, 3);
    EXPECT_EQ(Changes(after_, seen_), "");
}

TEST_P(EveryCall, FailingThereLeavesWholeFilesAndTheNextClickMakesUp)
{
    for (const auto kind : {Faults::FailOne, Faults::FailAll}) {
        int call = 1;
        for (; strike(call, kind); call += GetParam().stride) {
            ASSERT_EQ(tornFiles(before_, after_, seen_), "") << "failed at call " << call;
            ASSERT_EQ(leftoversIn(seen_), 0) << "failed at call " << call;
            if (GetParam().inProject) {
                GetParam().run();
                seen_ = app.snapshot();
                ASSERT_EQ(Changes(sorted(after_), sorted(seen_)), "") << "after a failure at call " << call;
            }
        }
        EXPECT_GT(call, 3);
        EXPECT_EQ(Changes(after_, seen_), "");
    }
}

TEST_P(EveryCall, OnAFullDiskLeavesWholeFilesAndTheNextClickMakesUp)
{
    const Path disk = app.at("projets");
    if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=1m") != 0) {
        GTEST_SKIP() << "no disk may be mounted here";
    }
    seen_ = app.snapshot();
    restore();
    {
        const std::string page(4096, 'x');
        std::ofstream filler(disk / "filler", std::ios::binary);
        while (filler.write(page.data(), static_cast<std::streamsize>(page.size())).flush()) {
        }
    }
    GetParam().run();
    seen_ = app.snapshot();
    seen_.erase("projets/filler");
    EXPECT_EQ(tornFiles(before_, after_, seen_), "");
    EXPECT_EQ(leftoversIn(seen_), 0);
    EXPECT_NE(Changes(after_, seen_), "");
    app.remove("projets/filler");
    if (GetParam().inProject) {
        GetParam().run();
        EXPECT_EQ(Changes(sorted(after_), sorted(app.snapshot())), "");
    }
    ::umount2(disk.c_str(), MNT_DETACH);
}

INSTANTIATE_TEST_SUITE_P(Operation, EveryCall, testing::ValuesIn(operations),
                         [](const auto& operation) { return operation.param.name; });
