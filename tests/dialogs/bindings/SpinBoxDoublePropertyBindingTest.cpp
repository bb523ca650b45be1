#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"

#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/property/AngleDecorator.h"
#include "dialogs/property/AngleSpinBoxIncDecCalculator.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "host/MessageBox.h"
#include "host/MessagePresenter.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "tests/dialogs/bindings/SpinBoxBindingFixture.h"
#include "tests/dialogs/support/SpecialNumbers.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using namespace sdk::ui::propertymanager;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using DoubleBounds = BoundedValueValidator<double>;

constexpr char refusal[] = "error: The value must be greater than or equal to 0 and less than or equal to 0.5.";

class SpinBoxDoublePropertyBindingTest : public SpinBoxBindingFixture<double>
{
protected:
    SpinBoxDoublePropertyBindingTest() { property->setValue(2.5); }

    void bindKeepFactor()
    {
        property = boost::make_shared<Property<double>>(
            0.25,
            boost::make_shared<DoubleBounds>(0.0, 0.5, DoubleBounds::LowerInclusive, DoubleBounds::UpperInclusive));
        box->setSingleStep(0.01);
        bind();
    }
};

// ---- showing ------------------------------------------------------------------------------------------------------

TEST_F(SpinBoxDoublePropertyBindingTest, ShowsTheValueFromTheStart)
{
    SpinBoxDoublePropertyBinding const fresh(box, property, nullptr);
    EXPECT_EQ(driver->text(), "2.5");
    EXPECT_FALSE(box->keyboardTracking());
}

TEST_F(SpinBoxDoublePropertyBindingTest, FollowsThePropertyAtIdle)
{
    bind();
    property->setValue(7.0);
    property->setValue(8.0);
    EXPECT_EQ(driver->text(), "2.5");
    EXPECT_EQ(settled(), "8");
}

TEST_F(SpinBoxDoublePropertyBindingTest, ChangesNothingByShowing)
{
    bind();
    for (double const value : {360.0, 1.0 / 3.0, 2.0 * std::acos(-1.0), 1.23456789e-5, 1e-320, 5e-324, 1e300, DBL_MAX,
                               -DBL_MAX, infinity, -infinity, -0.0}) {
        property->setValue(value);
        take();
        idle();
        box->setFocus();
        driver->press(Qt::Key_Return);
        driver->press(Qt::Key_Tab);
        idle();
        EXPECT_EQ(property->value(), value);
        EXPECT_THAT(take(), IsEmpty()) << value;
    }
}

TEST_F(SpinBoxDoublePropertyBindingTest, ShowsNotANumberAndLeavesItAlone)
{
    bind();
    property->setValue(notANumber);
    take();
    EXPECT_EQ(settled(), "nan");
    box->setFocus();
    driver->press(Qt::Key_Return);
    driver->press(Qt::Key_Up);
    driver->press(Qt::Key_Down);
    clickElsewhere();
    EXPECT_THAT(take(), IsEmpty());
    driver->type("3");
    driver->press(Qt::Key_Return);
    EXPECT_THAT(take(), ElementsAre(3.0));
    EXPECT_EQ(settled(), "3");
}

TEST_F(SpinBoxDoublePropertyBindingTest, IsNotHeldUpByTheRangeThatQtGivesABox)
{
    bind();
    property->setValue(360.0);
    EXPECT_EQ(settled(), "360");
    driver->type("-12345.5");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(property->value(), -12345.5);
}

// ---- typing -------------------------------------------------------------------------------------------------------

TEST_F(SpinBoxDoublePropertyBindingTest, LetsTheUserTypeInPeace)
{
    bind();
    driver->type("1.");
    idle();
    EXPECT_EQ(driver->text(), "1.");
    QTest::keyClicks(box, QStringLiteral("75"));
    EXPECT_EQ(driver->text(), "1.75");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(property->value(), 1.75);
}

TEST_F(SpinBoxDoublePropertyBindingTest, TakesTheLargestNumberTypedForOneThatIsNotFinite)
{
    bind();
    property->setValue(infinity);
    idle();
    driver->type("");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(property->value(), infinity);
    driver->type("1.7976931348623157e308");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(property->value(), DBL_MAX);
    EXPECT_EQ(settled(), "1.797693e+308");
}

TEST_F(SpinBoxDoublePropertyBindingTest, TurnsKeyboardTrackingOffWhateverTheFormSays)
{
    box->setKeyboardTracking(true);
    bind();
    driver->type("12");
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(SpinBoxDoublePropertyBindingTest, KeepsEveryDigitThatIsTyped)
{
    box->setDecimals(2);
    bind();
    driver->type("0.12345678901234568");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(property->value(), 0.12345678901234568);
    EXPECT_EQ(settled(), "0.12");
    clickElsewhere();
    EXPECT_EQ(property->value(), 0.12345678901234568);
}

TEST_F(SpinBoxDoublePropertyBindingTest, TakesATypedNumberThatDiffersInTheLastDigitsOnly)
{
    bind();
    property->setValue(1.0);
    idle();
    for (char const* const text : {"1.0000000000000002", "1.00000000000001", "1.000000000000010"}) {
        driver->type(text);
        driver->press(Qt::Key_Tab);
        EXPECT_EQ(property->value(), std::stod(text)) << text;
        idle();
    }
}

TEST_F(SpinBoxDoublePropertyBindingTest, TakesTheShownTextAsItStandsWhenItIsTyped)
{
    bind();
    double const third = 1.0 / 3.0;
    for (Qt::Key const end : {Qt::Key_Return, Qt::Key_Tab}) {
        property->setValue(third);
        idle();
        take();
        driver->type("0.333333");
        driver->press(end);
        EXPECT_THAT(take(), ElementsAre(0.333333));
        idle();
        box->setFocus();
        driver->press(end);
        EXPECT_THAT(take(), IsEmpty());
    }
}

TEST_F(SpinBoxDoublePropertyBindingTest, StoresNothingForATextWithAWrongCharacter)
{
    bind();
    for (char const* const text : {"12,5", "2*3", "1.000,5", "1 5", "3x", "0x10", "1'000"}) {
        for (Qt::Key const end : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Up}) {
            property->setValue(2.5);
            idle();
            take();
            driver->type(text);
            EXPECT_EQ(driver->text(), text) << "no key is swallowed";
            driver->press(end);
            if (end != Qt::Key_Up)
                EXPECT_THAT(take(), IsEmpty()) << text;
            else
                EXPECT_THAT(take(), ElementsAre(3.5)) << "a step from the property's value";
        }
    }
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(SpinBoxDoublePropertyBindingTest, ShowsThePropertyThatChangedUnderUnfinishedTextWhenItsWindowComesBack)
{
    bind();
    driver->type("7");
    property->setValue(9.0);
    EXPECT_EQ(settled(), "7");
    window.close();
    show();
    EXPECT_EQ(driver->text(), "9");
    EXPECT_EQ(property->value(), 9.0);
}

TEST_F(SpinBoxDoublePropertyBindingTest, RestoresTheValueForATextThatIsNoNumber)
{
    bind();
    for (char const* const text : {"", "-", "1e", "1e999"}) {
        driver->type(text);
        driver->press(Qt::Key_Return);
        EXPECT_EQ(settled(), "2.5") << text;
        driver->type(text);
        clickElsewhere();
        EXPECT_EQ(settled(), "2.5") << text;
    }
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_THAT(messages.take(), IsEmpty());
}

// ---- refusals -----------------------------------------------------------------------------------------------------

TEST_F(SpinBoxDoublePropertyBindingTest, TellsARefusalOnceAndRestoresTheValue)
{
    bindKeepFactor();
    driver->type("0.5");
    driver->press(Qt::Key_Return);
    EXPECT_THAT(messages.take(), IsEmpty());
    take();
    driver->type("0.51");
    EXPECT_EQ(driver->text(), "0.51");
    driver->press(Qt::Key_Return);
    EXPECT_THAT(messages.take(), ElementsAre(refusal));
    EXPECT_EQ(driver->text(), "0.5");
    EXPECT_THAT(take(), IsEmpty());
    idle();
    driver->press(Qt::Key_Return);
    clickElsewhere();
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(SpinBoxDoublePropertyBindingTest, KeepsTheFocusAfterARefusal)
{
    bindKeepFactor();
    driver->type("7");
    clickElsewhere();
    EXPECT_THAT(messages.take(), ElementsAre(refusal));
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(settled(), "0.25");
    driver->type("7");
    driver->press(Qt::Key_Tab);
    EXPECT_THAT(messages.take(), ElementsAre(refusal));
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(SpinBoxDoublePropertyBindingTest, ComesBackToTheFrontAfterARefusal)
{
    QWidget other;
    auto const recorder = host::MessagePresenter::install([&other](std::string const&, MessageBoxType_e) {
        other.show();
        other.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    });
    bindKeepFactor();
    driver->type("7");
    driver->press(Qt::Key_Return);
    host::MessagePresenter::install(recorder);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(SpinBoxDoublePropertyBindingTest, DoesNotStepWhileARefusalIsTold)
{
    auto const recorder = host::MessagePresenter::install([this](std::string const&, MessageBoxType_e) {
        box->stepBy(-1);
        box->stepBy(1);
    });
    bindKeepFactor();
    driver->type("7");
    driver->press(Qt::Key_Return);
    host::MessagePresenter::install(recorder);
    EXPECT_THAT(take(), IsEmpty());
    driver->press(Qt::Key_Up);
    EXPECT_THAT(take(), ElementsAre(0.26));
}

TEST_F(SpinBoxDoublePropertyBindingTest, CommitsBeforeAButtonRunsAndStopsItByARefusal)
{
    bindKeepFactor();
    auto* const button = new QPushButton(QStringLiteral("&Run"), &window);
    window.layout()->addWidget(button);
    button->show();
    std::vector<double> runs;
    ButtonBinding const run(*button, [&] { runs.push_back(property->value()); });
    driver->type("0.125");
    QTest::keyClick(box, Qt::Key_R, Qt::AltModifier);
    QTest::qWait(200); // a mnemonic presses the button for a moment
    EXPECT_THAT(runs, ElementsAre(0.125));
    driver->type("7");
    QTest::keyClick(box, Qt::Key_R, Qt::AltModifier);
    QTest::qWait(200);
    EXPECT_THAT(runs, ElementsAre(0.125));
    EXPECT_THAT(messages.take(), ElementsAre(refusal));
}

/// Opens real message boxes, and closes each after a while in which a held arrow would step again.
class OpenedMessages
{
public:
    OpenedMessages()
        : m_previous(host::MessagePresenter::install([this](std::string const& text, MessageBoxType_e type) {
            ++m_count;
            m_deepest = std::max(m_deepest, ++m_open);
            QTimer::singleShot(700, [] { QApplication::activeModalWidget()->close(); });
            host::MessageBox::show(text, type);
            --m_open;
        }))
    {
    }
    ~OpenedMessages() { host::MessagePresenter::install(m_previous); }

    int count() const { return m_count; }
    int deepest() const { return m_deepest; }

private:
    int m_count = 0;
    int m_open = 0;
    int m_deepest = 0;
    host::MessagePresenter::Presenter m_previous;
};

TEST_F(SpinBoxDoublePropertyBindingTest, OpensOneRealMessageBoxForEachRefusal)
{
    OpenedMessages const opened;
    bindKeepFactor();
    driver->type("7");
    clickElsewhere();
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(settled(), "0.25");
    EXPECT_EQ(window.focusWidget(), box);
    EXPECT_TRUE(QTest::qWaitFor([this] { return box->hasFocus(); })) << "once the window is active again";
    driver->type("8");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(opened.count(), 2);
    property->setValue(0.5);
    idle();
    driver->holdUp();
    EXPECT_EQ(opened.count(), 3);
    QTest::qWait(700);
    EXPECT_EQ(opened.count(), 3) << "the arrow was let go by the message";
    EXPECT_EQ(opened.deepest(), 1);
    EXPECT_EQ(property->value(), 0.5);
}

TEST_F(SpinBoxDoublePropertyBindingTest, MayBeDestroyedWhileItsMessageIsOpen)
{
    OpenedMessages const opened;
    bindKeepFactor();
    driver->type("7");
    QTimer::singleShot(100, &window, [this] { binding.reset(); });
    elsewhere->setFocus();
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(binding, nullptr);
    EXPECT_EQ(property->value(), 0.25);
}

/// Refuses all with one text, or throws what it was told to.
template <typename Exception>
class Refusing : public PropertyAbstract<double>
{
public:
    explicit Refusing(std::string const& text)
        : m_text(text)
    {
    }

protected:
    void storeValue(double const&) override { throw Exception(m_text); }

private:
    double retrieveValue() const override { return 1.0; }
    std::string m_text;
};

TEST_F(SpinBoxDoublePropertyBindingTest, SaysNothingForARefusalWithoutAText)
{
    property = boost::make_shared<Refusing<InvalidPropertyValueException>>("");
    bind();
    driver->type("7");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(driver->text(), "1");
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(SpinBoxDoublePropertyBindingTest, SaysNothingForAnArgumentThatNeverBecameAValue)
{
    property = boost::make_shared<Refusing<InvalidArgumentException>>("Unknown");
    bind();
    driver->type("7");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(driver->text(), "1");
    EXPECT_THAT(messages.take(), IsEmpty());
}

/// Keeps whole numbers only.
class Rounded : public PropertyAbstract<double>
{
protected:
    void storeValue(double const& newValue) override { m_value = std::round(newValue); }

private:
    double retrieveValue() const override { return m_value; }
    double m_value = 3.0;
};

TEST_F(SpinBoxDoublePropertyBindingTest, ShowsWhatThePropertyMadeOfATypedValue)
{
    property = boost::make_shared<Rounded>();
    bind();
    driver->type("4.75");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(settled(), "5");
    driver->type("5.25");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(settled(), "5");
}

/// Takes numbers that round to the same whole one for equal.
class Coarse : public Rounded
{
protected:
    bool isEqual(double const& newValue) const override { return std::round(newValue) == value(); }
};

TEST_F(SpinBoxDoublePropertyBindingTest, ShowsThePropertyAgainAfterAValueThatItTakesForEqual)
{
    property = boost::make_shared<Coarse>();
    bind();
    driver->type("3.25");
    driver->press(Qt::Key_Return);
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_EQ(settled(), "3");
}

// ---- steps --------------------------------------------------------------------------------------------------------

TEST_F(SpinBoxDoublePropertyBindingTest, StepsByTheBoxsOwnStepWithoutACalculator)
{
    box->setSingleStep(0.25);
    bind();
    driver->clickUp();
    EXPECT_EQ(property->value(), 2.75);
    EXPECT_EQ(settled(), "2.75");
    driver->press(Qt::Key_Down);
    driver->press(Qt::Key_Down);
    EXPECT_EQ(property->value(), 2.25);
    driver->press(Qt::Key_PageUp);
    EXPECT_EQ(property->value(), 4.75);
    driver->clickDown();
    EXPECT_EQ(settled(), "4.5");
}

TEST_F(SpinBoxDoublePropertyBindingTest, AddsUpManyStepsToWhatIsMeant)
{
    bindKeepFactor();
    property->setValue(0.1);
    for (int i = 0; i < 40; ++i)
        driver->clickUp();
    EXPECT_EQ(property->value(), 0.5);
    for (int i = 0; i < 50; ++i)
        driver->press(Qt::Key_Down);
    EXPECT_EQ(property->value(), 0.0);
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(SpinBoxDoublePropertyBindingTest, StepsFromAllDigitsOfTheProperty)
{
    bind();
    double const third = 1.0 / 3.0;
    property->setValue(third);
    driver->clickUp();
    EXPECT_EQ(property->value(), third + 1.0);
}

TEST_F(SpinBoxDoublePropertyBindingTest, StepsFromWhatWasTyped)
{
    bind();
    driver->type("10");
    driver->clickUp();
    EXPECT_THAT(take(), ElementsAre(10.0, 11.0));
    driver->type("20");
    driver->press(Qt::Key_Down);
    EXPECT_THAT(take(), ElementsAre(20.0, 19.0));
}

TEST_F(SpinBoxDoublePropertyBindingTest, DoesNotStepWhenWhatWasTypedIsRefused)
{
    bindKeepFactor();
    int used = 0;
    binding->connectArrowsUsed([&used] { ++used; });
    driver->type("9");
    driver->press(Qt::Key_Up);
    EXPECT_THAT(messages.take(), ElementsAre(refusal));
    EXPECT_EQ(property->value(), 0.25);
    EXPECT_EQ(used, 0);
}

TEST_F(SpinBoxDoublePropertyBindingTest, TellsAStepThatIsRefusedOnceAndEndsTheRepetition)
{
    bindKeepFactor();
    property->setValue(0.5);
    idle();
    driver->holdUp();
    QTest::qWait(900);
    EXPECT_THAT(messages.take(), ElementsAre(refusal));
    driver->releaseUp();
    EXPECT_EQ(property->value(), 0.5);
    EXPECT_EQ(settled(), "0.5");
}

TEST_F(SpinBoxDoublePropertyBindingTest, StepsOnWhileAnArrowIsHeld)
{
    bind();
    driver->holdUp();
    EXPECT_TRUE(QTest::qWaitFor([this] { return property->value() >= 6.5; }));
    driver->releaseUp();
    double const end = property->value();
    QTest::qWait(250);
    EXPECT_EQ(property->value(), end);
}

TEST_F(SpinBoxDoublePropertyBindingTest, StepsByTheWheelWithTheFocusOnly)
{
    bind();
    driver->turnWheel(1);
    EXPECT_EQ(property->value(), 2.5);
    EXPECT_TRUE(elsewhere->hasFocus());
    box->setFocus();
    driver->turnWheel(2);
    EXPECT_EQ(property->value(), 4.5);
    driver->turnWheel(-1);
    EXPECT_EQ(property->value(), 3.5);
}

TEST_F(SpinBoxDoublePropertyBindingTest, StepsHugeNumbersWithoutLeavingTheRange)
{
    bind();
    property->setValue(1e300);
    idle();
    driver->clickUp();
    EXPECT_EQ(property->value(), 1e300);
    box->setSingleStep(1e308);
    property->setValue(1.7e308);
    idle();
    driver->clickUp();
    EXPECT_EQ(property->value(), DBL_MAX);
    driver->press(Qt::Key_PageDown);
    EXPECT_EQ(property->value(), -DBL_MAX);
}

TEST_F(SpinBoxDoublePropertyBindingTest, StepsAnAngleByItsUnit)
{
    auto const degrees = boost::make_shared<Property<double>>(45.0);
    auto const unit = boost::make_shared<Property<ThetaMode_e>>(ThetaMode_Degrees);
    property = boost::make_shared<AngleDecorator>(degrees, unit);
    box->setDecimals(8);
    bind(boost::make_shared<AngleSpinBoxIncDecCalculator>(unit));
    driver->clickUp();
    EXPECT_EQ(degrees->value(), 46.0);
    degrees->setValue(360.0);
    unit->setValue(ThetaMode_Radians);
    EXPECT_EQ(settled(), "6.28318531");
    driver->press(Qt::Key_Return);
    clickElsewhere();
    EXPECT_EQ(degrees->value(), 360.0) << "another unit changes no angle";
    driver->clickDown();
    EXPECT_NEAR(property->value(), 2.0 * std::acos(-1.0) - 0.01, 1e-14);
    EXPECT_EQ(settled(), "6.27318531");
    unit->setValue(ThetaMode_Degrees);
    driver->press(Qt::Key_PageUp);
    EXPECT_NEAR(degrees->value(), 360.0 - 0.01 * 180.0 / std::acos(-1.0) + 10.0, 1e-12);
}

/// Doubles and halves.
class Factor : public SpinBoxIncDecCalculatorBase
{
public:
    double increment(double value) override { return 2.0 * value; }
    double decrement(double value) override { return value / 2.0; }
};

TEST_F(SpinBoxDoublePropertyBindingTest, AsksItsCalculatorOnceForEachStep)
{
    box->setSingleStep(100.0);
    bind(boost::make_shared<Factor>());
    driver->clickUp();
    EXPECT_EQ(property->value(), 5.0);
    driver->clickDown();
    driver->clickDown();
    EXPECT_EQ(property->value(), 1.25);
    driver->press(Qt::Key_PageUp);
    EXPECT_EQ(property->value(), 1280.0);
}

TEST_F(SpinBoxDoublePropertyBindingTest, TellsThatTheArrowsWereUsedAfterThePropertyWasSet)
{
    class Hooked : public SpinBoxDoublePropertyBinding
    {
    public:
        using SpinBoxDoublePropertyBinding::SpinBoxDoublePropertyBinding;
        mutable int hooks = 0;

    private:
        void signalArrowsUsedConnected() const override { ++hooks; }
    };
    Hooked hooked(box, property, nullptr);
    show();
    std::vector<double> seen;
    hooked.connectArrowsUsed([&] { seen.push_back(property->value()); });
    EXPECT_EQ(hooked.hooks, 1);
    driver->clickUp();
    driver->press(Qt::Key_PageDown);
    EXPECT_THAT(seen, ElementsAre(3.5, -6.5));
    driver->type("1");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(seen.size(), 2U) << "typing uses no arrows";
}

// ---- life ---------------------------------------------------------------------------------------------------------

TEST_F(SpinBoxDoublePropertyBindingTest, KeepsThePropertyAlive)
{
    boost::weak_ptr<PropertyAbstract<double>> const watch = property;
    SpinBoxDoublePropertyBinding* const fresh = new SpinBoxDoublePropertyBinding(box, property, nullptr);
    property.reset();
    EXPECT_FALSE(watch.expired());
    delete fresh;
    EXPECT_TRUE(watch.expired());
}

TEST_F(SpinBoxDoublePropertyBindingTest, MayBeDestroyedByAListenerOfItsOwnCommit)
{
    bind();
    property->connectValueChanged([this](double) { binding.reset(); });
    driver->type("9");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(property->value(), 9.0);
    binding = std::make_unique<SpinBoxDoublePropertyBinding>(box, property, nullptr);
    driver->clickUp();
    EXPECT_EQ(property->value(), 10.0);
    EXPECT_EQ(binding, nullptr);
    binding = std::make_unique<SpinBoxDoublePropertyBinding>(box, property, nullptr);
    driver->type("20");
    driver->clickUp();
    EXPECT_EQ(property->value(), 20.0) << "gone before the step";
}

} // namespace
} // namespace veldraw::tests
