#include "dialogs/widgets/IntegralSpinBox.h"
#include "dialogs/widgets/QScientificSpinBox.h"
#include "tests/dialogs/support/SpinBoxDriver.h"

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace veldraw::tests {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Writes down what its hooks are called for.
template <typename Box>
class Hooked : public Box
{
public:
    mutable std::vector<std::string> hooks;

private:
    void signalIncrementConnected() const override { hooks.emplace_back("increment"); }
    void signalDecrementConnected() const override { hooks.emplace_back("decrement"); }
};

/// Both spin boxes ask for steps in the same way.
template <typename Box>
class StepSignals : public ::testing::Test
{
protected:
    StepSignals()
    {
        box.setRange(-100, 100);
        box.setValue(5);
        box.show();
        box.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    }

    void connect()
    {
        box.connectIncrement([this](int count) { log.push_back(count); });
        box.connectDecrement([this](int count) { log.push_back(-count); });
    }

    std::vector<int> take() { return std::exchange(log, {}); }

    Hooked<Box> box;
    SpinBoxDriver driver{box};
    std::vector<int> log;
};

using Boxes = ::testing::Types<ui::QScientificSpinBox, ui::IntegralSpinBox>;
TYPED_TEST_SUITE(StepSignals, Boxes);

TYPED_TEST(StepSignals, TellArrowsKeysPagesAndWheel)
{
    this->connect();
    this->driver.clickUp();
    this->driver.clickDown();
    this->driver.press(Qt::Key_Up);
    this->driver.press(Qt::Key_Down);
    EXPECT_THAT(this->take(), ElementsAre(1, -1, 1, -1));
    this->driver.press(Qt::Key_PageUp);
    this->driver.press(Qt::Key_PageDown);
    EXPECT_THAT(this->take(), ElementsAre(10, -10));
    this->driver.turnWheel(1);
    this->driver.turnWheel(-2);
    EXPECT_THAT(this->take(), ElementsAre(1, -2));
}

TYPED_TEST(StepSignals, AreAllThatAStepDoes)
{
    this->driver.clickUp();
    this->driver.press(Qt::Key_PageDown);
    this->box.stepBy(3);
    EXPECT_EQ(this->box.value(), 5);
    this->connect();
    this->driver.clickUp();
    this->box.stepBy(0);
    EXPECT_EQ(this->box.value(), 5);
    EXPECT_THAT(this->take(), ElementsAre(1));
}

TYPED_TEST(StepSignals, AreNotSentAtTheEndsOfTheRange)
{
    this->connect();
    this->box.setValue(100);
    this->driver.clickUp();
    this->driver.press(Qt::Key_Up);
    EXPECT_THAT(this->take(), IsEmpty());
    this->box.setValue(-100);
    this->driver.clickDown();
    EXPECT_THAT(this->take(), IsEmpty());
}

TYPED_TEST(StepSignals, RunAHookForEachConnection)
{
    this->connect();
    EXPECT_THAT(this->box.hooks, ElementsAre("increment", "decrement"));
}

TYPED_TEST(StepSignals, ReachNobodyWhoHasDisconnected)
{
    boost::signals2::connection const connection =
        this->box.connectIncrement([this](int count) { this->log.push_back(count); });
    connection.disconnect();
    this->driver.clickUp();
    EXPECT_THAT(this->take(), IsEmpty());
}

TYPED_TEST(StepSignals, RepeatWhileAnArrowIsHeldUntilTheyAreStopped)
{
    this->connect();
    this->driver.holdUp();
    EXPECT_TRUE(QTest::qWaitFor([this] { return this->log.size() >= 3; }));
    this->box.stopStepping();
    this->take();
    QTest::qWait(250);
    EXPECT_THAT(this->take(), IsEmpty());
    this->driver.releaseUp();
    this->driver.clickUp();
    EXPECT_THAT(this->take(), ElementsAre(1));
}

} // namespace
} // namespace veldraw::tests
