#include "app/export/Exporter.h"
#include "app/export/writing/FileSave.h"
#include "tests/app/support/InterruptedSave.h"

#include <vtkSMPTools.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

// Saves that are killed, or that one call of the system or all later ones are refused to, at each call in turn.

namespace veldraw::tests {

using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::EndsWith;
using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

using Kind = Disturbance::Kind;
using End = SaveOutcome::End;

// A disk in memory, where there is one: what is tried here is when calls are made, a thousand times, and not the disk. VTK works without
// threads, since a forked process has none of those that it would wait for.
void workInMemory()
{
    vtkSMPTools::SetBackend("Sequential");
    if (::access("/dev/shm", W_OK) == 0)
        ::setenv("TMPDIR", "/dev/shm", 1);
}

// What a save leads from and to, and what must be there afterwards.
class Transition
{
public:
    Transition(SaveKind const& kind, SavedState const& old, SavedState const& fresh, bool hasOld = true)
        : m_kind(kind)
        , m_old(old)
        , m_new(fresh)
        , m_hasOld(hasOld)
        , m_oldContent(hasOld ? contentOfSave(old) : "none")
        , m_newContent(contentOfSave(fresh))
    {
    }

    int countOfCalls() const
    {
        TemporaryFolder const folder;
        prepare(folder);
        return saveDisturbed(m_kind, folder, m_new, {}).calls;
    }

    // @return false when the save ended before the call to disturb came
    bool holdsWhen(Disturbance const& disturbance)
    {
        TemporaryFolder const folder;
        prepare(folder);
        std::string const before = folder.listing();
        SaveOutcome const outcome = saveDisturbed(m_kind, folder, m_new, disturbance);
        std::string const content = m_kind.content(folder);
        bool const isOld = content == m_oldContent;
        EXPECT_TRUE(isOld || content == m_newContent) << "a mixture: " << folder.listing();
        ++(isOld ? m_stayedOld : m_becameNew);
        EXPECT_TRUE(outcome.end != End::Saved || !isOld) << "it said that it was saved";
        EXPECT_TRUE(outcome.end != End::Refused || isOld) << "it said that it was not: " << outcome.message;
        if (outcome.end == End::Refused)
            checkRefusal(outcome, disturbance, before, folder);
        checkOthers(folder);
        saveAgain(folder);
        return outcome.wasDisturbed;
    }

    int stayedOld() const { return m_stayedOld; }
    int becameNew() const { return m_becameNew; }

private:
    std::string contentOfSave(SavedState const& state) const
    {
        TemporaryFolder const folder;
        m_kind.save(folder, state);
        return m_kind.content(folder);
    }

    void prepare(TemporaryFolder const& folder) const
    {
        if (m_hasOld)
            m_kind.save(folder, m_old);
        folder.write("a_1.csv", "a table of the user's");
        if (hasPieces()) {
            std::filesystem::create_directory(folder.path("a"));
            folder.write("a/a_9.vts", "a piece of the user's");
        }
    }

    bool hasPieces() const { return m_kind.file() == "a.vtm"; }
    std::string others() const { return hasPieces() ? "a/a_9.vts a_1.csv" : "a_1.csv"; }

    void checkRefusal(SaveOutcome const& outcome, Disturbance const& disturbance, std::string const& before,
                      TemporaryFolder const& folder) const
    {
        EXPECT_THAT(outcome.message, AllOf(HasSubstr(folder.path(m_kind.file())), Not(EndsWith(".."))));
        EXPECT_TRUE(isInTheUsersWords(outcome.message)) << outcome.message;
        bool const couldRemove =
            disturbance.kind == Kind::FailOnce && outcome.call != "unlink" && outcome.call != "rmdir";
        EXPECT_TRUE(!couldRemove || folder.listing() == before)
            << "parts are left of what was refused: " << folder.listing();
    }

    void checkOthers(TemporaryFolder const& folder) const
    {
        EXPECT_EQ(contentOf(folder.path("a_1.csv")), "a table of the user's");
        EXPECT_EQ(contentOf(folder.path("a/a_9.vts")), hasPieces() ? "a piece of the user's" : "");
    }

    // Nothing is left of the interrupted save, nor of the old one, but what is the user's.
    void saveAgain(TemporaryFolder const& folder) const
    {
        m_kind.save(folder, m_new);
        EXPECT_EQ(m_kind.content(folder), m_newContent);
        checkOthers(folder);
        std::string const expected = m_kind.belongings(folder) + " " + others();
        EXPECT_EQ(sorted(folder.listing()), sorted(expected));
    }

    static std::string sorted(std::string const& names)
    {
        std::istringstream words(names);
        std::set<std::string> const ordered{std::istream_iterator<std::string>(words), {}};
        std::string text;
        for (std::string const& name : ordered)
            text += name + " ";
        return text;
    }

    SaveKind m_kind;
    SavedState m_old;
    SavedState m_new;
    bool m_hasOld;
    std::string m_oldContent;
    std::string m_newContent;
    int m_stayedOld = 0;
    int m_becameNew = 0;
};

struct Case
{
    char const* file;
    int oldZones;
    int newZones; // none before when oldZones is 0
};

std::ostream& operator<<(std::ostream& out, Case const& each)
{
    return out << each.file << " with " << each.newZones << " zones over one with " << each.oldZones;
}

class InterruptedSave : public ::testing::TestWithParam<Case>
{
protected:
    InterruptedSave() { workInMemory(); }

    static Transition transition()
    {
        Case const& each = GetParam();
        return {SaveKind(each.file), {each.oldZones, 20, 1.5}, {each.newZones, 30, 77.25}, each.oldZones > 0};
    }

    // @return how many saves were interrupted
    static int interruptAtEachCall(Transition& transition, Kind kind)
    {
        int saves = 0;
        Disturbance disturbance;
        disturbance.kind = kind;
        for (disturbance.call = 1; !HasFailure(); ++disturbance.call) {
            SCOPED_TRACE("at call " + std::to_string(disturbance.call));
            if (!transition.holdsWhen(disturbance))
                break;
            ++saves;
        }
        return saves;
    }
};

} // namespace

TEST_P(InterruptedSave, ThatIsKilledLeavesAllThatWasOldOrAllThatIsNew)
{
    Transition transition = InterruptedSave::transition();
    int const saves = interruptAtEachCall(transition, Kind::KillBefore);
    EXPECT_GT(saves, 8) << "calls have been missed";
    EXPECT_GT(transition.stayedOld(), 4);
    EXPECT_GT(transition.becameNew(), 1);
}

TEST_P(InterruptedSave, ThatIsKilledWhileItWritesDoesToo)
{
    Transition transition = InterruptedSave::transition();
    EXPECT_GT(interruptAtEachCall(transition, Kind::KillHalfway), 1);
}

TEST_P(InterruptedSave, IsRefusedOrDoneWhereACallFails)
{
    Transition transition = InterruptedSave::transition();
    EXPECT_GT(interruptAtEachCall(transition, Kind::FailOnce), 15);
    EXPECT_GT(transition.stayedOld(), 6);
    EXPECT_GT(transition.becameNew(), 1) << "what fails after the rename cannot take the save back";
}

TEST_P(InterruptedSave, IsRefusedOrDoneWhereACallAndAllLaterOnesFail)
{
    Transition transition = InterruptedSave::transition();
    EXPECT_GT(interruptAtEachCall(transition, Kind::FailFromThen), 15);
}

INSTANTIATE_TEST_SUITE_P(Kinds, InterruptedSave,
                         ::testing::Values(Case{"a.vtm", 3, 2}, Case{"a.vtm", 0, 2}, Case{"a.csv", 3, 2},
                                           Case{"a.csv", 0, 2}, Case{"a.tsv", 1, 1}, Case{"a.vts", 1, 1},
                                           Case{"a.png", 1, 1}, Case{"a.png", 0, 1}));

// As many as VELDRAW_INTERRUPTED_SAVES says; see tools/interrupt-saves.
TEST(Exporter, InterruptedAtRandomLeavesAllThatWasOldOrAllThatIsNew)
{
    workInMemory();
    char const* const wanted = std::getenv("VELDRAW_INTERRUPTED_SAVES");
    int const saves = wanted ? std::atoi(wanted) : 60;
    char const* const chosen = std::getenv("VELDRAW_SEED");
    unsigned const seed = chosen ? static_cast<unsigned>(std::atoi(chosen)) : std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    auto const upTo = [&](int limit) { return std::uniform_int_distribution<int>(1, limit)(random); };
    int done = 0;
    int stayedOld = 0;
    while (done < saves && !::testing::Test::HasFailure()) {
        SaveKind const kind(std::vector<char const*>{"a.vtm", "a.vtm", "a.csv", "a.csv", "a.vts", "a.png"}.at(
            static_cast<std::size_t>(upTo(6) - 1)));
        int const most = kind.takesSeveralZones() ? 6 : 1;
        int const least = kind.file() == "a.csv" ? 2 : 1;
        SavedState const old{std::max(least, upTo(most)), upTo(3000), 1.5};
        SavedState const fresh{std::max(least, upTo(most)), upTo(3000), 77.25};
        Transition transition(kind, old, fresh);
        int const calls = transition.countOfCalls();
        for (int n = 0; n < 10 && done < saves; ++n) {
            Kind const what = static_cast<Kind>(upTo(4));
            Disturbance const disturbance{what, upTo(what == Kind::KillHalfway ? 9 : calls), 0, -1};
            SCOPED_TRACE("seed " + std::to_string(seed) + ", " + kind.file() + ", call " +
                         std::to_string(disturbance.call) + ", kind " +
                         std::to_string(static_cast<int>(disturbance.kind)));
            done += transition.holdsWhen(disturbance) ? 1 : 0;
        }
        stayedOld += transition.stayedOld();
    }
    std::cout << done << " interrupted saves, " << stayedOld << " of which left what was old" << std::endl;
    EXPECT_EQ(done, saves);
    EXPECT_GT(stayedOld, saves / 4);
}

TEST(Exporter, OnAFullDiskSaysSoAndLeavesTheOldFiles)
{
    workInMemory();
    for (char const* file : {"a.vtm", "a.vts", "a.csv", "a.png"}) {
        SaveKind const kind(file);
        TemporaryFolder const folder;
        kind.save(folder, {kind.takesSeveralZones() ? 2 : 1, 20, 1.5});
        std::string const before = folder.listing();
        std::string const content = kind.content(folder);
        for (std::int64_t const room : {0, 5, 100, 3000, 20000}) {
            SCOPED_TRACE(std::string(file) + ", room for " + std::to_string(room));
            Disturbance disturbance;
            disturbance.room = room;
            auto const outcome =
                saveDisturbed(kind, folder, {kind.takesSeveralZones() ? 2 : 1, 20000, 77.25}, disturbance);
            if (kind.file() == "a.png" && outcome.end == End::Saved)
                break; // it is a small one
            EXPECT_EQ(outcome.end, End::Refused);
            EXPECT_THAT(outcome.message, AllOf(HasSubstr(folder.path(file)), HasSubstr("the disk is full")));
            EXPECT_EQ(folder.listing(), before);
            EXPECT_EQ(kind.content(folder), content);
        }
    }
}

TEST(Exporter, BringsEverythingToTheDiskBeforeItGetsItsName)
{
    workInMemory();
    TemporaryFolder const folder;
    SaveKind const kind("a.vtm");
    kind.save(folder, {2, 20, 1.5});
    std::string const old = folder.path("a/a_1.vts");
    disturbCalls({});
    kind.save(folder, {2, 20, 77.25});
    endOfDisturbance();
    std::vector<std::string> const calls = changingCalls();
    auto const lastOf = [&](std::string const& start) {
        std::size_t last = 0;
        for (std::size_t n = 0; n < calls.size(); ++n)
            last = calls[n].compare(0, start.size(), start) == 0 ? n + 1 : last;
        EXPECT_GT(last, 0U) << start;
        return last;
    };
    std::size_t const rename = lastOf("rename ");
    std::string const part = calls[rename - 1].substr(7, calls[rename - 1].find(".part") - 2);
    for (std::string const& file : {folder.path("a/a_1-2.vts"), folder.path("a/a_2-2.vts"), part}) {
        EXPECT_LT(lastOf("write " + file), lastOf("fsync " + file));
        EXPECT_LT(lastOf("fsync " + file), rename);
    }
    EXPECT_LT(lastOf("fsync " + folder.path("a")), rename);
    EXPECT_LT(rename, lastOf("fsync " + std::filesystem::path(folder.path("a")).parent_path().string()));
    EXPECT_LT(lastOf("fsync " + std::filesystem::path(folder.path("a")).parent_path().string()),
              lastOf("unlink " + old));
}

// The user keeps what is there under another name after the interruption, and saves anew.
TEST(Exporter, InterruptedLeavesAFileThatCanBeMovedAway)
{
    workInMemory();
    SaveKind const kind("a.vtm");
    SaveKind const moved("b.vtm");
    bool wasDisturbed = true;
    for (int call = 1; wasDisturbed && !::testing::Test::HasFailure(); ++call) {
        SCOPED_TRACE("at call " + std::to_string(call));
        TemporaryFolder const folder;
        kind.save(folder, {3, 20, 1.5});
        wasDisturbed =
            saveDisturbed(kind, folder, {2, 30, 77.25}, {Disturbance::Kind::KillBefore, call, 0, -1}).wasDisturbed;
        std::string const content = kind.content(folder);
        std::filesystem::rename(folder.path("a.vtm"), folder.path("b.vtm"));
        kind.save(folder, {4, 10, 3.0});
        EXPECT_EQ(moved.content(folder), content) << folder.listing();
    }
}

TEST(Exporter, RemovesNothingOldBeforeTheNewIsOnTheDisk)
{
    workInMemory();
    for (char const* file : {"a.vtm", "a.csv"}) {
        SaveKind const kind(file);
        int savedInSpite = 0;
        bool isHit = true;
        for (int call = 1; isHit; ++call) {
            TemporaryFolder const folder;
            kind.save(folder, {3, 20, 1.5});
            SaveOutcome const outcome =
                saveDisturbed(kind, folder, {2, 30, 77.25}, {Disturbance::Kind::FailOnce, call, EIO, -1});
            isHit = outcome.wasDisturbed;
            if (!isHit || outcome.end != End::Saved || outcome.call != "fsync")
                continue;
            ++savedInSpite;
            EXPECT_EQ(kind.content(folder).find("missing"), std::string::npos);
            std::string const names = folder.listing();
            EXPECT_THAT(names, HasSubstr(".veldraw-saving"));
            EXPECT_THAT(names, HasSubstr(kind.file() == "a.vtm" ? "a/a_3.vts" : ".part/a_3.csv"));
            kind.save(folder, {2, 30, 77.25});
            EXPECT_EQ(folder.listing(), kind.belongings(folder));
        }
        EXPECT_EQ(savedInSpite, 1) << file;
    }
}

// Between the look at what a crash has left and the lock on it, a second save takes it over and goes on.
TEST(Exporter, TakesOverNothingThatAnotherSaveHasTakenOver)
{
    TemporaryFolder const folder;
    folder.write("a.csv.veldraw-saving", "");
    std::unique_ptr<app::FileSave> second;
    doBefore("flock", [&] { second = std::make_unique<app::FileSave>(folder.path("a.csv")); });
    EXPECT_THROW(app::FileSave(folder.path("a.csv")), app::ExportError);
    EXPECT_THAT(folder.listing(), HasSubstr("a.csv.veldraw-saving"));
    ASSERT_TRUE(second);
    EXPECT_TRUE(std::filesystem::exists(second->path()));
}

TEST(Exporter, LooksAtWhatAnotherSaveHasLeftJustNow)
{
    workInMemory();
    TemporaryFolder const folder;
    SaveKind const kind("a.vtm");
    doBefore("flock", [&] { kind.save(folder, {3, 20, 1.5}); });
    kind.save(folder, {2, 30, 77.25});
    EXPECT_EQ(folder.listing(), kind.belongings(folder)) << "pieces of the other save are left";
}

TEST(Exporter, OfTwoSavesAtOnceOneIsWhole)
{
    workInMemory();
    for (char const* file : {"a.vtm", "a.csv", "a.vts"}) {
        SaveKind const kind(file);
        int const zones = kind.takesSeveralZones() ? 3 : 1;
        std::vector<SavedState> const states{{zones, 10, 1.0}, {zones, 10, 2.0}, {zones, 10, 3.0}};
        std::vector<std::string> contents;
        for (SavedState const& state : states) {
            TemporaryFolder const folder;
            kind.save(folder, state);
            contents.push_back(kind.content(folder));
        }
        for (int round = 0; round < 15; ++round) {
            TemporaryFolder const folder;
            kind.save(folder, states[0]);
            pid_t processes[2] = {};
            for (std::size_t n = 0; n < 2; ++n) {
                processes[n] = ::fork();
                if (processes[n] == 0) {
                    try {
                        kind.save(folder, states[n + 1]);
                        ::_exit(0);
                    } catch (app::ExportError const& error) {
                        bool const isBusy = std::string(error.what()).find("another program is saving to this name") !=
                                            std::string::npos;
                        ::_exit(isBusy ? 1 : 2);
                    }
                }
            }
            int status[2] = {};
            for (std::size_t n = 0; n < 2; ++n)
                ::waitpid(processes[n], &status[n], 0);
            EXPECT_TRUE(WIFEXITED(status[0]) && WEXITSTATUS(status[0]) < 2) << file;
            EXPECT_TRUE(WIFEXITED(status[1]) && WEXITSTATUS(status[1]) < 2) << file;
            EXPECT_TRUE(status[0] == 0 || status[1] == 0) << file << ": nobody was let";
            std::string const content = kind.content(folder);
            EXPECT_TRUE((status[0] == 0 && content == contents[1]) || (status[1] == 0 && content == contents[2]))
                << file;
            std::size_t const names = static_cast<std::size_t>(
                std::distance(std::filesystem::recursive_directory_iterator(folder.path(".")), {}));
            EXPECT_EQ(names, kind.takesSeveralZones() ? std::size_t(zones) + 1 + (kind.file() == "a.vtm" ? 1 : 0) : 1U)
                << folder.listing();
        }
    }
}

} // namespace veldraw::tests
