#include "dialogs/bindings/WheelGuard.h"

#include "tests/dialogs/support/Wheel.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::WheelGuard;

/// A page that is longer than its window, with a combo box and two spin boxes on it; the button has the focus.
class WheelGuardTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        comboBox->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        auto* const page = new QWidget;
        auto* const layout = new QVBoxLayout(page);
        for (QWidget* const widget : {static_cast<QWidget*>(button), static_cast<QWidget*>(comboBox),
                                      static_cast<QWidget*>(spinBox), static_cast<QWidget*>(doubleSpinBox)})
            layout->addWidget(widget);
        layout->addSpacing(2000);
        area.setWidget(page);
        area.resize(300, 300);
        area.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&area));
        button->setFocus();
    }

    void guardAll()
    {
        new WheelGuard(*comboBox);
        new WheelGuard(*spinBox);
        new WheelGuard(*doubleSpinBox);
    }

    int scrolled() const { return area.verticalScrollBar()->value(); }

    QScrollArea area;
    QPushButton* const button = new QPushButton(QStringLiteral("Apply"));
    QComboBox* const comboBox = new QComboBox;
    QSpinBox* const spinBox = new QSpinBox;
    QDoubleSpinBox* const doubleSpinBox = new QDoubleSpinBox;
};

// The others prove nothing unless the wheel really arrives.
TEST_F(WheelGuardTest, IsNeededSinceTheWheelChangesUnfocusedWidgets)
{
    turnWheel(*comboBox);
    turnWheel(*spinBox, 1);
    EXPECT_EQ(comboBox->currentIndex(), 1);
    EXPECT_EQ(spinBox->value(), 1);
}

TEST_F(WheelGuardTest, LeavesUnfocusedWidgetsAsTheyAre)
{
    guardAll();
    for (QWidget* const widget :
         {static_cast<QWidget*>(comboBox), static_cast<QWidget*>(spinBox), static_cast<QWidget*>(doubleSpinBox)}) {
        area.verticalScrollBar()->setValue(0);
        turnWheel(*widget, -1);
        area.verticalScrollBar()->setValue(0);
        turnWheel(*widget, 1);
    }
    EXPECT_EQ(comboBox->currentIndex(), 0);
    EXPECT_EQ(spinBox->value(), 0);
    EXPECT_EQ(doubleSpinBox->value(), 0.0);
}

TEST_F(WheelGuardTest, LeavesTheFocusWhereItIs)
{
    guardAll();
    turnWheel(*comboBox);
    turnWheel(*spinBox);
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(WheelGuardTest, LetsWhatIsAroundTheWidgetScroll)
{
    guardAll();
    turnWheel(*comboBox);
    EXPECT_GT(scrolled(), 0);
    area.verticalScrollBar()->setValue(0);
    turnWheel(*spinBox);
    EXPECT_GT(scrolled(), 0);
}

TEST_F(WheelGuardTest, LetsTheWheelChangeTheWidgetThatHasTheFocus)
{
    guardAll();
    comboBox->setFocus();
    turnWheel(*comboBox);
    EXPECT_EQ(comboBox->currentIndex(), 1);
    spinBox->setFocus();
    turnWheel(*spinBox, 1);
    EXPECT_EQ(spinBox->value(), 1);
    EXPECT_EQ(scrolled(), 0);
}

TEST_F(WheelGuardTest, GuardsAnEditableComboBoxAlsoOverItsText)
{
    comboBox->setEditable(true);
    guardAll();
    turnWheel(*comboBox->lineEdit());
    EXPECT_EQ(comboBox->currentIndex(), 0);
    EXPECT_TRUE(button->hasFocus());
    area.verticalScrollBar()->setValue(0);
    comboBox->setFocus();
    turnWheel(*comboBox->lineEdit());
    EXPECT_EQ(comboBox->currentIndex(), 1);
}

TEST_F(WheelGuardTest, StillLetsTheWidgetBeClickedAndTabbedTo)
{
    guardAll();
    QTest::keyClick(button, Qt::Key_Tab);
    EXPECT_TRUE(comboBox->hasFocus());
    QPoint const text = spinBox->mapTo(&area, QPoint(10, spinBox->height() / 2));
    QTest::mouseClick(area.windowHandle(), Qt::LeftButton, Qt::NoModifier, text);
    EXPECT_TRUE(spinBox->hasFocus());
}

TEST_F(WheelGuardTest, LeavesAStricterFocusPolicyOfTheForm)
{
    comboBox->setFocusPolicy(Qt::TabFocus);
    guardAll();
    EXPECT_EQ(comboBox->focusPolicy(), Qt::TabFocus);
}

TEST_F(WheelGuardTest, MayStandTwiceOnOneWidget)
{
    guardAll();
    guardAll();
    turnWheel(*comboBox);
    EXPECT_EQ(comboBox->currentIndex(), 0);
    EXPECT_GT(scrolled(), 0);
}

} // namespace
} // namespace veldraw::tests
