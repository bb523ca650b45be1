#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/FieldWindow.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using testing::IsEmpty;

/// A binding that may end at any moment.
class TextFieldLifetime : public ::testing::Test
{
protected:
    using Validator = BoundedValueValidator<int>;

    FieldWindow window;
    boost::shared_ptr<Property<int>> property = boost::make_shared<Property<int>>(
        1, boost::make_shared<Validator>(0, 10, Validator::LowerInclusive, Validator::UpperInclusive));
    std::unique_ptr<TextFieldPropertyBinding<int>> binding =
        std::make_unique<TextFieldPropertyBinding<int>>(window.field, property);
};

TEST_F(TextFieldLifetime, EndsWithAWritePending)
{
    property->setValue(2);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 1);
    binding.reset();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    EXPECT_EQ(window.shown(), "1");
}

TEST_F(TextFieldLifetime, TakesNothingAfterItsEnd)
{
    binding.reset();
    window.type("5");
    window.press(Qt::Key_Tab);
    EXPECT_EQ(property->value(), 1);
}

TEST_F(TextFieldLifetime, KeepsASharedPropertyAlive)
{
    boost::weak_ptr<Property<int>> const watch = property;
    property.reset();
    EXPECT_FALSE(watch.expired());
    window.enter("5");
    EXPECT_EQ(watch.lock()->value(), 5);
    binding.reset();
    EXPECT_TRUE(watch.expired());
}

TEST_F(TextFieldLifetime, MayEndInTheSignalOfItsProperty)
{
    property->connectValueChanged([this](int) { binding.reset(); });
    window.enter("5");
    EXPECT_EQ(property->value(), 5);
    EXPECT_EQ(window.shown(), "5");
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(TextFieldLifetime, MayEndWithTheLastHoldOnItsPropertyInTheSignal)
{
    boost::weak_ptr<Property<int>> const watch = property;
    bool wasAliveInItsSignal = false;
    property->connectValueChanged([this, &watch, &wasAliveInItsSignal](int) {
        binding.reset();
        property.reset();
        wasAliveInItsSignal = !watch.expired();
    });
    window.enter("5");
    EXPECT_TRUE(wasAliveInItsSignal);
    EXPECT_TRUE(watch.expired());
}

TEST_F(TextFieldLifetime, MayEndWhileARefusalIsRead)
{
    for (Qt::Key const key : {Qt::Key_Return, Qt::Key_Tab}) {
        binding = std::make_unique<TextFieldPropertyBinding<int>>(window.field, property);
        auto const previous = host::MessagePresenter::install([this](auto const&...) { binding.reset(); });
        window.type("11");
        window.press(key);
        host::MessagePresenter::install(previous);
        EXPECT_FALSE(binding);
        EXPECT_EQ(property->value(), 1);
    }
}

TEST_F(TextFieldLifetime, OutlivesItsField)
{
    auto* const field = new QLineEdit(&window.dialog);
    TextFieldPropertyBinding<int> other(field, property);
    delete field;
    property->setValue(3);
    IdleDispatcher::flush();
    other.updateWidgetValue();
    other.setDisplayMode(0);
    EXPECT_EQ(window.shown(), "3");
}

TEST_F(TextFieldLifetime, TakesNothingFromAFieldThatIsDeletedWithTheFocus)
{
    auto* const field = new QLineEdit(&window.dialog);
    field->show();
    TextFieldPropertyBinding<int> const other(field, property);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("5"));
    ASSERT_TRUE(field->hasFocus());
    delete field;
    EXPECT_EQ(property->value(), 1);
}

TEST_F(TextFieldLifetime, MayLoseItsFieldInTheSignalOfItsProperty)
{
    auto* const field = new QLineEdit(&window.dialog);
    field->show();
    TextFieldPropertyBinding<int> const other(field, property);
    property->connectValueChanged([field](int) { delete field; });
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("5"));
    window.after->setFocus();
    EXPECT_EQ(property->value(), 5);
    EXPECT_TRUE(window.after->hasFocus());
}

TEST_F(TextFieldLifetime, MayLoseItsFieldWhileARefusalIsRead)
{
    auto* const field = new QLineEdit(&window.dialog);
    field->show();
    TextFieldPropertyBinding<int> const other(field, property);
    auto const previous = host::MessagePresenter::install([field](auto const&...) { delete field; });
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("11"));
    window.after->setFocus();
    host::MessagePresenter::install(previous);
    EXPECT_EQ(property->value(), 1);
    EXPECT_TRUE(window.after->hasFocus());
}

TEST_F(TextFieldLifetime, IgnoresThatAListenerMovesTheFocus)
{
    int changes = 0;
    property->connectValueChanged([this, &changes](int) {
        ++changes;
        window.after->setFocus();
    });
    window.enter("5");
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(window.after->hasFocus());
}

TEST_F(TextFieldLifetime, IgnoresThatAListenerDisablesOrHidesTheField)
{
    property->connectValueChanged([this](int value) {
        window.field->setEnabled(value != 5);
        window.field->setVisible(value != 6);
    });
    window.enter("5");
    EXPECT_EQ(property->value(), 5);
    window.field->setEnabled(true);
    window.enter("6");
    EXPECT_EQ(property->value(), 6);
    EXPECT_EQ(window.shown(), "6");
}

TEST_F(TextFieldLifetime, ShowsWhatAListenerMadeOfTheValue)
{
    property->connectValueChanged([this](int value) {
        if (value == 5)
            property->setValue(6);
    });
    window.enter("5");
    EXPECT_EQ(property->value(), 6);
    EXPECT_EQ(window.shown(), "6");
}

TEST_F(TextFieldLifetime, ReleasesTheLockWhenAListenerThrows)
{
    property->connectValueChanged([this](int) { throw std::runtime_error(property->value() == 5 ? "five" : ""); });
    window.type("5");
    EXPECT_THROW(window.leave(), std::runtime_error);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    EXPECT_EQ(property->value(), 5);
    IdleDispatcher::flush();
    EXPECT_EQ(window.shown(), "5");
}

/// A field beside the button that uses its value.
class TextFieldBesideAButton : public TextFieldLifetime
{
protected:
    int uses = 0;
    ButtonBinding const use{*window.button, [this] {
                                ++uses;
                                used = property->value();
                            }};
    int used = 0;
};

TEST_F(TextFieldBesideAButton, IsTakenBeforeTheButtonsFunctionRuns)
{
    window.type("5");
    QTest::mouseClick(window.button, Qt::LeftButton);
    EXPECT_EQ(used, 5);
    IdleDispatcher::flush();
    window.type("6");
    QTest::keyClick(window.field, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return uses == 2; })); // a mnemonic presses the button for a moment
    EXPECT_EQ(used, 6);
}

TEST_F(TextFieldBesideAButton, KeepsTheButtonsFunctionFromRunningWhenItIsRefused)
{
    window.type("11");
    QTest::keyClick(window.field, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.clicks == 1; }));
    EXPECT_EQ(uses, 0);
    EXPECT_EQ(window.messages.take().size(), 1u);
    EXPECT_TRUE(window.field->hasFocus());
}

TEST_F(TextFieldBesideAButton, KeepsAClickFromTheButtonWhenItIsRefused)
{
    for (char const* const text : {"11", "-"}) {
        window.type(text);
        QTest::mouseClick(window.button, Qt::LeftButton);
        EXPECT_EQ(uses, 0) << text;
        EXPECT_TRUE(window.field->hasFocus()) << text;
        EXPECT_FALSE(window.button->isDown()) << text;
    }
    QTest::mouseClick(window.button, Qt::LeftButton);
    EXPECT_EQ(used, 1);
    EXPECT_EQ(uses, 1);
}

} // namespace
} // namespace veldraw::tests
