#include "dialogs/property/AngleDecorator.h"

#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "platform/exception/InvalidPropertyValueException.h"

#include <boost/make_shared.hpp>

#include <cmath>
#include <gmock/gmock.h>
#include <vector>

namespace veldraw::tests {

using sdk::ui::propertymanager::AngleDecorator;
using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

double const pi = std::acos(-1.0);

} // namespace

class AngleDecoratorTest : public testing::Test
{
protected:
    AngleDecoratorTest()
    {
        shown.connectValueChanged([this](double angle) { heard.push_back(angle); });
    }

    boost::shared_ptr<BoundedValueValidator<double>> limits = boost::make_shared<BoundedValueValidator<double>>(
        -360.0, 360.0, BoundedValueValidator<double>::LowerInclusive, BoundedValueValidator<double>::UpperInclusive);
    boost::shared_ptr<Property<double>> degrees = boost::make_shared<Property<double>>(90.0, limits);
    boost::shared_ptr<Property<ThetaMode_e>> unit = boost::make_shared<Property<ThetaMode_e>>(ThetaMode_Degrees);
    AngleDecorator shown{degrees, unit};
    std::vector<double> heard;
};

TEST_F(AngleDecoratorTest, ShowsDegreesAsTheyAre)
{
    EXPECT_EQ(shown.value(), 90.0);
    shown.setValue(30.7);
    EXPECT_EQ(degrees->value(), 30.7);
}

TEST_F(AngleDecoratorTest, ShowsAndTakesRadians)
{
    unit->setValue(ThetaMode_Radians);
    EXPECT_DOUBLE_EQ(shown.value(), pi / 2.0);
    shown.setValue(pi);
    EXPECT_DOUBLE_EQ(degrees->value(), 180.0);
}

TEST_F(AngleDecoratorTest, LeavesTheAngleAloneWhenTheUnitChanges)
{
    unit->setValue(ThetaMode_Radians);
    unit->setValue(ThetaMode_Degrees);
    EXPECT_EQ(degrees->value(), 90.0);
    EXPECT_EQ(shown.value(), 90.0);
}

TEST_F(AngleDecoratorTest, TellsTheNumberThatAnotherUnitMakes)
{
    unit->setValue(ThetaMode_Radians);
    EXPECT_THAT(heard, ElementsAre(DoubleEq(pi / 2.0)));
    unit->setValue(ThetaMode_Degrees);
    EXPECT_THAT(heard, ElementsAre(DoubleEq(pi / 2.0), 90.0));
}

TEST_F(AngleDecoratorTest, TellsASetOnce)
{
    shown.setValue(45.0);
    EXPECT_THAT(heard, ElementsAre(45.0));
    shown.setValue(45.0);
    EXPECT_THAT(heard, ElementsAre(45.0));
}

TEST_F(AngleDecoratorTest, TellsAChangeOfTheAngleInItsUnit)
{
    unit->setValue(ThetaMode_Radians);
    heard.clear();
    degrees->setValue(180.0);
    EXPECT_THAT(heard, ElementsAre(DoubleEq(pi)));
}

TEST_F(AngleDecoratorTest, TellsItsUntypedListenersToo)
{
    int changes = 0;
    shown.connectPropertyChanged([&changes] { ++changes; });
    shown.setValue(45.0);
    degrees->setValue(46.0);
    unit->setValue(ThetaMode_Radians);
    EXPECT_EQ(changes, 3);
}

TEST_F(AngleDecoratorTest, RefusesByTheLimitsOfTheAngleWithTheirWords)
{
    unit->setValue(ThetaMode_Radians);
    heard.clear();
    try {
        shown.setValue(7.0);
        FAIL() << "accepted";
    } catch (InvalidPropertyValueException const& refusal) {
        EXPECT_STREQ(refusal.what(), "The value must be greater than or equal to -360 and less than or equal to 360.");
    }
    EXPECT_EQ(degrees->value(), 90.0);
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_TRUE(shown.validator()->validate(6.0).isValid());
    EXPECT_FALSE(shown.validator()->validate(7.0).isValid());
}

TEST_F(AngleDecoratorTest, FollowsLimitsThatAreReplaced)
{
    limits->resetMinMaxValue(0.0, 10.0);
    EXPECT_FALSE(shown.validator()->validate(11.0).isValid());
}

TEST_F(AngleDecoratorTest, HasAValidatorThatOutlivesIt)
{
    boost::shared_ptr<ValidatorInterface<double> const> validator;
    {
        AngleDecorator const other(degrees, unit);
        validator = other.validator();
    }
    EXPECT_TRUE(validator->validate(360.0).isValid());
    EXPECT_FALSE(validator->validate(361.0).isValid());
}

TEST_F(AngleDecoratorTest, StopsListeningWhenItEnds)
{
    auto other = boost::make_shared<AngleDecorator>(degrees, unit);
    int changes = 0;
    other->connectPropertyChanged([&changes] { ++changes; });
    other.reset();
    degrees->setValue(1.0);
    unit->setValue(ThetaMode_Radians);
    EXPECT_EQ(changes, 0);
}

TEST_F(AngleDecoratorTest, TakesTheValueOnlyWhenAssigned)
{
    auto const otherDegrees = boost::make_shared<Property<double>>(10.0);
    AngleDecorator other(otherDegrees, unit);
    shown = other;
    EXPECT_EQ(degrees->value(), 10.0);
    shown.setValue(20.0);
    EXPECT_EQ(degrees->value(), 20.0);
    EXPECT_EQ(otherDegrees->value(), 10.0);
}

TEST(PropertyScalingDecorator, MultipliesOnTheWayOutAndDividesOnTheWayIn)
{
    auto const metres = boost::make_shared<Property<double>>(1.5);
    PropertyScalingDecorator<double> millimetres(metres, [] { return 1000.0; });
    EXPECT_EQ(millimetres.value(), 1500.0);
    millimetres.setValue(250.0);
    EXPECT_EQ(metres->value(), 0.25);
}

TEST(PropertyScalingDecorator, TellsTheValueInForceWhenAListenerOfTheDecoratedPropertyCorrectsIt)
{
    auto const metres = boost::make_shared<Property<double>>(1.0);
    PropertyScalingDecorator<double> millimetres(metres, [] { return 1000.0; });
    std::vector<double> heard;
    millimetres.connectValueChanged([&heard](double value) { heard.push_back(value); });
    metres->connectValueChanged([&metres](double value) {
        if (value > 2.0)
            metres->setValue(2.0);
    });
    millimetres.setValue(3000.0);
    EXPECT_EQ(millimetres.value(), 2000.0);
    EXPECT_THAT(heard, ElementsAre(2000.0));
}

} // namespace veldraw::tests
