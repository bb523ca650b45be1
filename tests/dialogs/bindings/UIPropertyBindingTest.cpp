#include "dialogs/bindings/QObjectPropertyBinding.h"
#include "dialogs/bindings/UIPropertyBindingAbstract.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/TestUIProperty.h"

#include <QCoreApplication>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;

/// Writes down what would be done to the widget: "value 3; visible 0; sensitive 1".
template <typename Base>
class Recorded : public Base
{
public:
    using Base::Base;
    using Base::startListeningToProperty;
    using Base::stopListeningToProperty;
    using Base::updateValueOnIdle;

    void updateWidgetValue() override
    {
        note("value " + std::to_string(this->property().value()));
        if (fails)
            throw std::runtime_error("");
    }
    void updateWidgetVisibility() override { note("visible " + std::to_string(this->uiProperty().isVisible())); }
    void updateWidgetSensitivity() override { note("sensitive " + std::to_string(this->uiProperty().isSensitive())); }

    std::string take() { return std::exchange(m_text, std::string()); }
    bool fails = false;

private:
    void note(std::string const& text) { m_text += (m_text.empty() ? "" : "; ") + text; }
    std::string m_text;
};

/// Both templates have the same road from the property to the widget.
template <typename Binding>
class UIPropertyBindingTest : public ::testing::Test
{
protected:
    using Mode = BindingInterface::WidgetUpdateMode_e;
    boost::shared_ptr<PropertyAbstract<int>> property = boost::make_shared<Property<int>>(0);
    TestUIProperty<int> uiProperty{0};
};

using Bindings = ::testing::Types<Recorded<UIPropertyBindingAbstract<int>>, Recorded<QObjectPropertyBinding<int>>>;
TYPED_TEST_SUITE(UIPropertyBindingTest, Bindings);

TYPED_TEST(UIPropertyBindingTest, WritesTheWidgetOnceAtIdleWithTheLastValue)
{
    TypeParam binding(this->property, BindingInterface::UpdateOnIdle);
    this->property->setValue(1);
    this->property->setValue(2);
    this->property->setValue(3);
    EXPECT_EQ(binding.take(), "");
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "value 3");
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "");
}

TYPED_TEST(UIPropertyBindingTest, WritesTheWidgetAtOnceInTheImmediateMode)
{
    TypeParam binding(this->property, BindingInterface::UpdateImmediately);
    EXPECT_EQ(binding.take(), "");
    this->property->setValue(1);
    this->property->setValue(2);
    EXPECT_EQ(binding.take(), "value 1; value 2");
    this->property->setValue(2);
    EXPECT_EQ(binding.take(), "");
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "");
}

TYPED_TEST(UIPropertyBindingTest, FollowsVisibilityAndSensitivityOfAUserInterfaceProperty)
{
    TypeParam binding(this->uiProperty, BindingInterface::UpdateOnIdle);
    this->uiProperty.setValue(5);
    this->uiProperty.setVisible(false);
    this->uiProperty.setVisible(true);
    this->uiProperty.setSensitive(false);
    EXPECT_EQ(binding.take(), "");
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "value 5; visible 1; sensitive 0");
}

TYPED_TEST(UIPropertyBindingTest, FollowsAllThreeAtOnceInTheImmediateMode)
{
    TypeParam binding(this->uiProperty, BindingInterface::UpdateImmediately);
    this->uiProperty.setSensitive(false);
    this->uiProperty.setVisible(false);
    this->uiProperty.setValue(5);
    EXPECT_EQ(binding.take(), "sensitive 0; visible 0; value 5");
}

TYPED_TEST(UIPropertyBindingTest, GivesTheVeryPropertyThatItWasMadeWith)
{
    TypeParam shared(this->property, BindingInterface::UpdateOnIdle);
    EXPECT_EQ(&shared.property(), this->property.get());
    TypeParam local(this->uiProperty, BindingInterface::UpdateOnIdle);
    EXPECT_EQ(&local.property(), &this->uiProperty);
    EXPECT_EQ(&local.uiProperty(), &this->uiProperty);
}

TYPED_TEST(UIPropertyBindingTest, MissesChangesWhileItDoesNotListen)
{
    TypeParam binding(this->property, BindingInterface::UpdateOnIdle);
    binding.stopListeningToProperty();
    this->property->setValue(1);
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "");
    binding.startListeningToProperty();
    this->property->setValue(2);
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "value 2");
}

TYPED_TEST(UIPropertyBindingTest, StillMakesAWriteThatWasPendingWhenItStoppedListening)
{
    TypeParam binding(this->property, BindingInterface::UpdateOnIdle);
    this->property->setValue(1);
    binding.stopListeningToProperty();
    this->property->setValue(2);
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "value 2");
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "");
}

TYPED_TEST(UIPropertyBindingTest, StopsListeningToVisibilityAndSensitivityToo)
{
    TypeParam binding(this->uiProperty, BindingInterface::UpdateImmediately);
    binding.stopListeningToProperty();
    this->uiProperty.setSensitive(false);
    this->uiProperty.setVisible(false);
    EXPECT_EQ(binding.take(), "");
}

TYPED_TEST(UIPropertyBindingTest, SchedulesAWriteWithoutAChangeOfTheProperty)
{
    TypeParam binding(this->property, BindingInterface::UpdateImmediately);
    binding.updateValueOnIdle();
    EXPECT_EQ(binding.take(), "");
    IdleDispatcher::flush();
    EXPECT_EQ(binding.take(), "value 0");
}

TYPED_TEST(UIPropertyBindingTest, MayGoWhileAllItsWritesArePending)
{
    auto binding = std::make_unique<TypeParam>(this->uiProperty, BindingInterface::UpdateOnIdle);
    this->uiProperty.setValue(1);
    this->uiProperty.setVisible(false);
    this->uiProperty.setSensitive(false);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 3);
    binding.reset();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    IdleDispatcher::flush();
    this->uiProperty.setValue(2);
}

TYPED_TEST(UIPropertyBindingTest, KeepsASharedPropertyAlive)
{
    boost::weak_ptr<PropertyAbstract<int>> const watch = this->property;
    auto binding = std::make_unique<TypeParam>(this->property, BindingInterface::UpdateOnIdle);
    this->property.reset();
    EXPECT_FALSE(watch.expired());
    binding.reset();
    EXPECT_TRUE(watch.expired());
}

TYPED_TEST(UIPropertyBindingTest, WritesNothingWhileALockIsHeld)
{
    TypeParam binding(this->property, BindingInterface::UpdateOnIdle);
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        this->property->setValue(1);
        IdleDispatcher::flush();
        QCoreApplication::processEvents();
        EXPECT_EQ(binding.take(), "");
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(binding.take(), "value 1");
}

TYPED_TEST(UIPropertyBindingTest, LetsOutWhatAWriteThrowsAndKeepsTheValue)
{
    TypeParam binding(this->property, BindingInterface::UpdateImmediately);
    binding.fails = true;
    EXPECT_THROW(this->property->setValue(1), std::runtime_error);
    EXPECT_EQ(this->property->value(), 1);
    binding.fails = false;
    this->property->setValue(2);
    EXPECT_EQ(binding.take(), "value 1; value 2");
}

TYPED_TEST(UIPropertyBindingTest, WritesNothingForARefusedValue)
{
    using Validator = BoundedValueValidator<int>;
    auto const bounded = boost::make_shared<Property<int>>(
        1, boost::make_shared<Validator>(0, 10, Validator::LowerInclusive, Validator::UpperInclusive));
    TypeParam binding(boost::shared_ptr<PropertyAbstract<int>>(bounded), BindingInterface::UpdateImmediately);
    EXPECT_THROW(bounded->setValue(11), InvalidPropertyValueException);
    EXPECT_EQ(binding.take(), "");
}

TEST(QObjectPropertyBinding, FollowsAPropertyThatItMayOnlyRead)
{
    auto const property = boost::make_shared<Property<int>>(0);
    Recorded<QObjectPropertyBinding<int>> binding(boost::shared_ptr<PropertyAbstract<int> const>(property),
                                                  BindingInterface::UpdateImmediately);
    property->setValue(4);
    EXPECT_EQ(binding.take(), "value 4");
}

TEST(UIPropertyBinding, ConnectsTheValueSignalOnlyWhenMadeWithASharedPointer)
{
    class Counting : public TestUIProperty<int>
    {
    public:
        mutable std::string hooks;

    private:
        void signalValueChangedConnected() const override { hooks += "value "; }
        void signalVisibilityChangedConnected() const override { hooks += "visibility "; }
        void signalSensitivityChangedConnected() const override { hooks += "sensitivity "; }
    };
    auto const property = boost::make_shared<Counting>();
    Recorded<UIPropertyBindingAbstract<int>> const shared(boost::shared_ptr<PropertyAbstract<int>>(property),
                                                          BindingInterface::UpdateImmediately);
    EXPECT_EQ(property->hooks, "value ");
    property->hooks.clear();
    Recorded<UIPropertyBindingAbstract<int>> const local(*property, BindingInterface::UpdateImmediately);
    EXPECT_EQ(property->hooks, "value visibility sensitivity ");
}

} // namespace
} // namespace veldraw::tests
