#include "dialogs/property/Property.h"

#include "dialogs/property/AllowAnyValueValidator.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/PropertyAbstract.ipp"
#include "platform/exception/InvalidPropertyValueException.h"
#include "tests/dialogs/property/IgnoredSignals.h"

#include <boost/make_shared.hpp>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using IntBounds = BoundedValueValidator<int>;

boost::shared_ptr<IntBounds> oneToTen()
{
    return boost::make_shared<IntBounds>(1, 10, IntBounds::LowerInclusive, IntBounds::UpperInclusive);
}

// Writes down which of its steps ran, and rounds what it stores down to an even number.
class TracingProperty : public PropertyAbstract<int>
{
public:
    std::vector<std::string>& steps() { return m_steps; }

protected:
    void storeValue(int const& newValue) override
    {
        m_steps.push_back("store " + std::to_string(newValue));
        m_value = newValue - newValue % 2;
    }
    bool isEqual(int const& other) const override
    {
        m_steps.push_back("compare " + std::to_string(other));
        return PropertyAbstract<int>::isEqual(other);
    }
    void validate(int const& newValue) const override
    {
        m_steps.push_back("validate " + std::to_string(newValue));
        PropertyAbstract<int>::validate(newValue);
    }

private:
    int retrieveValue() const override { return m_value; }
    void emitValueChangedSignal(int const& newValue) const override
    {
        m_steps.push_back("signal " + std::to_string(newValue));
        signalValueChanged(newValue);
    }
    void signalValueChangedConnected() const override { m_steps.push_back("value slot connected"); }
    void signalPropertyChangedConnected() const override { m_steps.push_back("untyped slot connected"); }

    int m_value = 0;
    mutable std::vector<std::string> m_steps;
};

TEST(Property, StartsWithTheDefaultOfItsType)
{
    EXPECT_EQ(Property<int>().value(), 0);
    EXPECT_FALSE(Property<bool>().value());
    EXPECT_EQ(Property<std::string>().value(), "");
    EXPECT_EQ(Property<double>().value(), 0.0);
    EXPECT_EQ(Property<PtSelection_e>().value(), PtSelection_All);
}

TEST(Property, TakesAnInitialValueWithoutValidatingIt)
{
    Property<int> const property(99, oneToTen());
    EXPECT_EQ(property.value(), 99);
}

TEST(Property, TellsANewValueToItsListeners)
{
    Property<int> property(1);
    std::vector<int> heard;
    property.connectValueChanged([&](int value) { heard.push_back(value); });
    property.setValue(5);
    property = 6;
    EXPECT_THAT(heard, ElementsAre(5, 6));
    EXPECT_EQ(static_cast<int>(property), 6);
}

TEST(Property, DoesNotSignalAValueThatItHasAlready)
{
    Property<int> property(5);
    int signals = 0;
    property.connectValueChanged([&](int) { ++signals; });
    property.connectPropertyChanged([&] { ++signals; });
    property.setValue(5);
    property.setValue(5);
    EXPECT_EQ(signals, 0);
}

TEST(Property, RefusesAnInvalidValueAndStaysAsItWas)
{
    Property<int> property(4, oneToTen());
    int signals = 0;
    property.connectValueChanged([&](int) { ++signals; });
    try {
        property.setValue(11);
        ADD_FAILURE() << "11 was accepted";
    } catch (InvalidPropertyValueException const& refusal) {
        EXPECT_STREQ(refusal.what(), "The value must be greater than or equal to 1 and less than or equal to 10.");
    }
    EXPECT_EQ(property.value(), 4);
    EXPECT_EQ(signals, 0);
}

TEST(Property, RefusesAnInvalidValueEvenIfItHasItAlready)
{
    Property<int> property(99, oneToTen());
    EXPECT_THROW(property.setValue(99), InvalidPropertyValueException);
}

TEST(Property, UsesNewLimitsOfItsValidatorAtTheNextSet)
{
    auto const limits = oneToTen();
    Property<int> property(4, limits);
    limits->resetMinMaxValue(1, 20);
    property.setValue(11);
    EXPECT_EQ(property.value(), 11);
    EXPECT_THROW(property.setValue(21), InvalidPropertyValueException);
}

TEST(Property, HandsOutItsValidator)
{
    auto const limits = oneToTen();
    EXPECT_EQ(Property<int>(4, limits).validator(), limits);
    EXPECT_TRUE(Property<int>().validator()->validate(std::numeric_limits<int>::min()).isValid());
}

// Lets go of the property's owner while it judges, and then refuses.
class RefusingAtTheEnd : public virtual ValidatorInterface<int>
{
public:
    explicit RefusingAtTheEnd(bool& isAlive)
        : m_isAlive(isAlive)
    {
        m_isAlive = true;
    }
    ~RefusingAtTheEnd() override { m_isAlive = false; }
    ValidationResult validate(int const&) const override
    {
        property->reset();
        ValidationResult result;
        result.setErrorString(m_isAlive ? "refused" : "asked after its end");
        return result;
    }

    std::unique_ptr<Property<int>>* property = nullptr;

private:
    bool& m_isAlive;
};

TEST(Property, KeepsItsValidatorAliveWhileItIsAsked)
{
    bool isAlive = false;
    auto validator = boost::make_shared<RefusingAtTheEnd>(isAlive);
    auto property = std::make_unique<Property<int>>(1, validator);
    validator->property = &property;
    validator.reset();
    try {
        property->setValue(2);
        ADD_FAILURE() << "2 was accepted";
    } catch (InvalidPropertyValueException const& refusal) {
        EXPECT_STREQ(refusal.what(), "refused");
    }
    EXPECT_FALSE(isAlive);
}

TEST(Property, TellsTheValueThatWasReallyStored)
{
    TracingProperty property;
    std::vector<int> heard;
    property.connectValueChanged([&](int value) { heard.push_back(value); });
    property.setValue(7);
    EXPECT_THAT(heard, ElementsAre(6));
    EXPECT_EQ(property.value(), 6);
}

TEST(Property, ValidatesThenComparesThenStoresThenSignals)
{
    TracingProperty property;
    property.setValue(7);
    EXPECT_THAT(property.steps(), ElementsAre("validate 7", "compare 7", "store 7", "signal 6"));
    property.steps().clear();
    property.setValue(6);
    EXPECT_THAT(property.steps(), ElementsAre("validate 6", "compare 6"));
}

TEST(Property, RunsTheHookAfterEachConnectionFromOutsideOnly)
{
    TracingProperty property;
    EXPECT_THAT(property.steps(), IsEmpty());
    property.connectValueChanged(&ignoreValue);
    property.connectPropertyChanged(&ignoreSignal);
    EXPECT_THAT(property.steps(), ElementsAre("value slot connected", "untyped slot connected"));
}

TEST(Property, TellsUntypedListenersBeforeValueListenersThatStandAtTheBack)
{
    Property<int> property;
    std::vector<std::string> heard;
    property.connectValueChanged([&](int) { heard.emplace_back("back"); });
    property.connectValueChanged([&](int) { heard.emplace_back("front"); }, boost::signals2::at_front);
    property.connectPropertyChanged([&] { heard.emplace_back("untyped"); });
    property.connectPropertyChanged([&] { heard.emplace_back("untyped front"); }, boost::signals2::at_front);
    property.setValue(1);
    EXPECT_THAT(heard, ElementsAre("front", "untyped front", "untyped", "back"));
}

TEST(Property, CanBeListenedToWhenConst)
{
    Property<int> property;
    Property<int> const& readOnly = property;
    int signals = 0;
    readOnly.connectValueChanged([&](int) { ++signals; });
    readOnly.connectPropertyChanged([&] { ++signals; });
    property.setValue(1);
    EXPECT_EQ(signals, 2);
}

TEST(Property, AssignedFromAnotherTakesTheValueOnlyAndTellsItsOwnListeners)
{
    auto const limits = oneToTen();
    Property<int> left(1, limits);
    Property<int> right(7);
    int leftSignals = 0;
    int rightSignals = 0;
    left.connectValueChanged([&](int) { ++leftSignals; });
    right.connectValueChanged([&](int) { ++rightSignals; });
    left = right;
    EXPECT_EQ(left.value(), 7);
    EXPECT_EQ(left.validator(), limits);
    EXPECT_EQ(leftSignals, 1);
    EXPECT_EQ(rightSignals, 0);

    right.setValue(99);
    EXPECT_THROW(left = right, InvalidPropertyValueException);
    EXPECT_EQ(left.value(), 7);
}

TEST(Property, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Property<int>>);
    EXPECT_FALSE(std::is_copy_constructible_v<PropertyAbstract<int>>);
}

TEST(Property, OfASetReportsAChangeOnlyWhenTheSetDiffers)
{
    Property<std::set<int>> property;
    int signals = 0;
    property.connectValueChanged([&](std::set<int> const&) { ++signals; });
    property.setValue({});
    EXPECT_EQ(signals, 0);
    property.setValue({3, 1});
    property.setValue({1, 3});
    EXPECT_EQ(signals, 1);
    property.setValue({1});
    EXPECT_EQ(signals, 2);
}

TEST(Property, OfANumberNeverEqualsNotANumber)
{
    Property<double> property;
    int signals = 0;
    property.connectValueChanged([&](double) { ++signals; });
    property.setValue(std::nan(""));
    property.setValue(std::nan(""));
    EXPECT_EQ(signals, 2);
}

TEST(Property, ComparesNumbersExactly)
{
    Property<double> property(1.0);
    int signals = 0;
    property.connectValueChanged([&](double) { ++signals; });
    property.setValue(std::nextafter(1.0, 2.0));
    EXPECT_EQ(signals, 1);
}

} // namespace
} // namespace veldraw::tests
