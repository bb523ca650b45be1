#include "app/window/BlankingBox.h"

#include "app/window/BlankingRow.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

namespace veldraw::tests {

using kernel::ValueBlanking;

namespace {

class BlankingBoxTest : public WindowTest
{
protected:
    // P of the sample goes from 10 to 16 at its cells.
    void open()
    {
        openFlow();
        showWindow();
        action("assignAction").trigger();
        settle();
    }

    template <typename Widget>
    Widget& field(char const* name)
    {
        return *window->findChild<Widget*>(QString::fromLatin1(name));
    }

    bool isThere(char const* name)
    {
        auto const* const widget = window->findChild<QWidget*>(QString::fromLatin1(name));
        return widget && widget->isVisible();
    }

    template <typename Widget>
    void click(char const* name)
    {
        QTest::mouseClick(&field<Widget>(name), Qt::LeftButton);
        settle();
    }

    // The middle of a check box of a wide form is beside its text.
    void press(char const* name)
    {
        auto& box = field<QCheckBox>(name);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Space);
        settle();
    }

    void type(char const* name, char const* text)
    {
        auto& box = field<QAbstractSpinBox>(name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QString::fromLatin1(text));
        QTest::keyClick(&box, Qt::Key_Return);
        settle();
    }

    void choose(char const* name, Qt::Key key)
    {
        auto& chooser = field<app::NumberChooser>(name);
        chooser.setFocus();
        QTest::keyClick(&chooser, key);
        settle();
    }

    ValueBlanking const& blanking() { return session.activeFrame()->valueBlanking; }
    kernel::BlankingConstraint const& constraint(std::size_t at = 0) { return blanking().constraints.at(at); }

    kernel::UniqueId contour() { return session.activeFrame()->contourVariable; }
};

} // namespace

TEST_F(BlankingBoxTest, StartsOffAndWithoutAConstraint)
{
    open();
    EXPECT_FALSE(field<QCheckBox>("blankingOn").isChecked());
    EXPECT_FALSE(isThere("blankingLimit1"));
}

TEST_F(BlankingBoxTest, AddsAConstraintInTheMiddleOfTheContourAndSwitchesOn)
{
    open();
    click<QPushButton>("blankingAdd");
    ASSERT_EQ(1U, blanking().constraints.size());
    EXPECT_TRUE(blanking().isOn);
    EXPECT_TRUE(field<QCheckBox>("blankingOn").isChecked());
    EXPECT_EQ(contour(), constraint().variable);
    EXPECT_EQ(13.0, constraint().limit);
    EXPECT_FALSE(constraint().isAbove);
    EXPECT_TRUE(constraint().isActive);
    EXPECT_EQ(QStringLiteral("13"), field<QAbstractSpinBox>("blankingLimit1").text());
    EXPECT_TRUE(field<QAbstractSpinBox>("blankingLimit1").hasFocus());
    EXPECT_EQ("Value Blanking", session.history().undoName());
}

TEST_F(BlankingBoxTest, EachFieldIsAStep)
{
    open();
    click<QPushButton>("blankingAdd");
    type("blankingLimit1", "11.5");
    EXPECT_EQ(11.5, constraint().limit);
    choose("blankingSide1", Qt::Key_Down);
    EXPECT_TRUE(constraint().isAbove);
    press("blankingActive1");
    EXPECT_FALSE(constraint().isActive);
    press("blankingOn");
    EXPECT_FALSE(blanking().isOn);
    for (int step = 0; step < 5; ++step)
        EXPECT_TRUE(session.undo()) << step;
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_TRUE(blanking() == ValueBlanking());
    settle();
    EXPECT_FALSE(isThere("blankingLimit1"));
}

TEST_F(BlankingBoxTest, AnotherVariableComesWithTheMiddleOfItsRange)
{
    open();
    click<QPushButton>("blankingAdd");
    choose("blankingVariable1", Qt::Key_Home);
    EXPECT_EQ(session.activeDataSet()->variable(1)->id, constraint().variable);
    kernel::ValueRange const range = session.activeDataSet()->zone(1)->range(1);
    EXPECT_GE(constraint().limit, range.min);
    EXPECT_LE(constraint().limit, 10.0);
    EXPECT_NE(13.0, constraint().limit);
}

TEST_F(BlankingBoxTest, RemovesTheRowThatIsMeant)
{
    open();
    for (char const* const limit : {"11", "12", "14"}) {
        click<QPushButton>("blankingAdd");
        std::string const name = "blankingLimit" + std::to_string(blanking().constraints.size());
        type(name.c_str(), limit);
    }
    ASSERT_EQ(3U, blanking().constraints.size());
    click<QToolButton>("blankingRemove2");
    ASSERT_EQ(2U, blanking().constraints.size());
    EXPECT_EQ(11.0, constraint(0).limit);
    EXPECT_EQ(14.0, constraint(1).limit);
    EXPECT_EQ(QStringLiteral("14"), field<QAbstractSpinBox>("blankingLimit2").text());
    EXPECT_FALSE(isThere("blankingLimit3"));
}

TEST_F(BlankingBoxTest, IsTakenBackByItsKeys)
{
    open();
    click<QPushButton>("blankingAdd");
    press("blankingOn");
    ASSERT_FALSE(blanking().isOn);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_TRUE(blanking().isOn);
    EXPECT_TRUE(field<QCheckBox>("blankingOn").isChecked());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_TRUE(blanking() == ValueBlanking());
    EXPECT_FALSE(field<QCheckBox>("blankingOn").isChecked());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    settle();
    EXPECT_TRUE(isThere("blankingLimit1"));
}

TEST_F(BlankingBoxTest, ArrowsMoveALimitByAHundredthOfTheRange)
{
    open();
    click<QPushButton>("blankingAdd");
    QTest::keyClick(&field<QAbstractSpinBox>("blankingLimit1"), Qt::Key_Up);
    settle();
    EXPECT_NEAR(13.06, constraint().limit, 1e-12);
    QTest::keyClick(&field<QAbstractSpinBox>("blankingLimit1"), Qt::Key_Down);
    settle();
    EXPECT_NEAR(13.0, constraint().limit, 1e-12);
}

TEST_F(BlankingBoxTest, TheSameNumberTypedAgainIsNoStep)
{
    open();
    click<QPushButton>("blankingAdd");
    session.history().clear();
    type("blankingLimit1", "13");
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(BlankingBoxTest, RowsOfVariablesThatAreGoneComeBackWithThem)
{
    open();
    click<QPushButton>("blankingAdd");
    int const variable = session.activeFrame()->variableNumber('C');
    session.perform(kernel::DeleteVariables(*session.activeDataSet(), {variable}));
    settle();
    EXPECT_FALSE(isThere("blankingLimit1"));
    session.undo();
    settle();
    EXPECT_TRUE(isThere("blankingLimit1"));
    EXPECT_EQ(13.0, constraint().limit);
}

TEST_F(BlankingBoxTest, TheWheelOverALimitWithoutFocusChangesNothing)
{
    open();
    click<QPushButton>("blankingAdd");
    auto& box = field<QAbstractSpinBox>("blankingLimit1");
    field<QCheckBox>("blankingOn").setFocus();
    QPointF const centre = box.rect().center();
    QWheelEvent wheel(centre, box.mapToGlobal(centre.toPoint()), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&box, &wheel);
    settle();
    EXPECT_EQ(13.0, constraint().limit);
}

TEST_F(BlankingBoxTest, IsThereForFieldPlotsAlone)
{
    open();
    EXPECT_TRUE(isThere("blankingAdd"));
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine));
    settle();
    EXPECT_FALSE(isThere("blankingAdd"));
}

} // namespace veldraw::tests
