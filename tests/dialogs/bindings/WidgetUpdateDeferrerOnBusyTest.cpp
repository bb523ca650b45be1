#include "dialogs/bindings/WidgetUpdateDeferrerOnBusy.h"

#include "platform/vdsdkcommon/WaitState.h"

#include <QComboBox>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {
namespace {

using sdk::WaitState;
using sdk::ui::dialogs::propertybindings::WidgetUpdateDeferrerOnBusy;

/// A combo box that counts how often it was painted.
class PaintedComboBox : public QComboBox
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        QComboBox::paintEvent(event);
    }
};

class WidgetUpdateDeferrerOnBusyTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        comboBox->addItems({QStringLiteral("a"), QStringLiteral("b")});
        comboBox->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(comboBox.get()));
        QCoreApplication::processEvents();
        comboBox->paints = 0;
    }

    std::unique_ptr<PaintedComboBox> comboBox = std::make_unique<PaintedComboBox>();
};

TEST_F(WidgetUpdateDeferrerOnBusyTest, PaintsNothingWhileTheApplicationIsBusyAndAllAfterwards)
{
    new WidgetUpdateDeferrerOnBusy(*comboBox);
    {
        WaitState const busy;
        comboBox->setCurrentIndex(1);
        QCoreApplication::processEvents();
        EXPECT_EQ(comboBox->paints, 0);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(comboBox->paints, 1);
}

TEST_F(WidgetUpdateDeferrerOnBusyTest, WaitsForTheEndOfTheOutermostWaitState)
{
    new WidgetUpdateDeferrerOnBusy(*comboBox);
    WaitState const outer;
    {
        WaitState const inner;
        EXPECT_FALSE(comboBox->updatesEnabled());
    }
    EXPECT_FALSE(comboBox->updatesEnabled());
}

TEST_F(WidgetUpdateDeferrerOnBusyTest, DelaysPaintingOnlyNotSignals)
{
    new WidgetUpdateDeferrerOnBusy(*comboBox);
    int changes = 0;
    QObject::connect(comboBox.get(), QOverload<int>::of(&QComboBox::currentIndexChanged), [&] { ++changes; });
    WaitState const busy;
    comboBox->setCurrentIndex(1);
    EXPECT_EQ(changes, 1);
}

TEST_F(WidgetUpdateDeferrerOnBusyTest, StartsToDeferAtOnceInABusyApplication)
{
    {
        WaitState const busy;
        new WidgetUpdateDeferrerOnBusy(*comboBox);
        EXPECT_FALSE(comboBox->updatesEnabled());
    }
    EXPECT_TRUE(comboBox->updatesEnabled());
}

TEST_F(WidgetUpdateDeferrerOnBusyTest, LeavesAWidgetThatSomebodyElseKeepsFromPainting)
{
    new WidgetUpdateDeferrerOnBusy(*comboBox);
    comboBox->setUpdatesEnabled(false);
    {
        WaitState const busy;
    }
    EXPECT_FALSE(comboBox->updatesEnabled());
}

TEST_F(WidgetUpdateDeferrerOnBusyTest, DefersOnWhenAParentResumesPaintingMeanwhile)
{
    QWidget parent;
    auto* const child = new QWidget(&parent);
    new WidgetUpdateDeferrerOnBusy(*child);
    parent.setUpdatesEnabled(false);
    {
        WaitState const busy;
        parent.setUpdatesEnabled(true);
        EXPECT_FALSE(child->updatesEnabled());
    }
    EXPECT_TRUE(child->updatesEnabled());
}

TEST_F(WidgetUpdateDeferrerOnBusyTest, MayStandTwiceOnOneWidget)
{
    new WidgetUpdateDeferrerOnBusy(*comboBox);
    new WidgetUpdateDeferrerOnBusy(*comboBox);
    {
        WaitState const busy;
        EXPECT_FALSE(comboBox->updatesEnabled());
    }
    EXPECT_TRUE(comboBox->updatesEnabled());
}

TEST_F(WidgetUpdateDeferrerOnBusyTest, GoesWithItsWidgetAlsoWhileBusy)
{
    QPointer<QObject> const deferrer = new WidgetUpdateDeferrerOnBusy(*comboBox);
    WaitState const busy;
    comboBox.reset();
    EXPECT_TRUE(deferrer.isNull());
}

} // namespace
} // namespace veldraw::tests
