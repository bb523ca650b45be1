#include "dialogs/property/AngleSpinBoxIncDecCalculator.h"
#include "dialogs/property/IJKSpinBoxIncDecCalculator.h"
#include "dialogs/property/Property.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/dialogs/models/SampleSession.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;

TEST(SpinBoxIncDecCalculatorBase, StepsByOne)
{
    SpinBoxIncDecCalculatorBase calculator;
    EXPECT_EQ(calculator.increment(2.5), 3.5);
    EXPECT_EQ(calculator.decrement(2.5), 1.5);
}

TEST(SpinBoxIncDecCalculatorBase, StepsByTheWidthThatADerivedClassGives)
{
    class Tenths : public SpinBoxIncDecCalculatorBase
    {
    protected:
        double delta() override { return 0.125; }
    };
    Tenths calculator;
    EXPECT_EQ(calculator.increment(1.0), 1.125);
    EXPECT_EQ(calculator.decrement(1.0), 0.875);
}

TEST(AngleSpinBoxIncDecCalculator, StepsByOneDegreeOrAHundredthOfARadian)
{
    auto const unit = boost::make_shared<Property<ThetaMode_e>>(ThetaMode_Degrees);
    AngleSpinBoxIncDecCalculator calculator(unit);
    EXPECT_EQ(calculator.increment(45.0), 46.0);
    EXPECT_EQ(calculator.decrement(45.0), 44.0);
    unit->setValue(ThetaMode_Radians);
    EXPECT_EQ(calculator.increment(1.0), 1.01);
    EXPECT_EQ(calculator.decrement(1.0), 0.99);
    unit->setValue(ThetaMode_Degrees);
    EXPECT_EQ(calculator.increment(0.0), 1.0);
}

/// Zones of 7 by 5 by 1 and of 3 by 2 by 1 points; the first variable is nodal, the second one cell-centred.
class IJKSpinBoxIncDecCalculatorTest : public ::testing::Test
{
protected:
    IJKSpinBoxIncDecCalculatorTest()
    {
        auto const dataSet = std::make_shared<kernel::DataSet>("Sample");
        for (char const* const name : {"X", "P"})
            dataSet->addVariable(std::make_shared<kernel::Variable>(name));
        addZone(*dataSet, 7, 5);
        addZone(*dataSet, 3, 2);
        session.session().setFrameDataSet(session.frame()->id, dataSet);
    }

    static void addZone(kernel::DataSet& dataSet, int i, int j)
    {
        auto const added = std::make_shared<kernel::Zone>("Zone", ZoneType_Ordered, i, j, 1);
        for (ValueLocation_e const location : {ValueLocation_Nodal, ValueLocation_CellCentered})
            added->fields.emplace_back(FieldDataType_Double, location);
        dataSet.addZone(added);
    }

    double up(double value) { return calculator.increment(value); }
    double down(double value) { return calculator.decrement(value); }

    SampleSession session;
    boost::shared_ptr<Property<IJKPlanes_e>> const plane = boost::make_shared<Property<IJKPlanes_e>>(IJKPlanes_I);
    boost::shared_ptr<Property<int>> const zone = boost::make_shared<Property<int>>(1);
    boost::shared_ptr<Property<int>> const variable = boost::make_shared<Property<int>>(1);
    IJKSpinBoxIncDecCalculator calculator{plane, zone, variable};
};

TEST_F(IJKSpinBoxIncDecCalculatorTest, StepsByOneWithinThePlanesOfItsDirection)
{
    EXPECT_EQ(up(1), 2);
    EXPECT_EQ(up(6), 7);
    EXPECT_EQ(up(7), 7);
    EXPECT_EQ(down(7), 6);
    EXPECT_EQ(down(1), 1);
    plane->setValue(IJKPlanes_J);
    EXPECT_EQ(up(4), 5);
    EXPECT_EQ(up(5), 5);
    plane->setValue(IJKPlanes_K);
    EXPECT_EQ(up(1), 1);
    EXPECT_EQ(down(1), 1);
}

TEST_F(IJKSpinBoxIncDecCalculatorTest, EndsOneEarlierForCellCentredValuesButNeverBelowOne)
{
    variable->setValue(2);
    EXPECT_EQ(up(5), 6);
    EXPECT_EQ(up(6), 6);
    plane->setValue(IJKPlanes_K);
    EXPECT_EQ(up(1), 1);
    EXPECT_EQ(down(1), 1);
}

TEST_F(IJKSpinBoxIncDecCalculatorTest, FollowsTheZone)
{
    zone->setValue(2);
    EXPECT_EQ(up(2), 3);
    EXPECT_EQ(up(3), 3);
    zone->setValue(1);
    EXPECT_EQ(up(3), 4);
}

TEST_F(IJKSpinBoxIncDecCalculatorTest, BringsAnIndexThatIsOutsideBackIn)
{
    EXPECT_EQ(up(100), 7);
    EXPECT_EQ(down(100), 7);
    EXPECT_EQ(up(-5), 1);
    EXPECT_EQ(down(-5), 1);
}

TEST_F(IJKSpinBoxIncDecCalculatorTest, KnowsOneIndexOnlyWhereThereIsNoZone)
{
    zone->setValue(9);
    EXPECT_EQ(up(1), 1);
    EXPECT_EQ(down(3), 1);
    session.session().clear();
    EXPECT_EQ(up(1), 1);
}

TEST_F(IJKSpinBoxIncDecCalculatorTest, AsksTheKernelUnderTheLock)
{
    /// Notes whether the lock is held when the zone is read.
    class Watched : public PropertyAbstract<int>
    {
    public:
        mutable int depth = -1;

    protected:
        void storeValue(int const&) override {}

    private:
        int retrieveValue() const override
        {
            depth = sdk::AppLock::depth();
            return 1;
        }
    };
    auto const watched = boost::make_shared<Watched>();
    IJKSpinBoxIncDecCalculator locked(plane, watched, variable);
    EXPECT_EQ(locked.increment(1), 2);
    EXPECT_EQ(watched->depth, 1);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(IJKSpinBoxIncDecCalculatorTest, UsesTheDimensionWhereThereIsNoVariable)
{
    variable->setValue(9);
    EXPECT_EQ(up(6), 7);
    EXPECT_EQ(up(7), 7);
}

} // namespace
} // namespace veldraw::tests
