#include "dialogs/property/AllowAnyValueValidator.h"
#include "dialogs/property/AngleSpinBoxIncDecCalculator.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/FormattingPrecisionValidator.h"
#include "dialogs/property/IJKSpinBoxIncDecCalculator.h"
#include "dialogs/property/KernelPropertyAbstract.h"
#include "dialogs/property/UIKernelStylePropertiesAbstract.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "tests/dialogs/library/ApplicationProperty.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;

/// Values that differ from those that a property begins with.
template <typename Held>
struct Values
{
    static Held other() { return static_cast<Held>(1); }
};
template <>
struct Values<std::string>
{
    static std::string other() { return "text"; }
};
template <>
struct Values<std::set<int>>
{
    static std::set<int> other() { return {2, 5}; }
};

template <typename T>
class ExportedProperty : public ::testing::Test
{
};
using SharedTypes =
    ::testing::Types<bool, int, long long, double, std::string, std::set<int>, IJKPlanes_e, PtSelection_e, ThetaMode_e>;
TYPED_TEST_SUITE(ExportedProperty, SharedTypes);

TYPED_TEST(ExportedProperty, IsABaseForPropertiesOfTheApplication)
{
    ApplicationProperty<TypeParam> property;
    int typed = 0, untyped = 0;
    property.connectValueChanged([&typed](TypeParam const&) { ++typed; });
    PropertyItemInterface const& item = property;
    item.connectPropertyChanged([&untyped] { ++untyped; });
    property.setValue(Values<TypeParam>::other());
    property = Values<TypeParam>::other();
    EXPECT_EQ(property.value(), Values<TypeParam>::other());
    EXPECT_EQ(typed, 1);
    EXPECT_EQ(untyped, 1);
    ApplicationProperty<TypeParam> assigned;
    static_cast<PropertyAbstract<TypeParam>&>(assigned) = property;
    EXPECT_EQ(static_cast<TypeParam>(assigned), Values<TypeParam>::other());
    EXPECT_TRUE(assigned.validator()->validate(property).isValid());
}

TYPED_TEST(ExportedProperty, TakesValidatorsOfTheApplication)
{
    class Never : public virtual ValidatorInterface<TypeParam>
    {
    public:
        ValidationResult validate(TypeParam const&) const override
        {
            ValidationResult result;
            result.setErrorString("Never.");
            return result;
        }
    };
    ApplicationProperty<TypeParam> closed(boost::make_shared<Never>());
    EXPECT_THROW(closed.setValue(Values<TypeParam>::other()), InvalidPropertyValueException);
    EXPECT_EQ(closed.validator()->validate({}).errorString(), "Never.");
    ApplicationProperty<TypeParam> open(boost::make_shared<AllowAnyValueValidator<TypeParam>>());
    EXPECT_NO_THROW(open.setValue(Values<TypeParam>::other()));
}

TYPED_TEST(ExportedProperty, HasAFormWithVisibilityAndSensitivity)
{
    ApplicationUIProperty<TypeParam> property{TypeParam{}};
    UIPropertyInterface& state = property;
    state.setVisible(false);
    state.setSensitive(false);
    EXPECT_FALSE(property.isVisible());
    EXPECT_FALSE(property.isSensitive());
    property.setValue(Values<TypeParam>::other());
    EXPECT_EQ(property.value(), Values<TypeParam>::other());
}

template <typename T>
class ExportedBounds : public ::testing::Test
{
};
using BoundedTypes = ::testing::Types<int, long long, double>;
TYPED_TEST_SUITE(ExportedBounds, BoundedTypes);

TYPED_TEST(ExportedBounds, LimitPropertiesOfTheApplication)
{
    using Bounds = BoundedValueValidator<TypeParam>;
    auto const bounds =
        boost::make_shared<Bounds>(TypeParam{0}, TypeParam{10}, Bounds::LowerInclusive, Bounds::UpperInclusive);
    ApplicationProperty<TypeParam> property(bounds);
    EXPECT_NO_THROW(property.setValue(TypeParam{5}));
    bounds->resetMinMaxValue(TypeParam{2}, TypeParam{4});
    EXPECT_EQ(bounds->minValue(), TypeParam{2});
    EXPECT_EQ(bounds->maxValue(), TypeParam{4});
    EXPECT_FALSE(bounds->validate(TypeParam{5}).isValid());
    EXPECT_THROW(property.setValue(TypeParam{7}), InvalidPropertyValueException);
}

TEST(ExportedValidators, HaveThePrecisionOfNumbers)
{
    FormattingPrecisionValidator const precision;
    EXPECT_TRUE(precision.validate(3).isValid());
    EXPECT_FALSE(precision.validate(-1).isValid());
}

/// A property of the application's own that has an address in a style tree.
template <typename T>
class AddressedProperty : public sdk::styleproperties::KernelPropertyAbstract<T>
{
public:
    void setOffsets(long long offset1, long long offset2) override { offsets = {offset1, offset2}; }
    std::pair<long long, long long> offsets;

protected:
    void storeValue(T const& newValue) override { m_value = newValue; }

private:
    T retrieveValue() const override { return m_value; }

    T m_value{};
};

template <typename T>
void expectUsableAsAKernelProperty(T const& value)
{
    AddressedProperty<T> property;
    sdk::styleproperties::KernelPropertyAbstract<T>& base = property;
    base.setOffsets(3, -1);
    EXPECT_EQ(property.offsets.first, 3);
    base.setValue(value);
    AddressedProperty<T> other;
    static_cast<sdk::styleproperties::KernelPropertyAbstract<T>&>(other) = base;
    EXPECT_EQ(other.value(), value);
}

TEST(ExportedKernelProperties, AreBasesForPropertiesOfTheApplication)
{
    expectUsableAsAKernelProperty(2.5);
    expectUsableAsAKernelProperty(7LL);
    expectUsableAsAKernelProperty(PtSelection_Octant);
}

TEST(ExportedKernelProperties, FormGroupsThatAreSubmittedTogether)
{
    class Group : public UIKernelStylePropertiesAbstract
    {
    public:
        using UIKernelStylePropertiesAbstract::addSubmission;
        using UIKernelStylePropertiesAbstract::UIKernelStylePropertiesAbstract;
    };
    Group parent(true, nullptr);
    Group child(true, &parent);
    int submitted = 0;
    child.addSubmission([&submitted] { ++submitted; });
    UIKernelStylePropertiesInterface& group = parent;
    group.connectSubmitted([&submitted] { submitted += 10; });
    group.init();
    group.setCollectionOffset(4);
    group.submit();
    EXPECT_EQ(submitted, 11);
    EXPECT_EQ(group.collectionOffset(), 4);
    EXPECT_EQ(child.parent(), &group);
    EXPECT_TRUE(child.isModal());
}

TEST(ExportedCalculators, StepAnglesAndIndices)
{
    AngleSpinBoxIncDecCalculator angle(boost::make_shared<ApplicationProperty<ThetaMode_e>>());
    SpinBoxIncDecCalculatorBase& base = angle;
    EXPECT_GT(base.increment(10.0), 10.0);
    IJKSpinBoxIncDecCalculator index(boost::make_shared<ApplicationProperty<IJKPlanes_e>>(),
                                     boost::make_shared<ApplicationProperty<int>>(1),
                                     boost::make_shared<ApplicationProperty<int>>(1));
    EXPECT_EQ(index.decrement(1.0), 1.0);

    class Doubling : public SpinBoxIncDecCalculatorBase
    {
    protected:
        double delta() override { return 2.0; }
    };
    EXPECT_EQ(Doubling().decrement(5.0), 3.0);
}

} // namespace
} // namespace veldraw::tests
