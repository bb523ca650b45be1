// Values that are read off a plot by the mouse, in the whole window.
#include "tests/app/support/DrawnWindowTest.h"
#include "tests/app/support/SampleData.h"

#include <QDockWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <cmath>

namespace veldraw::tests {

namespace {

/// A sheet with X from 0 to 2, Y from 0 to 1 and p = -5 + 10 X.
class ProbeByMouseTest : public DrawnWindowTest
{
protected:
    ProbeByMouseTest()
    {
        openFrames({{"sheet", SampleData::sheet(21, 11)}});
        showWindow();
        settle();
        picture();
    }

    QImage picture()
    {
        settle();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !page().isDrawing(); }, 60000));
        return page().grabImage();
    }

    /// Where a place of the data is seen, in the page.
    QPoint mouseAt(double x, double y)
    {
        vtkRenderer& stage = view().stage();
        stage.SetWorldPoint(view().space().toScene(0, x), view().space().toScene(1, y), 0.0, 1.0);
        stage.WorldToDisplay();
        double const ratio = page().devicePixelRatioF();
        return {static_cast<int>(stage.GetDisplayPoint()[0] / ratio),
                page().height() - static_cast<int>(stage.GetDisplayPoint()[1] / ratio)};
    }

    void clickWithShift(QPoint const& place)
    {
        QString const before = valueOf("Position");
        QTest::mouseClick(&page(), Qt::LeftButton, Qt::ShiftModifier, place);
        EXPECT_TRUE(QTest::qWaitFor([&] { return valueOf("Position") != before; }));
        settle();
    }

    QString valueOf(char const* name)
    {
        auto const& list = *window->findChild<QTreeWidget*>(QStringLiteral("probeList"));
        for (int row = 0; row < list.topLevelItemCount(); ++row)
            if (list.topLevelItem(row)->text(0) == QLatin1String(name))
                return list.topLevelItem(row)->text(1);
        return {};
    }
};

} // namespace

TEST_F(ProbeByMouseTest, TwoClicksAndAButtonMakeALinePlot)
{
    clickWithShift(mouseAt(0.25, 0.2));
    EXPECT_TRUE(window->findChild<QDockWidget*>(QStringLiteral("probeDock"))->isVisible());
    EXPECT_NEAR(valueOf("p").toDouble(), -2.5, 0.1);
    EXPECT_NEAR(valueOf("p").toDouble(), -5.0 + 10.0 * valueOf("X").toDouble(), 1e-7);
    picture(); // the dock may have taken some room
    clickWithShift(mouseAt(1.75, 0.8));
    EXPECT_NEAR(valueOf("dX").toDouble(), 1.5, 0.02);
    EXPECT_NEAR(valueOf("dY").toDouble(), 0.6, 0.02);
    EXPECT_NEAR(valueOf("Length").toDouble(), std::hypot(valueOf("dX").toDouble(), valueOf("dY").toDouble()), 1e-8);
    auto& line = *window->findChild<QPushButton*>(QStringLiteral("probeLine"));
    QTest::mouseClick(&line, Qt::LeftButton);
    picture();
    ASSERT_EQ(session.activePage()->frames.size(), 2U);
    EXPECT_EQ(session.activeFrame()->plotType, PlotType_XYLine);
    EXPECT_EQ(message(), QString()) << "the curve is there";
    ASSERT_EQ(dataSet().zone(2)->pointCount(), 200);
    for (int point = 0; point < 200; ++point) {
        auto const value = [&](int variable) { return dataSet().field(2, variable)->group()->buffer()->value(point); };
        EXPECT_NEAR(value(3), -5.0 + 10.0 * value(1), 1e-11);
    }
}

} // namespace veldraw::tests
