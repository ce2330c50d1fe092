// What the files hold when an operation of the author's is killed, or its calls fail, at any of its calls.
#include "../core/appdir.h"
#include "build/scripts.h"
#include "diskcalls.h"
#include "events/eventstore.h"
#include "maps/maplist.h"
#include "variables/variables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <sys/mman.h>
#include <sys/wait.h>
#include <tuple>
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

std::set<std::string> linesOf(const std::string& text)
{
    std::set<std::string> lines;
    for (std::size_t start = 0, end = 0; start < text.size(); start = end + 2) {
        end = std::min(text.find("\r\n", start), text.size());
        lines.insert(text.substr(start, end + 2 - start));
    }
    return lines;
}

/// Whether a descriptor is on its way, which gets its keys one by one: its lines are the old and the new
/// ones, and those that both have are there. Their order is no matter: a key that failed is added later.
bool isBetween(const std::string& from, const std::string& to, const std::string& seen)
{
    const auto [old, next, now] = std::tuple(linesOf(from), linesOf(to), linesOf(seen));
    const auto fits = [&](const std::string& line) {
        return now.contains(line) ? old.contains(line) || next.contains(line)
                                  : !old.contains(line) || !next.contains(line);
    };
    return std::ranges::all_of(old, fits) && std::ranges::all_of(now, fits);
}

bool isLeftover(const Snapshot::value_type& file)
{
    return file.first.find(".questforge-") != std::string::npos;
}

std::string contentIn(const Snapshot& files, const std::string& name)
{
    const auto found = files.find(name);
    return found == files.end() ? "nothing" : found->second;
}

/// Names the files that hold neither their old nor their new content, leftovers aside.
std::string tornFiles(const Snapshot& before, const Snapshot& after, const Snapshot& seen)
{
    Snapshot all = seen;
    all.insert(before.begin(), before.end());
    std::string torn;
    for (const auto& file : all) {
        const std::string from = contentIn(before, file.first);
        const std::string to = contentIn(after, file.first);
        const std::string now = contentIn(seen, file.first);
        const bool isOnItsWay = file.first.ends_with("projet.ini") && isBetween(from, to, now);
        if (now != from && now != to && !isOnItsWay && !isLeftover(file)) {
            torn.append(file.first).append(" holds: ").append(now).append("\n");
        }
    }
    return torn;
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
            if (contentIn(seen_, name) != bytes) {
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
        ASSERT_LE(std::ranges::count_if(seen_, isLeftover), 1) << "killed at call " << call;
        SetCurrentProject("demo");
        SweepProject();
        std::erase_if(seen_, isLeftover);
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
            ASSERT_EQ(std::ranges::count_if(seen_, isLeftover), 0) << "failed at call " << call;
            if (GetParam().inProject) {
                GetParam().run();
                seen_ = app.snapshot();
                ASSERT_EQ(tornFiles(after_, after_, seen_), "") << "after a failure at call " << call;
            }
        }
        EXPECT_GT(call, 3);
        EXPECT_EQ(Changes(after_, seen_), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Operation, EveryCall, testing::ValuesIn(operations),
                         [](const auto& operation) { return operation.param.name; });
