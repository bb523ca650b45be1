#include "kernel/operations/EnableZone.h"
#include "kernel/storage/ShareGroup.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "tests/host/SampleSession.h"
#include "tests/support/WriteValue.h"

#include <cmath>
#include <set>
#include <stdexcept>

namespace veldraw::tests {

using namespace veldraw::sdk;

namespace {

constexpr kernel::ValueRange estimate{kernel::ValueRange::State::Estimated, 0, 1};

/// Knows nothing but a range, if that; nobody should ask it for values.
class WaitingLoader : public kernel::ValueLoader
{
public:
    WaitingLoader(kernel::ValueRange const& range, bool isMappedFile)
        : m_range(range)
        , m_isMapped(isMappedFile)
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress&) override { throw std::logic_error("not to be loaded"); }
    kernel::ValueRange range() const override { return m_range; }
    bool isMapped() const override { return m_isMapped; }

private:
    kernel::ValueRange const m_range;
    bool const m_isMapped;
};

} // namespace

class RangeQueries : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        m_dataSet = makeDataSet({"X", "Y"});
        addZone(*m_dataSet, "small", 2, 2);
        addZone(*m_dataSet, "large", 4, 4);
        m_dataSet->addVariable(std::make_shared<kernel::Variable>("passive"));
        m_frame = show(m_dataSet, PlotType_Cartesian2D);
    }

    /// The second variable of the second zone is not loaded any more.
    void defer(kernel::ValueRange const& range, bool isMapped = false)
    {
        kernel::Field& field = m_dataSet->zone(2)->fields[1];
        auto group = std::make_shared<kernel::ShareGroup>(field.type(), field.group()->size(),
                                                          std::make_shared<WaitingLoader>(range, isMapped));
        field = kernel::Field(std::move(group), field.location());
        session().events().emitEvent({StateChange_VariablesLoaded, {2}, {2}, {}, 0});
    }
    /// And is said to go from 0 to 1.
    void estimateRange() { defer(estimate); }

    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<kernel::Frame> m_frame;
    double m_min = -1;
    double m_max = -2;
};

TEST_F(RangeQueries, GiveTheRangeOfAZone)
{
    ASSERT_TRUE(getVarMinMaxForZone(2, 1, false, m_min, m_max));
    EXPECT_EQ(m_min, 200);
    EXPECT_EQ(m_max, 203);
}

TEST_F(RangeQueries, GiveTheRangeOverSeveralZones)
{
    writeValue(*m_dataSet->field(1, 2)->group(), 0, -5);
    ASSERT_TRUE(getVarMinMaxForZoneSet(2, std::set<int>{1, 2}, false, m_min, m_max));
    EXPECT_EQ(m_min, -5);
    EXPECT_EQ(m_max, 215);
}

TEST_F(RangeQueries, LeaveTheNumbersAloneWhenNothingIsKnown)
{
    EXPECT_FALSE(getVarMinMaxForZone(3, 1, false, m_min, m_max)) << "passive";
    EXPECT_FALSE(getVarMinMaxForZone(2, 9, false, m_min, m_max)) << "no such zone";
    EXPECT_FALSE(getVarMinMaxForZone(9, 1, false, m_min, m_max)) << "no such variable";
    EXPECT_FALSE(getVarMinMaxForZoneSet(2, Set(), false, m_min, m_max)) << "no zone";
    EXPECT_EQ(m_min, -1);
    EXPECT_EQ(m_max, -2);
}

TEST_F(RangeQueries, LoadOnlyWhenTheyMay)
{
    struct OneToThree : kernel::ValueLoader
    {
        std::shared_ptr<kernel::Buffer> load(kernel::Progress&) override
        {
            auto buffer = kernel::Buffer::allocate(FieldDataType_Byte, 3);
            for (int n = 0; n < 3; ++n)
                buffer->setValue(n, n + 1);
            return buffer;
        }
    };
    auto group = std::make_shared<kernel::ShareGroup>(FieldDataType_Byte, 3, std::make_shared<OneToThree>());
    m_dataSet->zone(1)->fields[1] = kernel::Field(std::move(group), ValueLocation_Nodal);
    EXPECT_FALSE(getVarMinMaxForZone(2, 1, false, m_min, m_max));
    EXPECT_FALSE(m_dataSet->field(1, 2)->isLoaded());
    EXPECT_TRUE(getVarMinMaxForZone(2, 1, true, m_min, m_max));
    EXPECT_EQ(m_min, 1);
    EXPECT_EQ(m_max, 3);
}

TEST_F(RangeQueries, LeaveOutTheZonesThatKnowNothing)
{
    ASSERT_TRUE(getVarMinMaxForZoneSet(2, std::set<int>{1, 9}, false, m_min, m_max));
    EXPECT_EQ(m_min, 200);
    EXPECT_EQ(m_max, 203);
}

TEST_F(RangeQueries, TellWhetherARangeOfAnActiveZoneIsEstimated)
{
    EXPECT_FALSE(isVarRangeEstimatedForAnyActiveZones(2));
    estimateRange();
    EXPECT_TRUE(isVarRangeEstimatedForAnyActiveZones(2));
    EXPECT_FALSE(isVarRangeEstimatedForAnyActiveZones(1));
    session().perform(kernel::EnableZone(*m_dataSet, 2, false));
    EXPECT_FALSE(isVarRangeEstimatedForAnyActiveZones(2));
}

TEST_F(RangeQueries, TellThatLimitsAreEstimatesWhereAnActiveZoneHasValuesThatNobodyHasSeen)
{
    for (bool const isMapped : {false, true}) {
        defer(kernel::ValueRange(), isMapped);
        ASSERT_TRUE(getVarMinMaxForZoneSet(2, getActiveZones(), false, m_min, m_max));
        EXPECT_EQ(m_max, 203) << "of the first zone alone";
        EXPECT_TRUE(isVarRangeEstimatedForAnyActiveZones(2));
        session().perform(kernel::EnableZone(*m_dataSet, 2, false));
        EXPECT_FALSE(isVarRangeEstimatedForAnyActiveZones(2));
        session().perform(kernel::EnableZone(*m_dataSet, 2, true));
        session().perform(kernel::EnableZone(*m_dataSet, 1, false));
        EXPECT_FALSE(isVarRangeEstimatedForAnyActiveZones(2)) << "there are no limits at all";
        session().perform(kernel::EnableZone(*m_dataSet, 1, true));
    }
}

TEST_F(RangeQueries, TellThatLimitsAreExactWhereOtherZonesHaveNoFiniteValue)
{
    m_dataSet->zone(1)->fields[2] = m_dataSet->zone(1)->fields[1]; // passive in the second zone
    for (int slot = 0; slot < 16; ++slot)
        writeValue(*m_dataSet->field(2, 2)->group(), slot, std::nan(""));
    session().events().emitEvent({StateChange_ValuesAltered, {1, 2}, {2, 3}, {}, 0});
    for (int const variable : {2, 3}) {
        ASSERT_TRUE(getVarMinMaxForZoneSet(variable, getActiveZones(), false, m_min, m_max));
        EXPECT_EQ(m_max, 203);
        EXPECT_FALSE(isVarRangeEstimatedForAnyActiveZones(variable)) << variable;
    }
}

TEST_F(RangeQueries, GiveAnEstimateAsARange)
{
    estimateRange();
    ASSERT_TRUE(getVarMinMaxForZone(2, 2, false, m_min, m_max));
    EXPECT_EQ(m_min, 0);
    EXPECT_EQ(m_max, 1);
}

} // namespace veldraw::tests
