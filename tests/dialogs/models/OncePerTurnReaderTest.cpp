#include "dialogs/models/OncePerTurnReader.h"

#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using sdk::ui::common::IdleDispatcher;
using sdk::ui::dialogs::propertybindings::models::OncePerTurnReader;

TEST(OncePerTurnReader, ReadsTheFirstChangeAtOnceAndAllOthersOfTheTurnAtIdle)
{
    int readings = 0;
    OncePerTurnReader reader([&readings] { ++readings; });
    for (int change = 0; change < 1000; ++change)
        reader.sourceChanged();
    EXPECT_EQ(readings, 1);
    EXPECT_TRUE(reader.isDue());
    IdleDispatcher::flush();
    EXPECT_EQ(readings, 2);
    EXPECT_FALSE(reader.isDue());
    reader.sourceChanged();
    EXPECT_EQ(readings, 3);
}

TEST(OncePerTurnReader, ReadsNothingMoreAfterOneChange)
{
    int readings = 0;
    OncePerTurnReader reader([&readings] { ++readings; });
    reader.sourceChanged();
    IdleDispatcher::flush();
    reader.catchUp();
    EXPECT_EQ(readings, 1);
}

TEST(OncePerTurnReader, ReadsWhatIsDueForWhoeverAsksFirst)
{
    int readings = 0;
    OncePerTurnReader reader([&readings] { ++readings; });
    reader.sourceChanged();
    reader.sourceChanged();
    reader.catchUp();
    reader.catchUp();
    EXPECT_EQ(readings, 2);
    reader.sourceChanged();
    reader.readNow();
    IdleDispatcher::flush();
    EXPECT_EQ(readings, 3);
}

TEST(OncePerTurnReader, TriesAgainAfterAReadingThatFailed)
{
    int readings = 0;
    OncePerTurnReader reader([&readings] {
        if (++readings == 1)
            throw std::runtime_error("");
    });
    EXPECT_THROW(reader.sourceChanged(), std::runtime_error);
    EXPECT_TRUE(reader.isDue());
    IdleDispatcher::flush();
    EXPECT_EQ(readings, 2);
    EXPECT_FALSE(reader.isDue());
}

TEST(OncePerTurnReader, NotesAChangeThatComesWhileItReads)
{
    int readings = 0;
    OncePerTurnReader* changed = nullptr;
    OncePerTurnReader reader([&] {
        if (++readings == 1)
            changed->sourceChanged();
    });
    changed = &reader;
    reader.sourceChanged();
    EXPECT_TRUE(reader.isDue());
    IdleDispatcher::flush();
    EXPECT_EQ(readings, 2);
}

TEST(OncePerTurnReader, MayBeEndedWhileItReadsAndReadsNothingAfterwards)
{
    int readings = 0;
    std::unique_ptr<OncePerTurnReader> reader;
    reader = std::make_unique<OncePerTurnReader>([&] {
        ++readings;
        reader.reset();
        throw std::runtime_error("");
    });
    OncePerTurnReader& gone = *reader;
    EXPECT_THROW(gone.sourceChanged(), std::runtime_error);
    IdleDispatcher::flush();
    EXPECT_EQ(readings, 1);
}

} // namespace
} // namespace veldraw::tests
