#include "dialogs/fourier/FourierZones.h"

#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/dialogs/fourier/FourierFrames.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::activeFrameHasFourierZone;
using sdk::ui::propertymanager::validFourierZonesForFrame;
using testing::ElementsAre;
using testing::IsEmpty;

class FourierZonesTest : public FourierFrames
{
protected:
    std::vector<int> valid() const { return validFourierZonesForFrame(source()).members(); }
    void enable(int zone, bool isEnabled)
    {
        sample.session().perform(kernel::EnableZone(sample.dataSet(), zone, isEnabled));
    }

    KernelSpy spy;
};

TEST_F(FourierZonesTest, AreTheEnabledLinesOfFourPointsOrMore)
{
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Plane", ZoneType_Ordered, 4, 4, 1));
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Column", ZoneType_Ordered, 1, 1, 4));
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Short", ZoneType_Ordered, 3, 1, 1));
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Segments", ZoneType_FELineSeg, 8, 7, 0));
    EXPECT_THAT(valid(), ElementsAre(1, 2, 4));
    enable(1, false);
    EXPECT_THAT(valid(), ElementsAre(2, 4));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(FourierZonesTest, AreAskedForUnderTheLockOnly)
{
    std::vector<int> depths;
    spy.onCall([&depths](std::string const&) { depths.push_back(sdk::AppLock::depth()); });
    EXPECT_TRUE(activeFrameHasFourierZone());
    EXPECT_GE(depths.size(), 5u);
    EXPECT_THAT(depths, testing::Each(testing::Ge(1)));
    depths.clear();
    EXPECT_THAT(valid(), ElementsAre(1, 2));
    EXPECT_GE(depths.size(), 5u);
    EXPECT_THAT(depths, testing::Each(testing::Ge(1)));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(FourierZonesTest, AreFoundInAFrameThatIsNotActive)
{
    addFrame(false);
    sample.session().activateFrame(page().frames.back()->id);
    EXPECT_THAT(valid(), ElementsAre(1, 2));
    EXPECT_FALSE(activeFrameHasFourierZone());
}

TEST_F(FourierZonesTest, AreNoneWithoutFrameDataSetOrZones)
{
    EXPECT_THAT(validFourierZonesForFrame(0).members(), IsEmpty());
    EXPECT_THAT(validFourierZonesForFrame(addFrame(false)).members(), IsEmpty());
    sample.dataSet().zones().clear();
    EXPECT_THAT(valid(), IsEmpty());
    EXPECT_FALSE(activeFrameHasFourierZone());
    sample.session().removeAllPages();
    EXPECT_THAT(validFourierZonesForFrame(1).members(), IsEmpty());
    EXPECT_FALSE(activeFrameHasFourierZone());
}

TEST_F(FourierZonesTest, MayBeTheOnlyZoneThereIs)
{
    sample.dataSet().zones().pop_back();
    EXPECT_THAT(valid(), ElementsAre(1));
    EXPECT_TRUE(activeFrameHasFourierZone());
}

TEST_F(FourierZonesTest, AreNotAskedForOfNoDataSet)
{
    long long const empty = addFrame(false);
    spy.reset();
    validFourierZonesForFrame(empty);
    EXPECT_EQ(spy.count("VelUtilDataSetGetNumZonesByUniqueID"), 0);
}

TEST_F(FourierZonesTest, AreAskedForByIdentities)
{
    spy.reset();
    valid();
    std::string const frame = std::to_string(source());
    std::string const data = std::to_string(sample.dataSet().id());
    EXPECT_THAT(spy.calls(), testing::IsSupersetOf(std::vector<std::string>{
                                 "VelUtilFrameGetCount()", "VelUtilFrameGetDataSetUniqueIDByFrameID(" + frame + ")",
                                 "VelUtilDataSetGetNumZonesByUniqueID(" + data + ")",
                                 "VelUtilFourierTransformIsValidZoneByDataSetID(" + data + ", 1)",
                                 "VelUtilFourierTransformIsValidZoneByDataSetID(" + data + ", 2)"}));
    EXPECT_EQ(spy.count("VelUtilFourierTransformIsValidZone"), 0);
}

TEST_F(FourierZonesTest, LeaveTheQuestionAsSoonAsItsAnswerIsKnown)
{
    spy.failFrom(1);
    EXPECT_THAT(valid(), IsEmpty());
    EXPECT_EQ(spy.count("VelUtilFourierTransformIsValidZoneByDataSetID"), 0);
    EXPECT_FALSE(activeFrameHasFourierZone());
    EXPECT_EQ(spy.count("VelUtilFourierTransformIsValidZone"), 0);
}

// Nobody would ask again before the next change.
TEST_F(FourierZonesTest, AreAllFoundThoughAQuestionFails)
{
    valid();
    int const questions = spy.count();
    EXPECT_GE(questions, 5);
    for (int question = 1; question <= questions; ++question) {
        spy.reset();
        spy.failCall(question);
        EXPECT_THAT(valid(), ElementsAre(1, 2)) << spy.calls().at(static_cast<std::size_t>(question) - 1);
    }
    enable(2, false);
    spy.reset();
    EXPECT_TRUE(activeFrameHasFourierZone());
    int const questionsOfOne = spy.count();
    EXPECT_GE(questionsOfOne, 5);
    for (int question = 1; question <= questionsOfOne; ++question) {
        spy.reset();
        spy.failCall(question);
        EXPECT_TRUE(activeFrameHasFourierZone()) << spy.calls().at(static_cast<std::size_t>(question) - 1);
    }
}

TEST_F(FourierZonesTest, AreSeenToExistByTheFirstOfThem)
{
    EXPECT_TRUE(activeFrameHasFourierZone());
    EXPECT_THAT(spy.callsOf("VelUtilFourierTransformIsValidZone"),
                ElementsAre("VelUtilFourierTransformIsValidZone(1)"));
    sample.dataSet().zone(1)->i = 3;
    EXPECT_TRUE(activeFrameHasFourierZone());
    enable(2, false);
    EXPECT_FALSE(activeFrameHasFourierZone()) << "the one is short, the other one disabled";
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

} // namespace
} // namespace veldraw::tests
