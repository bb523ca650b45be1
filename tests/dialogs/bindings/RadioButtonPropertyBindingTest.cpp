#include "dialogs/bindings/RadioButtonPropertyBinding.h"

#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "dialogs/zoneops/RotationAxisTemplates.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QRadioButton>
#include <QSignalBlocker>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;

/// Counts how often it is set, and can be told to refuse.
class CountedProperty : public PropertyAbstract<char>
{
public:
    std::string stores;
    std::function<void(char)> refusal;

protected:
    void storeValue(char const& newValue) override
    {
        stores += newValue;
        m_value = newValue;
    }
    void validate(char const& newValue) const override
    {
        if (refusal)
            refusal(newValue);
    }

private:
    char retrieveValue() const override { return m_value; }
    char m_value = 'X';
};

/// Three radio buttons of one group, for the values X, Y and Z.
class RadioButtonPropertyBindingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto* const layout = new QVBoxLayout(&window);
        for (std::size_t i = 0; i < 3; ++i) {
            buttons[i] = new QRadioButton(QString(QLatin1Char("XYZ"[i])));
            layout->addWidget(buttons[i]);
        }
    }

    void bind()
    {
        for (std::size_t i = 0; i < 3; ++i)
            bindings[i] = std::make_unique<RadioButtonPropertyBinding<char>>(buttons[i], property, "XYZ"[i]);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        IdleDispatcher::flush();
    }

    void click(std::size_t i)
    {
        QTest::mouseClick(buttons[i], Qt::LeftButton, Qt::NoModifier, QPoint(8, buttons[i]->height() / 2));
    }

    /// Checks a button and tells it by the button's own signal. For what throws: Qt's widgets lose the memory that they hold
    /// when an exception passes them, and here none is on the way.
    void announce(std::size_t i)
    {
        {
            QSignalBlocker const silence(buttons[i]);
            buttons[i]->setChecked(true);
        }
        Q_EMIT buttons[i]->toggled(true);
    }

    /// The buttons that are on: "X", or "" or "XY" where that is possible.
    std::string on() const
    {
        std::string checked;
        for (QRadioButton const* const button : buttons) {
            if (button->isChecked())
                checked += button->text().toStdString();
        }
        return checked;
    }

    RecordedMessages messages;
    boost::shared_ptr<CountedProperty> property = boost::make_shared<CountedProperty>();
    QWidget window;
    std::array<QRadioButton*, 3> buttons = {};
    std::array<std::unique_ptr<RadioButtonPropertyBinding<char>>, 3> bindings;
};

TEST_F(RadioButtonPropertyBindingTest, ShowsTheValueFromTheStart)
{
    property->setValue('Y');
    RadioButtonPropertyBinding<char> const x(buttons[0], property, 'X');
    RadioButtonPropertyBinding<char> const y(buttons[1], property, 'Y');
    EXPECT_EQ(on(), "Y");
}

TEST_F(RadioButtonPropertyBindingTest, TakesTheFormsCheckedButtonBackAtTheStart)
{
    property->setValue('Y');
    buttons[2]->setChecked(true);
    property->stores.clear();
    bind();
    EXPECT_EQ(on(), "Y");
    EXPECT_EQ(property->stores, "");
}

TEST_F(RadioButtonPropertyBindingTest, SetsThePropertyOnceForAClickInAGroup)
{
    bind();
    click(1);
    EXPECT_EQ(property->stores, "Y");
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "Y");
    EXPECT_EQ(on(), "Y");
    click(2);
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "YZ");
    EXPECT_EQ(on(), "Z");
}

TEST_F(RadioButtonPropertyBindingTest, SetsNothingForAClickOnTheButtonThatIsOn)
{
    bind();
    click(0);
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "");
}

TEST_F(RadioButtonPropertyBindingTest, TakesKeys)
{
    bind();
    buttons[0]->setFocus();
    QTest::keyClick(buttons[0], Qt::Key_Down);
    EXPECT_EQ(property->stores, "Y");
    QTest::keyClick(buttons[1], Qt::Key_Down);
    EXPECT_EQ(property->stores, "YZ");
    QTest::keyClick(buttons[2], Qt::Key_Up);
    EXPECT_EQ(property->stores, "YZY");
    EXPECT_EQ(on(), "Y");
}

TEST_F(RadioButtonPropertyBindingTest, FollowsThePropertyAtIdle)
{
    bind();
    property->setValue('Y');
    property->setValue('Z');
    EXPECT_EQ(on(), "X");
    IdleDispatcher::flush();
    EXPECT_EQ(on(), "Z");
    EXPECT_EQ(property->stores, "YZ");
}

TEST_F(RadioButtonPropertyBindingTest, WritesTheButtonOnceForManyChangesOfOneTurn)
{
    bind();
    QSignalSpy const toggles(buttons[2], &QAbstractButton::toggled);
    for (int turn = 0; turn < 1000; ++turn)
        property->setValue("XYZ"[turn % 3]);
    property->setValue('Z');
    IdleDispatcher::flush();
    EXPECT_EQ(toggles.count(), 1);
}

/// Counts how often it is painted.
class PaintedRadioButton : public QRadioButton
{
public:
    using QRadioButton::QRadioButton;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        QRadioButton::paintEvent(event);
    }
};

TEST_F(RadioButtonPropertyBindingTest, PaintsTheButtonAnewWithEachWrite)
{
    auto* const painted = new PaintedRadioButton(QStringLiteral("?"), &window);
    RadioButtonPropertyBinding<char> const binding(painted, property, 'Y');
    bind();
    painted->show();
    ASSERT_TRUE(QTest::qWaitFor([painted] { return painted->paints > 0; }));
    QCoreApplication::processEvents();
    painted->paints = 0;
    property->setValue('Z'); // the button stays off
    IdleDispatcher::flush();
    QCoreApplication::processEvents();
    EXPECT_EQ(painted->paints, 1);
}

TEST_F(RadioButtonPropertyBindingTest, LeavesTheLastButtonOnForAValueThatNoButtonStandsFor)
{
    bind();
    property->setValue('?');
    IdleDispatcher::flush();
    EXPECT_EQ(on(), "X");
    EXPECT_EQ(property->stores, "?");
    click(1);
    EXPECT_EQ(property->stores, "?Y");
}

TEST_F(RadioButtonPropertyBindingTest, WaitsForTheEndOfALock)
{
    bind();
    {
        sdk::AppLock const lock(sdk::AppLock::ImplicitMacroRecording(0));
        property->setValue('Y');
        IdleDispatcher::flush();
        EXPECT_EQ(on(), "X");
    }
    IdleDispatcher::flush();
    EXPECT_EQ(on(), "Y");
}

TEST_F(RadioButtonPropertyBindingTest, TellsWhyAValueIsRefused)
{
    bind();
    property->refusal = [](char) { throw InvalidPropertyValueException("Not this one."); };
    click(1);
    EXPECT_EQ(messages.take(), std::vector<std::string>{"error: Not this one."});
    EXPECT_EQ(property->value(), 'X');
}

TEST_F(RadioButtonPropertyBindingTest, TellsNothingOfARefusalWithoutText)
{
    bind();
    property->refusal = [](char) { throw InvalidPropertyValueException(""); };
    click(1);
    property->refusal = [](char) { throw InvalidArgumentException("Cannot convert."); };
    click(2);
    EXPECT_EQ(messages.take(), std::vector<std::string>());
    EXPECT_EQ(property->value(), 'X');
}

TEST_F(RadioButtonPropertyBindingTest, ShowsThePropertyAgainAfterARefusal)
{
    bind();
    property->refusal = [](char value) {
        if (value == 'Y')
            throw InvalidPropertyValueException("Not this one.");
    };
    click(1);
    EXPECT_EQ(on(), "Y");
    IdleDispatcher::flush();
    EXPECT_EQ(on(), "X");
    EXPECT_EQ(messages.take(), std::vector<std::string>{"error: Not this one."});
}

TEST_F(RadioButtonPropertyBindingTest, LetsOtherExceptionsThrough)
{
    bind();
    property->refusal = [](char) { throw std::runtime_error("broken"); };
    EXPECT_THROW(announce(1), std::runtime_error);
    property->refusal = nullptr;
    click(2);
    EXPECT_EQ(property->value(), 'Z');
}

TEST_F(RadioButtonPropertyBindingTest, TakesAPropertyWhoseSlotsSetItAgain)
{
    bind();
    boost::signals2::scoped_connection const correction = property->connectValueChanged([this](char value) {
        if (value == 'Y')
            property->setValue('Z');
    });
    click(1);
    IdleDispatcher::flush();
    EXPECT_EQ(property->value(), 'Z');
    EXPECT_EQ(on(), "Z");
}

TEST_F(RadioButtonPropertyBindingTest, MayGoInsideTheSignalOfAClick)
{
    bind();
    property->connectValueChanged([this](char) {
        for (auto& binding : bindings)
            binding.reset();
    });
    boost::weak_ptr<CountedProperty> const watched = property;
    property.reset();
    click(1);
    IdleDispatcher::flush();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(on(), "Y");
}

TEST_F(RadioButtonPropertyBindingTest, MayGoWhileIdleWorkIsPending)
{
    bind();
    property->setValue('Z');
    bindings[2].reset();
    IdleDispatcher::flush();
    EXPECT_EQ(on(), "X");
}

TEST_F(RadioButtonPropertyBindingTest, StandsAButtonThatGoesFirst)
{
    bind();
    delete buttons[2];
    property->setValue('Z');
    IdleDispatcher::flush();
    EXPECT_TRUE(buttons[0]->isChecked());
    bindings[2].reset();
    click(1);
    EXPECT_EQ(property->stores, "ZY");
}

TEST_F(RadioButtonPropertyBindingTest, KeepsThePropertyAlive)
{
    bind();
    boost::weak_ptr<CountedProperty> const watched = property;
    property.reset();
    EXPECT_FALSE(watched.expired());
    click(1);
    EXPECT_EQ(watched.lock()->value(), 'Y');
    for (auto& binding : bindings)
        binding.reset();
    EXPECT_TRUE(watched.expired());
}

TEST_F(RadioButtonPropertyBindingTest, WritesNothingForAButtonThatIsTurnedOff)
{
    auto const flag = boost::make_shared<Property<bool>>(false);
    QRadioButton button;
    button.setAutoExclusive(false);
    RadioButtonPropertyBinding<bool> const binding(&button, flag, true);
    button.setChecked(true);
    EXPECT_TRUE(flag->value());
    button.setChecked(false);
    EXPECT_TRUE(flag->value());
}

TEST_F(RadioButtonPropertyBindingTest, ServesTheAxisOfARotation)
{
    using Axis = dialogs::data::AxialRotationPropertiesManager;
    auto const axis = boost::make_shared<Property<Axis::RotationAxis>>(Axis::zRotationAxis);
    Axis::RotationAxis const axes[] = {Axis::xRotationAxis, Axis::yRotationAxis, Axis::zRotationAxis};
    std::array<std::unique_ptr<RadioButtonPropertyBinding<Axis::RotationAxis>>, 3> ofAxes;
    for (std::size_t i = 0; i < 3; ++i)
        ofAxes[i] = std::make_unique<RadioButtonPropertyBinding<Axis::RotationAxis>>(buttons[i], axis, axes[i]);
    EXPECT_EQ(on(), "Z");
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    click(1);
    EXPECT_EQ(axis->value(), Axis::yRotationAxis);
    axis->setValue(Axis::xRotationAxis);
    IdleDispatcher::flush();
    EXPECT_EQ(on(), "X");
}

TEST_F(RadioButtonPropertyBindingTest, ServesEnumerations)
{
    auto const mode = boost::make_shared<Property<LinearInterpMode_e>>(LinearInterpMode_SetToConstant);
    RadioButtonPropertyBinding<LinearInterpMode_e> const keep(buttons[0], mode, LinearInterpMode_DontChange);
    RadioButtonPropertyBinding<LinearInterpMode_e> const set(buttons[1], mode, LinearInterpMode_SetToConstant);
    EXPECT_EQ(on(), "Y");
    buttons[0]->setChecked(true);
    EXPECT_EQ(mode->value(), LinearInterpMode_DontChange);
}

} // namespace
} // namespace veldraw::tests
