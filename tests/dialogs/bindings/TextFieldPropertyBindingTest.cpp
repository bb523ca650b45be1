#include "dialogs/bindings/TextFieldPropertyBinding.h"

#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/UILocalStyleProperty.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/FieldWindow.h"
#include "tests/dialogs/bindings/TestUIProperty.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using testing::ElementsAre;
using testing::IsEmpty;

/// One type's texts: what a field shows at first, and what is then typed.
template <typename T>
struct Sample;
template <>
struct Sample<int>
{
    static int start() { return -3; }
    static int typed() { return 12; }
    static char const* startText() { return "-3"; }
    static char const* typedText() { return "12"; }
};
template <>
struct Sample<long long>
{
    static long long start() { return 4611686018427387903LL; }
    static long long typed() { return 2147483647; }
    static char const* startText() { return "4611686018427387903"; }
    static char const* typedText() { return "2147483647"; }
};
template <>
struct Sample<double>
{
    static double start() { return 0.5; }
    static double typed() { return -2.5e-7; }
    static char const* startText() { return "0.5"; }
    static char const* typedText() { return "-2.5e-07"; }
};
template <>
struct Sample<std::string>
{
    static std::string start() { return "\xC3\x84rger 100%"; }
    static std::string typed() { return " %1% x"; }
    static char const* startText() { return "\xC3\x84rger 100%"; }
    static char const* typedText() { return " %1% x"; }
};

template <typename T>
class TextFieldPropertyBindingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        property->connectValueChanged([this](T const& value) { told.push_back(value); });
    }

    FieldWindow window;
    boost::shared_ptr<PropertyAbstract<T>> const property = boost::make_shared<Property<T>>(Sample<T>::start());
    TextFieldPropertyBinding<T> binding{window.field, property};
    std::vector<T> told;
};

using Bound = ::testing::Types<int, long long, double, std::string>;
TYPED_TEST_SUITE(TextFieldPropertyBindingTest, Bound);

TYPED_TEST(TextFieldPropertyBindingTest, ShowsTheValueAtOnce)
{
    EXPECT_EQ(this->window.shown(), Sample<TypeParam>::startText());
    EXPECT_FALSE(this->window.field->isModified());
    EXPECT_THAT(this->told, IsEmpty());
}

TYPED_TEST(TextFieldPropertyBindingTest, FollowsThePropertyAtIdleOnly)
{
    this->property->setValue(Sample<TypeParam>::typed());
    EXPECT_EQ(this->window.shown(), Sample<TypeParam>::startText());
    IdleDispatcher::flush();
    EXPECT_EQ(this->window.shown(), Sample<TypeParam>::typedText());
    EXPECT_THAT(this->told, ElementsAre(Sample<TypeParam>::typed()));
}

TYPED_TEST(TextFieldPropertyBindingTest, TakesNothingWhileTheUserTypes)
{
    this->window.type(Sample<TypeParam>::typedText());
    IdleDispatcher::flush();
    EXPECT_THAT(this->told, IsEmpty());
    EXPECT_EQ(this->window.shown(), Sample<TypeParam>::typedText());
}

TYPED_TEST(TextFieldPropertyBindingTest, TakesTheTextOnReturnOnce)
{
    this->window.enter(Sample<TypeParam>::typedText());
    EXPECT_THAT(this->told, ElementsAre(Sample<TypeParam>::typed()));
    EXPECT_EQ(this->property->value(), Sample<TypeParam>::typed());
    EXPECT_EQ(this->window.shown(), Sample<TypeParam>::typedText());
    EXPECT_TRUE(this->window.field->hasFocus());
    this->window.press(Qt::Key_Tab);
    IdleDispatcher::flush();
    EXPECT_EQ(this->told.size(), 1u);
    EXPECT_EQ(this->window.clicks, 0);
    EXPECT_THAT(this->window.messages.take(), IsEmpty());
}

TYPED_TEST(TextFieldPropertyBindingTest, TakesTheTextOnTabAndOnAClickElsewhere)
{
    this->window.type(Sample<TypeParam>::typedText());
    this->window.press(Qt::Key_Tab);
    EXPECT_THAT(this->told, ElementsAre(Sample<TypeParam>::typed()));
    EXPECT_TRUE(this->window.after->hasFocus());
    this->property->setValue(Sample<TypeParam>::start());
    IdleDispatcher::flush();
    this->told.clear();
    this->window.type(Sample<TypeParam>::typedText());
    QTest::mouseClick(this->window.before, Qt::LeftButton);
    EXPECT_THAT(this->told, ElementsAre(Sample<TypeParam>::typed()));
    EXPECT_TRUE(this->window.before->hasFocus());
}

TYPED_TEST(TextFieldPropertyBindingTest, TakesATextThatWasPutInByTheProgramOnReturn)
{
    this->window.field->setText(QString::fromUtf8(Sample<TypeParam>::typedText()));
    EXPECT_THAT(this->told, IsEmpty());
    this->window.field->setFocus();
    this->window.press(Qt::Key_Tab);
    EXPECT_THAT(this->told, IsEmpty());
    this->window.press(Qt::Key_Enter);
    EXPECT_THAT(this->told, ElementsAre(Sample<TypeParam>::typed()));
}

TYPED_TEST(TextFieldPropertyBindingTest, TellsNothingOfATextThatWasTypedAgain)
{
    this->property->setValue(Sample<TypeParam>::typed());
    IdleDispatcher::flush();
    this->told.clear();
    this->window.enter(Sample<TypeParam>::typedText());
    this->window.enter(Sample<TypeParam>::typedText());
    this->window.press(Qt::Key_Tab);
    EXPECT_THAT(this->told, IsEmpty());
    EXPECT_EQ(this->window.shown(), Sample<TypeParam>::typedText());
}

TYPED_TEST(TextFieldPropertyBindingTest, TakesTheTextUnderTheLock)
{
    int depth = 0;
    this->property->connectValueChanged([&depth](TypeParam const&) { depth = sdk::AppLock::depth(); });
    this->window.enter(Sample<TypeParam>::typedText());
    EXPECT_EQ(depth, 1);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TYPED_TEST(TextFieldPropertyBindingTest, FollowsVisibilityAndSensitivityOfAUserInterfaceProperty)
{
    TestUIProperty<TypeParam> switched(Sample<TypeParam>::start());
    switched.setVisible(false);
    switched.setSensitive(false);
    TextFieldPropertyBinding<TypeParam> const bindingOfIt(this->window.after, switched);
    EXPECT_EQ(this->window.after->text().toStdString(), Sample<TypeParam>::startText());
    EXPECT_FALSE(this->window.after->isVisible());
    EXPECT_FALSE(this->window.after->isEnabled());
    switched.setVisible(true);
    EXPECT_FALSE(this->window.after->isVisible());
    IdleDispatcher::flush();
    EXPECT_TRUE(this->window.after->isVisible());
    EXPECT_FALSE(this->window.after->isEnabled());
    switched.setVisible(false);
    switched.setSensitive(true);
    EXPECT_FALSE(this->window.after->isEnabled());
    IdleDispatcher::flush();
    EXPECT_FALSE(this->window.after->isVisible());
    EXPECT_TRUE(this->window.after->isEnabled());
    switched.setVisible(true);
    IdleDispatcher::flush();
    this->window.after->setFocus();
    this->window.after->selectAll();
    QTest::keyClicks(this->window.after, QString::fromUtf8(Sample<TypeParam>::typedText()));
    QTest::keyClick(this->window.after, Qt::Key_Return);
    EXPECT_EQ(switched.value(), Sample<TypeParam>::typed());
}

TYPED_TEST(TextFieldPropertyBindingTest, SharesAPropertyWithASecondField)
{
    TextFieldPropertyBinding<TypeParam> const second(this->window.after, this->property);
    this->window.enter(Sample<TypeParam>::typedText());
    EXPECT_EQ(this->window.after->text().toStdString(), Sample<TypeParam>::startText());
    IdleDispatcher::flush();
    EXPECT_EQ(this->window.after->text().toStdString(), Sample<TypeParam>::typedText());
    EXPECT_EQ(this->told.size(), 1u);
}

/// What a number field shows of a value, and what a value becomes when the user leaves it alone.
class NumberField : public ::testing::Test
{
protected:
    FieldWindow window;
    boost::shared_ptr<Property<double>> const property = boost::make_shared<Property<double>>(0.123456789);
    TextFieldPropertyBinding<double> binding{window.field, property};
};

TEST_F(NumberField, ShowsSixDigits)
{
    EXPECT_EQ(window.shown(), "0.123457");
    property->setValue(1e6);
    IdleDispatcher::flush();
    EXPECT_EQ(window.shown(), "1e+06");
}

TEST_F(NumberField, ShowsWhatTheValueIsAndNotWhatWasTyped)
{
    property->setValue(1.5);
    int changes = 0;
    property->connectValueChanged([&changes](double) { ++changes; });
    for (char const* const text : {"1.50", "1.5e0", "+1.5", "15e-1", "01.5"}) {
        window.enter(text);
        EXPECT_EQ(window.shown(), "1.5") << text;
    }
    EXPECT_EQ(changes, 0);
}

TEST_F(NumberField, NeverRoundsAValueThatTheUserLeavesAlone)
{
    int changes = 0;
    property->connectValueChanged([&changes](double) { ++changes; });
    window.field->setFocus();
    window.press(Qt::Key_Tab);
    window.field->setFocus();
    window.press(Qt::Key_Return);
    window.press(Qt::Key_Enter);
    QTest::mouseClick(window.button, Qt::LeftButton);
    IdleDispatcher::flush();
    EXPECT_EQ(property->value(), 0.123456789);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(window.shown(), "0.123457");
}

TEST_F(NumberField, TakesTheShownTextAsItStandsWhenItIsTyped)
{
    for (Qt::Key const end : {Qt::Key_Return, Qt::Key_Tab}) {
        property->setValue(0.123456789);
        IdleDispatcher::flush();
        window.type("0.123457");
        window.press(end);
        EXPECT_EQ(property->value(), 0.123457);
    }
    property->setValue(0.123456789);
    IdleDispatcher::flush();
    window.enter(" 0.123457 ");
    EXPECT_EQ(property->value(), 0.123457) << "blanks around it make no difference";
    property->setValue(0.123456789);
    IdleDispatcher::flush();
    window.type("0.12345");
    QTest::keyClicks(window.field, QStringLiteral("7"));
    window.press(Qt::Key_Return);
    EXPECT_EQ(property->value(), 0.123457);
}

TEST_F(NumberField, DropsUnfinishedTextWhenItsWindowGoesOffTheScreen)
{
    for (char const* const text : {"7", "1e", "2*3"}) {
        window.type(text);
        window.dialog.close();
        EXPECT_EQ(window.shown(), "0.123457") << text;
        window.dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window.dialog));
        EXPECT_EQ(window.shown(), "0.123457") << text;
    }
    window.type("7");
    window.press(Qt::Key_Escape);
    EXPECT_FALSE(window.dialog.isVisible());
    EXPECT_EQ(window.shown(), "0.123457");
    EXPECT_EQ(property->value(), 0.123456789);
    EXPECT_THAT(window.messages.take(), IsEmpty());
}

TEST_F(NumberField, LetsTheOldTextBeTypedAgainAfterThePropertyMovedOn)
{
    property->setValue(1.5);
    IdleDispatcher::flush();
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        property->setValue(7.0);
        window.enter("1.5");
    }
    EXPECT_EQ(property->value(), 1.5);
}

TEST_F(NumberField, DoesNotPutAnOldValueBackOnReturn)
{
    property->setValue(7.0);
    window.field->setFocus();
    window.press(Qt::Key_Return);
    EXPECT_EQ(property->value(), 7.0);
    EXPECT_EQ(window.shown(), "7");
}

TEST_F(NumberField, ShowsTheValueThatThePropertyReallyTook)
{
    class Rounding : public Property<double>
    {
    protected:
        void storeValue(double const& value) override { Property<double>::storeValue(static_cast<int>(value)); }
    };
    auto const rounding = boost::make_shared<Rounding>();
    TextFieldPropertyBinding<double> const other(window.after, rounding);
    window.after->setFocus();
    window.after->selectAll();
    QTest::keyClicks(window.after, QStringLiteral("3.75"));
    QTest::keyClick(window.after, Qt::Key_Return);
    EXPECT_EQ(rounding->value(), 3.0);
    EXPECT_EQ(window.after->text(), QStringLiteral("3"));
}

TEST_F(NumberField, WritesTheValueInTheFormatThatWasAskedFor)
{
    binding.setFormatString("%1$.3f m");
    EXPECT_EQ(window.shown(), "0.123 m");
    property->setValue(2.0);
    IdleDispatcher::flush();
    EXPECT_EQ(window.shown(), "2.000 m");
}

TEST_F(NumberField, KeepsItsFormatWhenTheNewOneIsNone)
{
    EXPECT_THROW(binding.setFormatString("%1% %2%"), boost::io::format_error);
    EXPECT_THROW(binding.setFormatString("none"), boost::io::format_error);
    property->setValue(2.0);
    IdleDispatcher::flush();
    EXPECT_EQ(window.shown(), "2");
}

TEST(TextField, KeepsTheStartOfALongTextInViewIfAsked)
{
    FieldWindow window;
    auto const property = boost::make_shared<Property<std::string>>(std::string(500, 'x'));
    TextFieldPropertyBinding<std::string> binding(window.field, property);
    EXPECT_EQ(window.field->cursorPosition(), 500);
    binding.setDisplayMode(0);
    EXPECT_EQ(window.field->cursorPosition(), 0);
    EXPECT_FALSE(window.field->hasSelectedText());
    property->setValue(std::string(400, 'y'));
    IdleDispatcher::flush();
    EXPECT_EQ(window.field->cursorPosition(), 0);
    binding.setDisplayMode(1);
    EXPECT_EQ(window.field->cursorPosition(), 400);
}

TEST(TextField, TakesEveryTextEvenAnEmptyOne)
{
    FieldWindow window;
    auto const property = boost::make_shared<Property<std::string>>("title");
    TextFieldPropertyBinding<std::string> const binding(window.field, property);
    window.enter("");
    EXPECT_EQ(property->value(), "");
    window.type("1,5 \"x\" ");
    QTest::sendKeyEvent(QTest::Click, window.field, Qt::Key_unknown, QString(QChar(0x3B1)), Qt::NoModifier);
    window.press(Qt::Key_Return);
    EXPECT_EQ(property->value(), "1,5 \"x\" \xCE\xB1");
}

TEST(TextField, NeverCutsATextThatIsLongerThanTheFieldTakes)
{
    FieldWindow window;
    window.field->setMaxLength(5);
    auto const property = boost::make_shared<Property<std::string>>("pressure");
    TextFieldPropertyBinding<std::string> const binding(window.field, property);
    EXPECT_EQ(window.shown(), "press");
    window.field->setFocus();
    window.press(Qt::Key_Return);
    EXPECT_EQ(property->value(), "pressure");
    window.enter("p");
    EXPECT_EQ(property->value(), "p");
}

TEST(TextField, FollowsALocalStyleProperty)
{
    FieldWindow window;
    sdk::ui::propertymanager::UILocalStyleProperty<std::string> property("a");
    TextFieldPropertyBinding<std::string> const binding(window.field, property);
    property.setSensitive(false);
    property.setValue("b");
    IdleDispatcher::flush();
    EXPECT_EQ(window.shown(), "b");
    EXPECT_FALSE(window.field->isEnabled());
    EXPECT_TRUE(window.field->isVisible());
}

TEST(LineEditPropertyBinding, HasNothingToDoWithoutALineEdit)
{
    class Counting : public LineEditPropertyBindingAbstract<double>
    {
    public:
        using LineEditPropertyBindingAbstract<double>::LineEditPropertyBindingAbstract;
        void updateWidgetValue() override { ++writes; }
        void updateWidgetVisibility() override {}
        void updateWidgetSensitivity() override {}
        int writes = 0;
    };
    auto const property = boost::make_shared<Property<double>>(1.0);
    Counting const binding(nullptr, property);
    property->setValue(2.0);
    IdleDispatcher::flush();
    EXPECT_EQ(binding.writes, 1);
    EXPECT_EQ(property->value(), 2.0);
}

} // namespace
} // namespace veldraw::tests
