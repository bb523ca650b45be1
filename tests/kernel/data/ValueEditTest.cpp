// Single values that are corrected, and taken back.
#include "kernel/base/BackgroundWork.h"
#include "kernel/base/Progress.h"
#include "kernel/compute/CopyValues.h"
#include "kernel/compute/Rotation.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetValue.h"
#include "kernel/operations/SpatialVariables.h"
#include "tests/kernel/data/EditFixture.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/SpecialNumbers.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <sys/mman.h>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST_F(EditValue, StoresTheValueAndTakesItBack)
{
    std::string const before = withoutHistory();
    void const* const memory = field(1, 1).group()->buffer()->data();
    EXPECT_TRUE(edit(1, 1, 2, 7.5));
    EXPECT_EQ(at(1, 1, 2), 7.5);
    EXPECT_EQ(field(1, 1).group()->buffer()->data(), memory) << "in place";
    EXPECT_EQ(session.history().undoName(), "Edit Value");
    EXPECT_EQ(session.history().valueBytes(), 0);
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 1"));
    expectUndoAndRedo(before, {"0 zones 1 variables 1"}, {"0 zones 1 variables 1"});
    EXPECT_EQ(at(1, 1, 2), 7.5);
    session.undo();
    EXPECT_EQ(at(1, 1, 2), 2);
}

TEST_F(EditValue, MakesNoStepOfTheValueThatIsThere)
{
    EXPECT_TRUE(edit(1, 1, 2, 2.0));
    EXPECT_TRUE(edit(1, 4, 0, 10));
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_EQ(field(1, 4).shareCount(), 2);
    EXPECT_THAT(recorder.take(), IsEmpty());
    EXPECT_TRUE(edit(1, 1, 0, -0.0)) << "another pattern of bits";
    EXPECT_TRUE(std::signbit(at(1, 1, 0)));
    EXPECT_TRUE(session.undo());
    EXPECT_FALSE(std::signbit(at(1, 1, 0)));
}

TEST_F(EditValue, GoesToAllWhoShareTheStorage)
{
    EXPECT_TRUE(edit(1, 4, 3, -2, false));
    EXPECT_EQ(at(2, 4, 3), -2);
    EXPECT_EQ(field(1, 4).shareCount(), 2);
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 2 variables 4"));
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(at(2, 4, 3), 13);
}

TEST_F(EditValue, BranchesOneOfThreeOff)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    std::string const before = withoutHistory();
    void const* const memory = field(2, 4).group()->buffer()->data();
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 15);
    recorder.take();
    EXPECT_TRUE(edit(1, 4, 3, 99));
    EXPECT_EQ(at(1, 4, 3), 99);
    EXPECT_EQ(at(2, 4, 3), 13);
    EXPECT_EQ(field(1, 4).shareCount(), 1);
    EXPECT_EQ(field(2, 4).shareCount(), 2);
    EXPECT_EQ(field(2, 4).group(), field(3, 4).group());
    EXPECT_EQ(field(2, 4).group()->buffer()->data(), memory);
    EXPECT_EQ(dataSet->zone(1)->range(4).max, 99);
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 15);
    std::vector<std::string> const events{"0 zones 1 variables 4", "22 zones 1 2 3 variables 4"};
    EXPECT_EQ(recorder.take(), events);
    expectUndoAndRedo(before, events, events);
    EXPECT_EQ(at(1, 4, 3), 99);
    EXPECT_TRUE(edit(1, 4, 3, 98)) << "its own by now";
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 4"));
}

TEST_F(EditValue, CopiesNothingForTheSakeOfTheHistory)
{
    SpatialVariables const inSpace{{1, 2, 4}, {}, true, false};
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, inSpace, RotationAxis{{0, 0, 0}, {1, 1, 1}}, 10)));
    void const* const memory = field(2, 4).group()->buffer()->data();
    EXPECT_TRUE(edit(2, 4, 1, 3));
    EXPECT_EQ(field(2, 4).group()->buffer()->data(), memory) << "was shared with the first zone before it was rotated";
    void const* const rotated = field(1, 4).group()->buffer()->data();
    EXPECT_TRUE(edit(1, 4, 1, 3));
    EXPECT_EQ(field(1, 4).group()->buffer()->data(), rotated);
    ASSERT_TRUE(session.undo() && session.undo() && session.undo());
    EXPECT_EQ(at(1, 4, 1), 11);
    EXPECT_EQ(field(1, 4).group(), field(2, 4).group());
}

TEST_F(EditValue, GoesBackAndForthInACopyWhileOthersRead)
{
    EXPECT_TRUE(edit(1, 1, 2, 7.5));
    std::shared_ptr<Buffer const> const edited = field(1, 1).group()->buffer();
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(at(1, 1, 2), 2);
    EXPECT_EQ(edited->value(2), 7.5);
    std::shared_ptr<Buffer const> const original = field(1, 1).group()->buffer();
    EXPECT_TRUE(session.redo());
    EXPECT_EQ(at(1, 1, 2), 7.5);
    EXPECT_EQ(original->value(2), 2);
}

TEST_F(EditValue, CopiesNothingForThoseWhoHoldTheMemoryAlone)
{
    auto const keeper = field(1, 1).group()->buffer()->owner();
    void const* const memory = field(1, 1).group()->buffer()->data();
    EXPECT_TRUE(edit(1, 1, 0, 5));
    EXPECT_EQ(field(1, 1).group()->buffer()->data(), memory);
}

TEST_F(EditValue, LeavesABufferAloneThatSomebodyReads)
{
    auto const read = field(1, 1).group()->buffer();
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 2);
    EXPECT_TRUE(edit(1, 1, 0, 5));
    EXPECT_EQ(read->value(0), 0);
    EXPECT_EQ(at(1, 1, 0), 5);
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 5);
}

TEST_F(EditValue, RefusesWhatCannotBeEdited)
{
    expectRefused([&] { return edit(0, 1, 0, 1); });
    expectRefused([&] { return edit(3, 1, 0, 1); });
    expectRefused([&] { return edit(1, 0, 0, 1); });
    expectRefused([&] { return edit(1, 6, 0, 1); });
    expectRefused([&] { return edit(1, 1, -1, 1); });
    expectRefused([&] { return edit(1, 1, 6, 1); });
    expectRefused([&] { return edit(1, 1, std::numeric_limits<std::int64_t>::max(), 1); });
    expectRefused([&] { return edit(1, 3, 0, 1); }); // passive
    expectRefused([&] { return edit(1, 5, 2, 1); }); // a slot that no cell has
    expectRefused([&] { return edit(1, 5, 3, 1); });
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4, 5, 6});
    dataSet->zone(1)->fields[0] = sample::Loader::field(loader);
    expectRefused([&] { return edit(1, 1, 0, 1); });
    EXPECT_EQ(loader->loads, 0);
    session.setLock(*dataSet, "somebody");
    recorder.take();
    expectRefused([&] { return edit(2, 1, 0, 9); });
}

TEST_F(EditValue, EditsCellsWithNodalStrides)
{
    EXPECT_TRUE(edit(1, 5, 1, 60));
    EXPECT_EQ(dataSet->zone(1)->range(5).max, 60);
    EXPECT_EQ(dataSet->zone(1)->range(5).min, 5);
}

TEST_F(EditValue, RefusesANumberBeyondTheLimitsOfItsTypeAndNamesThem)
{
    struct Case
    {
        FieldDataType_e type;
        std::vector<double> stored;
        std::vector<double> refused;
        char const* limits;
    };
    float const largest = std::numeric_limits<float>::max();
    for (Case const& each : {
             Case{FieldDataType_Int16,
                  {32767, -32768, 32767.4, -32768.4},
                  {40000, 32767.5, 32768, -32769, -32768.5, 1e300, infinity, -infinity, notANumber},
                  "whole numbers from -32768 to 32767."},
             {FieldDataType_Int32,
              {2147483647.25, -2147483648.25},
              {2147483648, -2147483649, 1e12, infinity, notANumber},
              "whole numbers from -2147483648 to 2147483647."},
             {FieldDataType_Byte,
              {255.25, -0.25},
              {256, -1, 255.5, infinity, notANumber},
              "whole numbers from 0 to 255."},
             {FieldDataType_Bit, {1, 0, 0.5}, {2, -1, 1.5, -0.5, notANumber}, "whole numbers from 0 to 1."},
             {FieldDataType_Float,
              {largest, -largest, 3.40282347e38, infinity, -infinity, notANumber, 1e-60},
              {3.5e38, -3.5e38, 1e300, 0x1.ffffffp127},
              "single-precision numbers from -3.4028235e+38 to 3.4028235e+38."},
             {FieldDataType_Double, {1e308, infinity, notANumber, 5e-324}, {}, ""},
         }) {
        dataSet->zone(1)->fields[0] = sample::field({1, 1, 0, 1, 1, 1}, each.type);
        for (double const value : each.stored) {
            EXPECT_TRUE(edit(1, 1, 2, value)) << each.type << ' ' << value;
        }
        recorder.take();
        for (double const value : each.refused) {
            expectRefused([&] { return edit(1, 1, 2, value); });
            EXPECT_THAT(session.lastError(), testing::HasSubstr(each.limits)) << each.type << ' ' << value;
        }
    }
    dataSet->zone(1)->fields[0] = sample::field({1, 1, 0, 1, 1, 1}, FieldDataType_Int16);
    EXPECT_FALSE(edit(1, 1, 2, 40000));
    EXPECT_EQ(session.lastError(),
              "The value 40000 cannot be stored: the variable has whole numbers from -32768 to 32767.");
    EXPECT_FALSE(edit(1, 3, 2, 4));
    EXPECT_EQ(session.lastError(),
              "The variable is passive in this zone: it has no values there, reads as 0 and cannot be edited.");
}

TEST(StoredBits, AreRoundedAndCutToTheLimitsOfTheirType)
{
    struct Case
    {
        FieldDataType_e type;
        double value;
        double stored;
    };
    for (Case const& each : {Case{FieldDataType_Byte, 300, 255},
                             {FieldDataType_Byte, -1, 0},
                             {FieldDataType_Byte, 2.5, 3},
                             {FieldDataType_Byte, notANumber, 0},
                             {FieldDataType_Int16, 40000, 32767},
                             {FieldDataType_Int16, -40000, -32768},
                             {FieldDataType_Int32, 1e12, 2147483647},
                             {FieldDataType_Int32, -infinity, -2147483648.0},
                             {FieldDataType_Bit, -0.5, 1},
                             {FieldDataType_Bit, 0, 0},
                             {FieldDataType_Bit, notANumber, 0},
                             {FieldDataType_Float, 0.1, static_cast<double>(0.1F)},
                             {FieldDataType_Float, infinity, infinity},
                             {FieldDataType_Double, 0.1, 0.1},
                             {FieldDataType_Double, 5e-324, 5e-324}}) {
        auto const buffer = sample::field({1, 0, 1, 1, 0, 1, 1, 1, 1}, each.type).group()->buffer()->clone();
        std::uint64_t const old = buffer->bits(8);
        buffer->setBits(8, Buffer::bitsOf(each.type, each.value));
        EXPECT_EQ(buffer->value(8), each.stored) << each.type << ' ' << each.value;
        EXPECT_EQ(buffer->value(7), 1);
        buffer->setBits(8, old);
        EXPECT_EQ(buffer->value(8), 1);
    }
}

TEST_F(EditValue, TakesBackEveryPatternOfBits)
{
    auto const buffer = Buffer::allocate(FieldDataType_Double, 6);
    std::uint64_t const patterns[] = {0x7ff0000000000001, 0xfff8000000000123, 1, 0x8000000000000000,
                                      0xfff0000000000000};
    for (std::int64_t at = 0; at < 5; ++at) {
        buffer->setBits(at, patterns[at]);
    }
    dataSet->zone(1)->fields[0] = Field(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
    for (std::int64_t at = 0; at < 5; ++at) {
        ASSERT_TRUE(session.perform(SetValue(*dataSet, 1, 1, at, 1.25, true)));
    }
    while (session.undo()) {
    }
    for (std::int64_t at = 0; at < 5; ++at) {
        EXPECT_EQ(field(1, 1).group()->buffer()->bits(at), patterns[at]);
    }
}

TEST_F(EditValue, ReachesTheLastOfThreeThousandMillionValues)
{
    constexpr std::int64_t count = 3000000000;
    void* const mapped =
        mmap(nullptr, count, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(mapped, MAP_FAILED);
    std::shared_ptr<void> const owner(mapped, [](void* memory) { munmap(memory, count); });
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>());
    loader->mapped = true;
    loader->knownRange = {ValueRange::State::Estimated, 0, 0};
    auto group = std::make_shared<ShareGroup>(FieldDataType_Byte, count, loader);
    group->setLoaded(Buffer::adopt(FieldDataType_Byte, count, mapped, 1, owner));
    auto const large = std::make_shared<DataSet>("large");
    large->addVariable(std::make_shared<Variable>("v"));
    auto const zone = std::make_shared<Zone>("large", ZoneType_Ordered, count, 1, 1);
    zone->fields = {Field(std::move(group), ValueLocation_Nodal)};
    large->addZone(zone);
    frame->dataSet = large;
    EXPECT_TRUE(session.perform(SetValue(*large, 1, 1, count - 1, 17, true)));
    EXPECT_EQ(static_cast<unsigned char*>(mapped)[count - 1], 17);
    EXPECT_EQ(zone->range(1).max, 17);
    EXPECT_FALSE(session.perform(SetValue(*large, 1, 1, count, 17, true)));
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(static_cast<unsigned char*>(mapped)[count - 1], 0);
    EXPECT_EQ(zone->range(1).max, 0);
}

TEST(CopyValues, EndsWithACancel)
{
    auto const source = Buffer::allocate(FieldDataType_Float, 1000);
    Progress progress;
    EXPECT_EQ(copyValues(*source, progress)->size(), 1000);
    EXPECT_EQ(progress.fraction(), 1);
    progress.interrupt();
    EXPECT_THROW(copyValues(*source, progress), Interrupted);
}

TEST_F(EditValue, ChangesNothingWhenTheCopyOfABranchIsCancelled)
{
    struct Impatient : Waiter
    {
        void wait(std::string const&, Progress& progress, std::shared_future<void> const& work) override
        {
            progress.interrupt();
            work.wait();
            throw Interrupted();
        }
    };
    Impatient waiter;
    session.setWaiter(&waiter);
    expectRefused([&] { return edit(1, 4, 3, 99); });
    session.setWaiter(nullptr);
    EXPECT_EQ(field(1, 4).shareCount(), 2);
    EXPECT_TRUE(edit(1, 4, 3, 99));
}

TEST_F(EditValue, ChangesNothingWithoutMemory)
{
    int failures = 0;
    for (bool const autoBranch : {false, true}) {
        for (int request = 1; request < 1000; ++request) {
            session.history().clear();
            std::string const before = stateDigest(session);
            recorder.take();
            bool succeeded = false;
            bool happened = false;
            {
                AllocationFailure const failure(request);
                succeeded = edit(1, 4, 2, 42, autoBranch);
                happened = failure.hasHappened();
            }
            failures += happened ? 1 : 0;
            if (!succeeded) {
                ASSERT_EQ(stateDigest(session), before) << request;
                ASSERT_EQ(at(1, 4, 2), 12);
                ASSERT_THAT(recorder.take(), IsEmpty());
                continue;
            }
            ASSERT_EQ(at(1, 4, 2), 42);
            ASSERT_TRUE(session.undo());
            ASSERT_EQ(at(1, 4, 2), 12);
            if (!happened) {
                break;
            }
        }
    }
    EXPECT_GT(failures, 10);
}

} // namespace

} // namespace veldraw::tests
