#include "app/window/LineAxesBox.h"

#include "kernel/operations/SetLineAxis.h"
#include "kernel/operations/SetLineMaps.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace veldraw::tests {

namespace {

class LineAxesBoxTest : public WindowTest
{
protected:
    /// X and Y of the sample go from 0 to 3 and from 0 to 2.
    void SetUp() override
    {
        openFlow();
        session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine));
        session.history().clear();
        showWindow();
        action("assignAction").trigger();
        settle();
    }

    QLineEdit& field(char const* name) { return *window->findChild<QLineEdit*>(QString::fromLatin1(name)); }
    QPushButton& fit() { return *window->findChild<QPushButton*>(QStringLiteral("axesFit")); }
    kernel::LineAxis const& axis(int n) { return session.activeFrame()->lineAxes.axes[static_cast<std::size_t>(n)]; }

    void type(char const* name, char const* text)
    {
        field(name).setFocus();
        field(name).selectAll();
        if (*text == 0)
            QTest::keyClick(&field(name), Qt::Key_Delete);
        QTest::keyClicks(&field(name), QString::fromLatin1(text));
        QTest::keyClick(&field(name), Qt::Key_Return);
        settle();
    }
};

} // namespace

TEST_F(LineAxesBoxTest, ShowsTheRangeOfTheValuesUntilOneIsTyped)
{
    EXPECT_EQ(QString(), field("axisMinX").text());
    EXPECT_EQ(QStringLiteral("0"), field("axisMinX").placeholderText());
    EXPECT_EQ(QStringLiteral("3"), field("axisMaxX").placeholderText());
    EXPECT_EQ(QStringLiteral("2"), field("axisMaxY").placeholderText());
    EXPECT_FALSE(fit().isEnabled());
}

TEST_F(LineAxesBoxTest, ATypedEndIsOneStepAndTheOtherIsThatOfTheValues)
{
    type("axisMinX", "-1.25");
    EXPECT_TRUE(axis(0).isFixed);
    EXPECT_EQ(-1.25, axis(0).min);
    EXPECT_EQ(3.0, axis(0).max);
    EXPECT_EQ(QStringLiteral("3"), field("axisMaxX").text());
    EXPECT_EQ("Axis", session.history().undoName());
    type("axisMaxX", "1e3");
    EXPECT_EQ(-1.25, axis(0).min);
    EXPECT_EQ(1000.0, axis(0).max);
    session.undo();
    session.undo();
    settle();
    EXPECT_EQ(QString(), field("axisMinX").text());
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(LineAxesBoxTest, AnEndThatPassesTheOtherTakesItAlong)
{
    type("axisMinY", "10");
    EXPECT_EQ(10.0, axis(1).min);
    EXPECT_EQ(12.0, axis(1).max);
    type("axisMaxY", "-5");
    EXPECT_EQ(-7.0, axis(1).min);
    EXPECT_EQ(-5.0, axis(1).max);
}

TEST_F(LineAxesBoxTest, AnEmptiedEndOrTheButtonGivesTheAxesAllValuesAgain)
{
    type("axisMinX", "1");
    type("axisMinX", "");
    EXPECT_FALSE(axis(0).isFixed);
    EXPECT_EQ(QString(), field("axisMaxX").text());
    type("axisMinX", "1");
    type("axisMaxY2", "7");
    EXPECT_TRUE(axis(2).isFixed);
    ASSERT_TRUE(fit().isEnabled());
    QTest::mouseClick(&fit(), Qt::LeftButton);
    settle();
    EXPECT_FALSE(axis(0).isFixed);
    EXPECT_FALSE(axis(2).isFixed);
    EXPECT_FALSE(fit().isEnabled());
    EXPECT_EQ("Fit", session.history().undoName());
    session.undo();
    EXPECT_TRUE(axis(0).isFixed && axis(2).isFixed) << "one step";
}

TEST_F(LineAxesBoxTest, WhatIsNoNumberIsNotTaken)
{
    type("axisMinX", "1");
    session.history().clear();
    for (char const* const text : {"1,5", "nan", "inf", "one", "1e999"}) {
        type("axisMinX", text);
        EXPECT_EQ(QStringLiteral("1"), field("axisMinX").text()) << text;
    }
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(LineAxesBoxTest, TitlesAreTyped)
{
    type("axisTitleY2", "p (Pa)");
    EXPECT_EQ("p (Pa)", axis(2).title);
    type("plotTitle", "Behind the step");
    EXPECT_EQ("Behind the step", session.activeFrame()->lineAxes.title);
    EXPECT_EQ("Plot Title", session.history().undoName());
    session.undo();
    session.undo();
    settle();
    EXPECT_EQ(QString(), field("axisTitleY2").text());
    EXPECT_EQ(QString(), field("plotTitle").text());
}

TEST_F(LineAxesBoxTest, WhatIsOnlyLookedAtIsNotWritten)
{
    session.perform(kernel::SetLineAxis(session.activeFrame()->id, kernel::LineAxisKind::X, {true, 1.0 / 3, 2.0, {}}));
    settle();
    session.history().clear();
    for (char const* const name : {"axisMinX", "axisMaxX", "axisTitleX", "plotTitle"}) {
        field(name).setFocus();
        QTest::keyClick(&field(name), Qt::Key_Return);
    }
    settle();
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_EQ(1.0 / 3, field("axisMinX").text().toDouble());
}

TEST_F(LineAxesBoxTest, IsThereForLinePlotsAlone)
{
    EXPECT_TRUE(field("axisMinX").isVisible());
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian2D));
    settle();
    EXPECT_FALSE(field("axisMinX").isVisible());
}

} // namespace veldraw::tests
