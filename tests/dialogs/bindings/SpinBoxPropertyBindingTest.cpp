// What the bindings of spin boxes have in common, whatever the type of their numbers.
#include "dialogs/bindings/SpinBoxPropertyBinding.h"

#include "platform/vdsdkcommon/AppLock.h"
#include "tests/dialogs/bindings/SpinBoxBindingFixture.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <typename T>
class SpinBoxPropertyBindingTest : public SpinBoxBindingFixture<T>
{
};

using NumberTypes = ::testing::Types<double, int, long long>;
TYPED_TEST_SUITE(SpinBoxPropertyBindingTest, NumberTypes);

TYPED_TEST(SpinBoxPropertyBindingTest, SetsThePropertyOnceByReturnTabAndAClickElsewhere)
{
    this->bind();
    this->driver->type("12");
    EXPECT_THAT(this->take(), IsEmpty()) << "keys alone set nothing";
    this->driver->press(Qt::Key_Return);
    EXPECT_THAT(this->take(), ElementsAre(12));
    EXPECT_TRUE(this->box->hasFocus());
    EXPECT_EQ(this->settled(), "12");
    this->driver->press(Qt::Key_Tab);
    EXPECT_THAT(this->take(), IsEmpty());
    this->driver->type("13");
    this->driver->press(Qt::Key_Tab);
    EXPECT_TRUE(this->elsewhere->hasFocus());
    EXPECT_THAT(this->take(), ElementsAre(13));
    this->driver->type("14");
    this->clickElsewhere();
    EXPECT_THAT(this->take(), ElementsAre(14));
    EXPECT_EQ(this->settled(), "14");
}

TYPED_TEST(SpinBoxPropertyBindingTest, KeepsUnfinishedTextWhenThePropertyChanges)
{
    this->bind();
    this->driver->type("4");
    this->driver->press(Qt::Key_Return);
    this->driver->type("75");
    EXPECT_EQ(this->settled(), "75") << "the write after the first commit came late";
    this->property->setValue(9);
    EXPECT_EQ(this->settled(), "75");
    this->driver->press(Qt::Key_Return);
    EXPECT_EQ(this->property->value(), 75);
    this->property->setValue(10);
    EXPECT_EQ(this->settled(), "10");
}

TYPED_TEST(SpinBoxPropertyBindingTest, FollowsThePropertyOnceUnfinishedTextIsDropped)
{
    this->bind();
    for (Qt::Key const end : {Qt::Key_Return, Qt::Key_Tab}) {
        this->property->setValue(5);
        this->idle();
        this->driver->type("");
        this->property->setValue(9);
        EXPECT_EQ(this->settled(), "") << "the user is at it";
        this->driver->press(end);
        EXPECT_EQ(this->settled(), "9");
        EXPECT_EQ(this->property->value(), 9);
    }
}

TYPED_TEST(SpinBoxPropertyBindingTest, LetsTheOldNumberBeTypedAgainAfterThePropertyMovedOn)
{
    this->bind();
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        this->property->setValue(7);
        this->driver->type("5");
        this->driver->press(Qt::Key_Return);
    }
    EXPECT_EQ(this->property->value(), 5);
    EXPECT_EQ(this->settled(), "5");
}

TYPED_TEST(SpinBoxPropertyBindingTest, DoesNotPutAnOldValueBackOnReturn)
{
    this->bind();
    this->driver->type("5");
    this->driver->press(Qt::Key_Return);
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        this->property->setValue(7);
        this->driver->press(Qt::Key_Return);
    }
    EXPECT_EQ(this->property->value(), 7);
    EXPECT_EQ(this->settled(), "7");
}

TYPED_TEST(SpinBoxPropertyBindingTest, DropsUnfinishedTextWhenItsWindowGoesOffTheScreen)
{
    this->bind();
    for (char const* const text : {"7", "12", "-", "2*3"}) {
        this->driver->type(text);
        this->window.hide();
        EXPECT_EQ(this->driver->text(), "5") << text;
        this->show();
        EXPECT_EQ(this->settled(), "5") << text;
        this->box->setFocus();
        this->driver->press(Qt::Key_Return);
    }
    EXPECT_THAT(this->take(), IsEmpty());
    EXPECT_THAT(this->messages.take(), IsEmpty());
}

TYPED_TEST(SpinBoxPropertyBindingTest, MayGoWhileAWriteIsPending)
{
    this->bind();
    this->property->setValue(6);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 1);
    this->binding.reset();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    EXPECT_EQ(this->settled(), "5");
    this->driver->clickUp();
    this->driver->type("9");
    this->driver->press(Qt::Key_Return);
    EXPECT_EQ(this->property->value(), 6);
}

TYPED_TEST(SpinBoxPropertyBindingTest, OutlivesItsBox)
{
    this->bind();
    this->property->setValue(6);
    delete this->box;
    this->idle();
    this->property->setValue(7);
    this->idle();
    EXPECT_EQ(this->property->value(), 7);
}

} // namespace veldraw::tests
