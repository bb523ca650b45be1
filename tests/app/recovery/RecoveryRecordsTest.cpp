#include "app/recovery/RecoveryRecords.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace veldraw::tests {

using app::RecoveryContent;
using app::RecoveryRecords;
using app::RecoveryStep;
using app::StampedFile;

namespace {

using Steps = std::vector<RecoveryStep>;
using Kind = RecoveryStep::Kind;

/// All that steps say, to compare them.
std::string textOf(Steps const& steps)
{
    std::string text;
    for (RecoveryStep const& step : steps) {
        text += std::to_string(static_cast<int>(step.kind)) + ' ' + step.text + ' ' + std::to_string(step.frame);
        for (bool const flag : {step.altersData, step.isUndone, step.isSaved})
            text += flag ? " yes" : " no";
        for (StampedFile const& file : step.files)
            text += ' ' + file.path + ' ' + std::to_string(file.size) + ' ' + std::to_string(file.modified);
        if (step.base) {
            text += ' ' + step.base->path + ' ' + step.base->state;
            for (std::string const& command : step.base->commands)
                text += ' ' + command;
        }
        text += '\n';
    }
    return text;
}

RecoveryStep step(Kind kind, std::string const& text, bool altersData)
{
    RecoveryStep made;
    made.kind = kind;
    made.text = text;
    made.frame = 2;
    made.altersData = altersData;
    return made;
}

/// A file with records of all kinds, and what it says up to the end of each.
struct Sample
{
    Sample()
    {
        Steps now{step(Kind::Open, "open files=\"/a b/wing.vtu\"", false)};
        now[0].files.push_back({"/a b/wing.vtu", 123456789012, 1700000000123456789});
        now.push_back(step(Kind::Command, "set-title title=\"a \\\"b\\\", # \\n c\"", true));
        now[1].isSaved = true;
        text = records.start(now);
        for (std::size_t line = 0; line <= 4; ++line) // the first record, then steps with their files
            states.push_back(line < 2 ? Steps() : Steps(now.begin(), now.begin() + (line < 4 ? 1 : 2)));
        states[2][0].files.clear();
        now.push_back(step(Kind::Remark, "# Edit Slice", false));
        note(records.added(now.back()), now);
        now.push_back(step(Kind::Save, "save file=x.vtu", false));
        note(records.added(now.back()), now);
        now[1].isUndone = true;
        note(records.undone(1, true), now);
        now[1].isUndone = false;
        note(records.undone(1, false), now);
        now[1].text = "set-title title=other";
        note(records.hasText(1, now[1].text), now);
        now[3].files.push_back({"x.vtu", -1, 0});
        note(records.hasFile(3, now[3].files.front()), now);
        now.pop_back();
        note(records.removed(3), now);
    }

    void note(std::string const& record, Steps const& now)
    {
        text += record;
        states.push_back(now);
    }

    std::size_t lineOf(std::size_t byte) const
    {
        auto const end = text.begin() + static_cast<std::ptrdiff_t>(byte);
        return static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
    }

    RecoveryRecords records;
    std::string text;
    std::vector<Steps> states; ///< after so many lines
};

} // namespace

TEST(RecoveryRecords, AreReadAsTheyWereWritten)
{
    Sample const sample;
    RecoveryContent const content = app::readRecords(sample.text);
    EXPECT_TRUE(content.isReadable);
    EXPECT_FALSE(content.isDamaged);
    EXPECT_EQ(textOf(sample.states.back()), textOf(content.steps));
    EXPECT_EQ(sample.states.size() - 1, sample.lineOf(sample.text.size()));
}

TEST(RecoveryRecords, TellWhatWasSaved)
{
    Steps steps{step(Kind::Command, "set-title title=a", true), step(Kind::Save, "save file=\"a b.vtm\"", false)};
    steps[1].base = app::SavedBase{"a b.vtm", {"set-plot-type type=3d", "disable-zone zone=2"}, "0123abcd"};
    RecoveryContent const content = app::readRecords(RecoveryRecords().start(steps));
    EXPECT_FALSE(content.isDamaged);
    EXPECT_EQ(textOf(steps), textOf(content.steps));
}

TEST(RecoveryRecords, AreReadUpToTheOneThatIsCut)
{
    Sample const sample;
    for (std::size_t length = 0; length < sample.text.size(); ++length) {
        RecoveryContent const content = app::readRecords(sample.text.substr(0, length));
        std::size_t const lines = sample.lineOf(length);
        ASSERT_EQ(textOf(sample.states[lines]), textOf(content.steps)) << length;
        ASSERT_EQ(lines > 0, content.isReadable) << length;
        ASSERT_EQ(lines == 0 && length > 0, content.isDamaged) << length;
    }
}

TEST(RecoveryRecords, AreReadUpToTheOneInWhichABitIsWrong)
{
    Sample const sample;
    std::size_t const last = sample.states.size() - 2;
    for (std::size_t byte = 0; byte < sample.text.size(); ++byte) {
        std::size_t const line = sample.lineOf(byte);
        bool const joinsTheLast = sample.text[byte] == '\n' && line + 1 == last;
        bool const isAtTheEnd = line == last || joinsTheLast;
        for (int bit = 0; bit < 8; ++bit) {
            std::string damaged = sample.text;
            damaged[byte] = static_cast<char>(damaged[byte] ^ (1 << bit));
            RecoveryContent const content = app::readRecords(damaged);
            ASSERT_EQ(textOf(sample.states[line]), textOf(content.steps)) << byte << ", " << bit;
            ASSERT_EQ(!isAtTheEnd, content.isDamaged) << byte << ", " << bit;
        }
    }
}

TEST(RecoveryRecords, AreReadUpToTheOneThatIsMissing)
{
    Sample const sample;
    std::size_t const second = sample.text.find('\n') + 1;
    std::size_t const third = sample.text.find('\n', second) + 1;
    std::string const without = sample.text.substr(0, second) + sample.text.substr(third);
    RecoveryContent const content = app::readRecords(without);
    EXPECT_TRUE(content.steps.empty());
    EXPECT_TRUE(content.isDamaged);
}

TEST(RecoveryRecords, AreNotReadFromAnotherFile)
{
    for (char const* text :
         {"rename-zone zone=1 name=a\n", "\n", "\n\n\n", "12345678 \n", "00000000 0 recovery version=1\n"}) {
        RecoveryContent const content = app::readRecords(text);
        EXPECT_FALSE(content.isReadable) << text;
        EXPECT_TRUE(content.isDamaged) << text;
        EXPECT_TRUE(content.steps.empty()) << text;
    }
}

TEST(RecoveryRecords, CountWhatIsNotInTheSavedFiles)
{
    Steps steps;
    for (char const* text : {"set-title title=a", "set-title title=b", "set-title title=c"})
        steps.push_back(step(Kind::Command, text, true));
    steps.push_back(step(Kind::Command, "set-plot-type type=2d", false));
    EXPECT_EQ(3, app::countUnsaved(steps));
    steps[2].isUndone = true;
    EXPECT_EQ(2, app::countUnsaved(steps));
    app::markSaved(steps);
    EXPECT_EQ(0, app::countUnsaved(steps));
    steps[1].isUndone = true;
    EXPECT_EQ(1, app::countUnsaved(steps)) << "the saved files have a step that was undone since";
    steps[2].isUndone = false;
    EXPECT_EQ(2, app::countUnsaved(steps));
}

TEST(RecoveryRecords, NameTheFilesOfACommand)
{
    using Paths = std::vector<std::string>;
    EXPECT_EQ((Paths{"/a.vtu", "/b, c.vtu"}), app::pathsOf("open files=/a.vtu,\"/b, c.vtu\" new-frames=yes"));
    EXPECT_EQ((Paths{"/a b.vtu"}), app::pathsOf("save file=\"/a b.vtu\""));
    EXPECT_EQ(Paths{}, app::pathsOf("set-title title=a"));
    EXPECT_EQ(Paths{}, app::pathsOf("# Edit Slice"));
}

} // namespace veldraw::tests
