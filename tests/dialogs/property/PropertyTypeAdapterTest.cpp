#include "dialogs/property/PropertyTypeAdapter.h"

#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "tests/dialogs/property/RefusalOf.h"

#include <boost/function/function_base.hpp>
#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <vector>

namespace veldraw::tests {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// How many copies fill a circle at an angle of so many degrees, and the other way round.
int toSegments(double angle)
{
    return static_cast<int>(360.0 / angle + 0.5);
}

double toAngle(int segments)
{
    return 360.0 / segments;
}

} // namespace

class SegmentsAdapterTest : public testing::Test
{
protected:
    using Limits = BoundedValueValidator<double>;

    SegmentsAdapterTest()
    {
        segments.connectValueChanged([this](int value) { heard.push_back(value); });
    }

    boost::shared_ptr<Property<double>> angle = boost::make_shared<Property<double>>(
        90.0, boost::make_shared<Limits>(10.0, 180.0, Limits::LowerInclusive, Limits::UpperInclusive));
    PropertyTypeAdapter<int, double> segments{angle, &toSegments, &toAngle};
    std::vector<int> heard;
};

TEST_F(SegmentsAdapterTest, ConvertsInBothDirections)
{
    EXPECT_EQ(segments.value(), 4);
    segments.setValue(6);
    EXPECT_EQ(angle->value(), 60.0);
}

TEST_F(SegmentsAdapterTest, TellsASetOnce)
{
    segments.setValue(6);
    EXPECT_THAT(heard, ElementsAre(6));
}

TEST_F(SegmentsAdapterTest, TellsNothingOfAnEqualValue)
{
    segments.setValue(4);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(SegmentsAdapterTest, TellsAChangeOfTheInnerPropertyConverted)
{
    angle->setValue(30.0);
    EXPECT_THAT(heard, ElementsAre(12));
}

TEST_F(SegmentsAdapterTest, TellsItsUntypedListenersToo)
{
    int changes = 0;
    segments.connectPropertyChanged([&changes] { ++changes; });
    angle->setValue(30.0);
    segments.setValue(6);
    EXPECT_EQ(changes, 2);
}

TEST_F(SegmentsAdapterTest, RefusesByTheLimitsOfTheInnerPropertyWithTheirWords)
{
    EXPECT_EQ(refusalOf(segments, 100), "The value must be greater than or equal to 10 and less than or equal to 180.");
    EXPECT_EQ(angle->value(), 90.0);
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_FALSE(segments.validator()->validate(100).isValid());
    EXPECT_TRUE(segments.validator()->validate(3).isValid());
}

TEST_F(SegmentsAdapterTest, TellsTheValueInForceWhenTheInnerPropertyGetsAnotherOne)
{
    angle->connectValueChanged([this](double) { angle->setValue(45.0); });
    segments.setValue(6);
    EXPECT_THAT(heard, ElementsAre(8));
}

TEST_F(SegmentsAdapterTest, CallsAFailureWhileStoringAnInvalidValue)
{
    angle->connectValueChanged([](double value) {
        if (value < 80.0)
            throw ExceptionBase("a listener's own words");
    });
    EXPECT_EQ(refusalOf(segments, 6), "Invalid value.");
}

TEST_F(SegmentsAdapterTest, PassesOtherExceptionsOn)
{
    angle->connectValueChanged([](double value) {
        if (value < 80.0)
            throw std::runtime_error("listener");
    });
    EXPECT_THROW(segments.setValue(6), std::runtime_error);
    heard.clear();
    angle->setValue(120.0);
    EXPECT_THAT(heard, ElementsAre(3)); // it hears the inner property again
}

TEST_F(SegmentsAdapterTest, ThrowsForConversionsThatAreNotThere)
{
    PropertyTypeAdapter<int, double> const noOuter(angle, {}, &toAngle);
    EXPECT_THROW(noOuter.value(), boost::bad_function_call);
    PropertyTypeAdapter<int, double> noInner(angle, &toSegments, {});
    EXPECT_THROW(noInner.setValue(3), boost::bad_function_call);
    EXPECT_EQ(noInner.value(), 4);
}

TEST_F(SegmentsAdapterTest, StopsListeningWhenItEnds)
{
    auto other = boost::make_shared<PropertyTypeAdapter<int, double>>(angle, &toSegments, &toAngle);
    int changes = 0;
    other->connectPropertyChanged([&changes] { ++changes; });
    other.reset();
    angle->setValue(30.0);
    EXPECT_EQ(changes, 0);
}

TEST_F(SegmentsAdapterTest, TakesTheValueOnlyWhenAssigned)
{
    auto const otherAngle = boost::make_shared<Property<double>>(120.0);
    PropertyTypeAdapter<int, double> other(otherAngle, &toSegments, &toAngle);
    segments = other;
    EXPECT_EQ(angle->value(), 120.0);
    segments = 4;
    EXPECT_EQ(angle->value(), 90.0);
    EXPECT_EQ(otherAngle->value(), 120.0);
}

class TextAdapterTest : public testing::Test
{
protected:
    using Limits = BoundedValueValidator<long long>;

    boost::shared_ptr<Property<long long>> number = boost::make_shared<Property<long long>>(
        5, boost::make_shared<Limits>(1, 9007199254740993, Limits::LowerInclusive, Limits::UpperInclusive));
    PropertyTypeAdapter<std::string, long long> text{number, &wholeNumberToText, &textToWholeNumber};
};

TEST_F(TextAdapterTest, ConvertsInBothDirections)
{
    EXPECT_EQ(text.value(), "5");
    text.setValue("9007199254740993");
    EXPECT_EQ(number->value(), 9007199254740993);
    EXPECT_EQ(text.value(), "9007199254740993");
}

TEST_F(TextAdapterTest, TellsTheTextOfTheNumberThatIsInForce)
{
    std::vector<std::string> heard;
    text.connectValueChanged([&heard](std::string const& value) { heard.push_back(value); });
    text.setValue("007");
    EXPECT_THAT(heard, ElementsAre("7"));
}

TEST_F(TextAdapterTest, CallsATextThatIsNoNumberAnInvalidValue)
{
    for (std::string const wrong : {"", " ", "x", "1.5", "12 ", " 12", "1e3", "9223372036854775808"}) {
        EXPECT_EQ(refusalOf(text, wrong), "Invalid value.") << wrong;
        EXPECT_EQ(text.validator()->validate(wrong).errorString(), "Invalid value.") << wrong;
    }
    EXPECT_EQ(number->value(), 5);
}

TEST_F(TextAdapterTest, RefusesANumberBeyondTheLimitsWithTheirWords)
{
    EXPECT_EQ(refusalOf(text, std::string("0")),
              "The value must be greater than or equal to 1 and less than or equal to 9007199254740993.");
}

TEST(TextConversions, ThrowWithoutAText)
{
    try {
        textToWholeNumber("x");
        FAIL() << "converted";
    } catch (ExceptionBase const& failure) {
        EXPECT_EQ(failure.message(), "");
    }
    EXPECT_EQ(textToWholeNumber("-12"), -12);
    EXPECT_EQ(wholeNumberToText(-12), "-12");
}

} // namespace veldraw::tests
