#include "dialogs/datasetinfo/DataSetTitleProperty.h"

#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::DataSetTitleProperty;
using testing::ElementsAre;
using testing::IsEmpty;

/// The title of a data set called "Flow", and what is heard of it.
class DataSetTitlePropertyTest : public testing::Test
{
protected:
    DataSetTitlePropertyTest()
    {
        sample.dataSet().setTitle("Flow");
        sample.session().history().clear();
        title = std::make_unique<DataSetTitleProperty>();
        title->connectValueChanged([this](std::string const& value) { told.push_back(value); });
    }

    void setByTheKernel(std::string const& text) { sample.session().perform(kernel::SetTitle(sample.dataSet(), text)); }
    /// Another frame, which is active then, with a data set of its own.
    void showAnother(std::string const& text)
    {
        auto const other = SampleSession::makeDataSet({"Other"}, {"X"});
        other->setTitle(text);
        auto const frame = sample.session().createFrame("Other", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
        sample.session().setFrameDataSet(frame->id, other);
    }
    std::vector<std::string> takeTold() { return std::exchange(told, {}); }

    SampleSession sample{{"Wing"}, {"X"}};
    std::vector<std::string> told;
    std::unique_ptr<DataSetTitleProperty> title;
};

TEST_F(DataSetTitlePropertyTest, IsTheKernels)
{
    EXPECT_EQ(title->value(), "Flow");
    sample.dataSet().setTitle("Größe");
    EXPECT_EQ(title->value(), "Größe") << "also where nobody has told it";
}

TEST_F(DataSetTitlePropertyTest, IsGivenToTheKernelAndToldOnce)
{
    title->setValue("Flow past a wing");
    EXPECT_EQ(sample.dataSet().title(), "Flow past a wing");
    EXPECT_THAT(takeTold(), ElementsAre("Flow past a wing"));
    title->setValue("Flow past a wing");
    EXPECT_THAT(takeTold(), IsEmpty());
}

TEST_F(DataSetTitlePropertyTest, IsOneStepToUndo)
{
    title->setValue("Wing");
    EXPECT_EQ(sample.session().history().undoName(), "Data Set Title");
    EXPECT_TRUE(sample.session().undo());
    EXPECT_EQ(title->value(), "Flow");
    EXPECT_FALSE(sample.session().undo());
    EXPECT_TRUE(sample.session().redo());
    EXPECT_THAT(takeTold(), ElementsAre("Wing", "Flow", "Wing"));
}

TEST_F(DataSetTitlePropertyTest, MayBeEmpty)
{
    title->setValue("");
    EXPECT_EQ(sample.dataSet().title(), "");
    EXPECT_THAT(takeTold(), ElementsAre(""));
}

TEST_F(DataSetTitlePropertyTest, FollowsTheKernelAtOnce)
{
    setByTheKernel("Wake");
    EXPECT_THAT(takeTold(), ElementsAre("Wake"));
    setByTheKernel("Wake");
    EXPECT_THAT(takeTold(), IsEmpty());
}

TEST_F(DataSetTitlePropertyTest, FollowsTheActiveFrame)
{
    showAnother("Heat");
    EXPECT_THAT(takeTold(), ElementsAre("Heat"));
    sample.session().activateFrame(sample.frame()->id);
    EXPECT_THAT(takeTold(), ElementsAre("Flow"));
}

TEST_F(DataSetTitlePropertyTest, KnowsTheDataSetThatItWouldBeGivenTo)
{
    showAnother("Heat");
    EXPECT_EQ(title->dataSet(), sample.session().activeDataSet()->id());
    sample.session().startFrameLoop(); // the first frame is active, which nobody tells
    ASSERT_EQ(sample.session().activeFrame(), sample.frame());
    EXPECT_EQ(title->dataSet(), sample.dataSet().id());
    sample.session().endFrameLoop();
}

TEST_F(DataSetTitlePropertyTest, IsToldForAnotherDataSetOfTheSameTitle)
{
    showAnother("Flow");
    EXPECT_THAT(takeTold(), ElementsAre("Flow"));
    FakeStateChange(StateChange_NewActiveFrame).send();
    EXPECT_THAT(takeTold(), IsEmpty()) << "but once";
}

TEST_F(DataSetTitlePropertyTest, StaysWhereThereIsNoDataSet)
{
    sample.session().createFrame("Empty", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
    EXPECT_EQ(title->value(), "Flow");
    sample.session().removeAllPages();
    EXPECT_EQ(title->value(), "Flow");
    EXPECT_THAT(takeTold(), IsEmpty());
    title->setValue("Wing");
    EXPECT_EQ(title->value(), "Flow");
    EXPECT_THAT(takeTold(), IsEmpty());
}

TEST_F(DataSetTitlePropertyTest, IsTheKernelsStillWhenTheKernelRefusesAnother)
{
    KernelSpy spy;
    spy.failNext("VelUtilDataSetSetTitle");
    title->setValue("Wing");
    EXPECT_EQ(title->value(), "Flow");
    EXPECT_THAT(takeTold(), IsEmpty());
    EXPECT_EQ(sample.dataSet().title(), "Flow");
}

TEST_F(DataSetTitlePropertyTest, HearsOnlyWhatCanBringAnotherTitle)
{
    KernelSpy const spy;
    for (int kind = 0; kind <= 60; ++kind) {
        int const before = spy.count();
        FakeStateChange(kind).send();
        bool const isOne = kind == 10 || kind == 12 || kind == 13 || kind == 16 || kind == 24;
        EXPECT_EQ(spy.count() > before, isOne) << kind;
    }
}

TEST_F(DataSetTitlePropertyTest, GivesBackWhatTheKernelHandsOut)
{
    KernelSpy const spy;
    title->value();
    EXPECT_THAT(spy.calls(), ElementsAre("VelUtilDataSetIsAvailable()", "VelUtilDataSetGetInfo(out, out, out)",
                                         "VelUtilDataSetGetUniqueID()", "VelUtilStringDealloc(out)"));
}

TEST_F(DataSetTitlePropertyTest, HearsNothingAfterItsEnd)
{
    int const listeners = sdk::integration::StateChangeEventObservable::getInstance().listenerCount();
    title.reset();
    EXPECT_EQ(sdk::integration::StateChangeEventObservable::getInstance().listenerCount(), listeners - 1);
    setByTheKernel("Wake");
    EXPECT_THAT(takeTold(), IsEmpty());
}

} // namespace
} // namespace veldraw::tests
