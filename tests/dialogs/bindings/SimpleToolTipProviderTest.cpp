#include "dialogs/bindings/SimpleToolTipProvider.h"

#include "tests/dialogs/support/SwitchedRelevance.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;

// What the user reads when the mouse rests on the widget.
QString toolTipOver(QWidget& widget)
{
    QToolTip::hideText();
    QPoint const middle = widget.rect().center();
    QHelpEvent event(QEvent::ToolTip, middle, widget.mapToGlobal(middle));
    QApplication::sendEvent(&widget, &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

class SimpleToolTipProviderTest : public testing::Test
{
protected:
    SimpleToolTipProviderTest()
    {
        widget.setToolTip(QStringLiteral("its own"));
        widget.resize(100, 30);
        widget.show();
    }
    ~SimpleToolTipProviderTest() override { QToolTip::hideText(); }

    boost::shared_ptr<SwitchedRelevance> rule = boost::make_shared<SwitchedRelevance>(false);
    QLabel widget;
};

TEST_F(SimpleToolTipProviderTest, TellsWhyAWidgetCannotBeUsed)
{
    SimpleToolTipProvider::installDisabledToolTip(rule, {&widget, nullptr}, QStringLiteral("no zone"));
    widget.setEnabled(false);
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("no zone"));
}

TEST_F(SimpleToolTipProviderTest, LeavesTheWidgetsOwnTipWhileTheRuleIsTrue)
{
    SimpleToolTipProvider::installDisabledToolTip(rule, {&widget}, QStringLiteral("no zone"));
    rule->set(true);
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("its own"));
}

TEST_F(SimpleToolTipProviderTest, ComputesTheTextWhenItIsNeeded)
{
    int computed = 0;
    SimpleToolTipProvider::installDynamicDisabledToolTip(rule, {&widget},
                                                         [&] { return QStringLiteral("asked %1").arg(++computed); });
    EXPECT_EQ(computed, 0);
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("asked 1"));
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("asked 2"));
}

TEST_F(SimpleToolTipProviderTest, LeavesTheWidgetsOwnTipWhenThereIsNoText)
{
    SimpleToolTipProvider::installDynamicDisabledToolTip(rule, {&widget}, [] { return QString(); });
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("its own"));
}

class ToolTipUnderTwoRulesTest : public SimpleToolTipProviderTest
{
protected:
    ToolTipUnderTwoRulesTest()
    {
        SimpleToolTipProvider::installDisabledToolTip(rule, {&widget}, QStringLiteral("no zone"));
        SimpleToolTipProvider::installDynamicDisabledToolTip(second, {&widget}, [this] { return secondText; });
    }

    boost::shared_ptr<SwitchedRelevance> second = boost::make_shared<SwitchedRelevance>(false);
    QString secondText = QStringLiteral("no variable");
};

TEST_F(ToolTipUnderTwoRulesTest, TellsTheReasonThatHolds)
{
    second->set(true);
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("no zone"));
    second->set(false);
    rule->set(true);
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("no variable"));
    second->set(true);
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("its own"));
}

TEST_F(ToolTipUnderTwoRulesTest, TellsTheReasonThatCameLastWhenBothHold)
{
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("no variable"));
    secondText.clear();
    EXPECT_EQ(toolTipOver(widget), QStringLiteral("no zone")) << "a reason without words leaves the floor to the other";
}

TEST_F(ToolTipUnderTwoRulesTest, LeavesOtherEventsToTheWidget)
{
    widget.setContextMenuPolicy(Qt::CustomContextMenu);
    int menus = 0;
    QObject::connect(&widget, &QWidget::customContextMenuRequested, [&menus] { ++menus; });
    QContextMenuEvent event(QContextMenuEvent::Mouse, widget.rect().center());
    QApplication::sendEvent(&widget, &event);
    EXPECT_EQ(menus, 1);
    EXPECT_FALSE(QToolTip::isVisible());
}

} // namespace
} // namespace veldraw::tests
