#include "app/window/ContourBox.h"

#include "app/window/NumberChooser.h"
#include "kernel/operations/SetContourColours.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>

namespace veldraw::tests {

using kernel::ContourColours;

namespace {

class ContourBoxTest : public WindowTest
{
protected:
    // P of the sample goes from 10 to 16 at its cells.
    void open()
    {
        openFlow();
        showWindow();
        action("assignAction").trigger();
        settle();
        m_before = shown("contourMax").toDouble();
    }

    template <typename Widget = QAbstractSpinBox>
    Widget& field(char const* name)
    {
        return *window->findChild<Widget*>(QString::fromLatin1(name));
    }

    QString shown(char const* name) { return field(name).text(); }

    void type(char const* name, char const* text)
    {
        QAbstractSpinBox& box = field(name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QString::fromLatin1(text));
        QTest::keyClick(&box, Qt::Key_Return);
        settle();
    }

    ContourColours const& colours() { return session.activeFrame()->contourColours; }

    double m_before = 0.0; // the highest value that is shown
};

} // namespace

TEST_F(ContourBoxTest, ShowsTheRangeOfTheLegend)
{
    open();
    EXPECT_EQ(QStringLiteral("10"), shown("contourMin"));
    EXPECT_EQ(QStringLiteral("16"), shown("contourMax"));
    EXPECT_FALSE(field<QPushButton>("contourAsShown").isEnabled());
}

TEST_F(ContourBoxTest, ALimitThatIsTypedIsOneStepAndTheButtonTakesItAwayAgain)
{
    open();
    type("contourMin", "0.25");
    EXPECT_TRUE(colours().isFixed);
    EXPECT_EQ(0.25, colours().min);
    EXPECT_DOUBLE_EQ(m_before, colours().max);
    EXPECT_EQ("Contour Colours", session.history().undoName());
    QTest::mouseClick(&field<QPushButton>("contourAsShown"), Qt::LeftButton);
    settle();
    EXPECT_FALSE(colours().isFixed);
    EXPECT_DOUBLE_EQ(m_before, shown("contourMax").toDouble());
    session.undo();
    session.undo();
    settle();
    EXPECT_TRUE(colours() == ContourColours());
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(ContourBoxTest, ALimitThatPassesTheOtherOneTakesItAlong)
{
    open();
    double const width = m_before - shown("contourMin").toDouble();
    type("contourMin", "1000");
    EXPECT_EQ(1000.0, colours().min);
    EXPECT_DOUBLE_EQ(1000.0 + width, colours().max);
    type("contourMax", "-5");
    EXPECT_DOUBLE_EQ(-5.0 - width, colours().min);
    EXPECT_EQ(-5.0, colours().max);
}

TEST_F(ContourBoxTest, TheSameNumberTypedAgainIsNoStep)
{
    open();
    field("contourMin").setFocus();
    QTest::keyClick(&field("contourMin"), Qt::Key_Return);
    settle();
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(ContourBoxTest, ArrowsMoveALimitByAHundredthOfTheRange)
{
    open();
    type("contourMin", "0");
    type("contourMax", "10");
    field("contourMax").setFocus();
    QTest::keyClick(&field("contourMax"), Qt::Key_Up);
    settle();
    EXPECT_DOUBLE_EQ(10.1, colours().max);
    QTest::keyClick(&field("contourMax"), Qt::Key_Down);
    settle();
    EXPECT_NEAR(10.0, colours().max, 0.01);
}

TEST_F(ContourBoxTest, ChoosesTheColourMapAndTheLevels)
{
    open();
    auto& map = field<app::NumberChooser>("contourMap");
    EXPECT_EQ(QStringLiteral("Viridis"), map.currentText());
    map.setFocus();
    QTest::keyClick(&map, Qt::Key_Down);
    settle();
    EXPECT_EQ(kernel::ColourMapKind::Inferno, colours().map);
    EXPECT_FALSE(colours().isFixed);
    EXPECT_FALSE(field("contourLevels").isEnabled()) << "the contour has no bands";
    session.perform(kernel::SetPlotOption(session.activeFrame()->id, &kernel::Frame::contourInBands, true));
    settle();
    EXPECT_EQ(QStringLiteral("round steps"), shown("contourLevels"));
    type("contourLevels", "7");
    EXPECT_EQ(7, colours().levels);
    session.undo();
    settle();
    EXPECT_EQ(QStringLiteral("round steps"), shown("contourLevels"));
}

TEST_F(ContourBoxTest, TheWheelOverAFieldWithoutFocusChangesNothing)
{
    open();
    session.perform(kernel::SetPlotOption(session.activeFrame()->id, &kernel::Frame::contourInBands, true));
    settle();
    for (char const* const name : {"contourMin", "contourMax", "contourLevels"}) {
        QAbstractSpinBox& box = field(name);
        ASSERT_FALSE(box.hasFocus());
        QPointF const centre = box.rect().center();
        QWheelEvent wheel(centre, box.mapToGlobal(centre.toPoint()), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&box, &wheel);
    }
    settle();
    EXPECT_TRUE(colours() == ContourColours());
}

TEST_F(ContourBoxTest, IsOffWithoutAContour)
{
    open();
    EXPECT_TRUE(field("contourMin").isEnabled());
    session.perform(kernel::SetPlotOption(session.activeFrame()->id, &kernel::Frame::showContour, false));
    settle();
    EXPECT_FALSE(field("contourMin").isEnabled());
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine));
    settle();
    EXPECT_FALSE(field("contourMin").isVisible());
}

} // namespace veldraw::tests
