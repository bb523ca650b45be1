#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <QHelpEvent>
#include <QRegularExpression>
#include <QTest>
#include <QToolTip>

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {

using testing::HasSubstr;
using testing::Not;

namespace {

/// A user who rests the mouse over field plots.
class PlotTipTest : public ::testing::Test
{
protected:
    ~PlotTipTest() override
    {
        QToolTip::hideText();
        m_page.reset();
    }

    void show(std::vector<std::shared_ptr<kernel::Frame>> const& frames)
    {
        m_page = std::make_unique<PlotTestPage>(frames, QSize(1000, 560));
        m_page->picture();
    }

    PlotTestPage& page() { return *m_page; }

    void restAt(QPoint const& position)
    {
        QHelpEvent event(QEvent::ToolTip, position, page().view().mapToGlobal(position));
        QApplication::sendEvent(&page().view(), &event);
    }

    /// The box beside the mouse, as the user sees it.
    std::string tipAt(QPoint const& position)
    {
        hide();
        restAt(position);
        if (!QTest::qWaitFor([] { return QToolTip::isVisible(); }, 3000))
            return {};
        return plain(QToolTip::text());
    }

    static void hide()
    {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    }

    static std::string plain(QString text)
    {
        text.replace(QStringLiteral("<br>"), QStringLiteral("\n"));
        return text.remove(QRegularExpression(QStringLiteral("<[^>]*>"))).toStdString();
    }

    /// The number behind a name in a box.
    static double numberOf(std::string const& tip, char const* name)
    {
        QRegularExpression const line(QStringLiteral("\\n%1 = ([^\\n]*)").arg(QString::fromLatin1(name)));
        return line.match(QString::fromStdString(tip)).captured(1).toDouble();
    }

private:
    std::unique_ptr<PlotTestPage> m_page;
};

} // namespace

TEST_F(PlotTipTest, ABoxTellsZonePositionIndexAndContourInThePlane)
{
    auto const set = SampleData::sheet(21, 11); // X from 0 to 2, Y from 0 to 1, p = -5 + 10 X
    set->zone(1)->name = "plate <1>";
    show({SampleData::frame("Sheet", set, PlotType_Cartesian2D)});
    std::string const tip = tipAt(page().at(0.4, 0.5));
    EXPECT_THAT(tip, HasSubstr("Zone 1: plate &lt;1&gt;"));
    double const x = numberOf(tip, "X");
    double const y = numberOf(tip, "Y");
    EXPECT_GT(x, 0.2);
    EXPECT_LT(x, 1.5);
    EXPECT_NEAR(numberOf(tip, "p"), -5.0 + 10.0 * x, 1e-5);
    std::string const index =
        std::to_string(std::lround(10.0 * x) + 1) + ", " + std::to_string(std::lround(10.0 * y) + 1) + ", 1";
    EXPECT_THAT(tip, HasSubstr("I, J, K = " + index)) << tip;
    EXPECT_THAT(tip, Not(HasSubstr("Z =")));
}

TEST_F(PlotTipTest, ABoxTellsCellAndNodeOfFiniteElementsInSpace)
{
    auto const set = SampleData::bricks(4);
    show({SampleData::frame("Bricks", set, PlotType_Cartesian3D)});
    std::string const tip = tipAt(page().at(0.55, 0.5));
    double const place[3] = {numberOf(tip, "X"), numberOf(tip, "Y"), numberOf(tip, "Z")};
    long cell = 0;
    long node = 0;
    long cellStep = 1;
    long nodeStep = 1;
    for (double const along : place) {
        cell += cellStep * std::min(3L, static_cast<long>(std::floor(4.0 * along + 1e-9)));
        node += nodeStep * std::lround(4.0 * along);
        cellStep *= 4;
        nodeStep *= 5;
    }
    EXPECT_THAT(tip, HasSubstr("Cell, Node = " + std::to_string(cell + 1) + ", " + std::to_string(node + 1))) << tip;
}

TEST_F(PlotTipTest, NothingIsToldBesideTheZones)
{
    show({SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    EXPECT_NE(tipAt(page().at(0.4, 0.5)), "");
    restAt(page().at(0.4, 0.02));
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(PlotTipTest, ABoxThatIsStillSearchedForIsDroppedWhenTheMouseGoesOn)
{
    show({SampleData::frame("Sheet", SampleData::sheet(1500, 1000), PlotType_Cartesian2D)});
    QPoint const place = page().at(0.4, 0.5);
    hide();
    restAt(place);
    QMouseEvent move(QEvent::MouseMove, place + QPoint(30, 0), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&page().view(), &move);
    QTest::qWait(300);
    EXPECT_FALSE(QToolTip::isVisible());
    EXPECT_NE(tipAt(place), "") << "where the mouse rests it is told";
}

TEST_F(PlotTipTest, OfTwoRequestsTheLastOneIsAnswered)
{
    show({SampleData::frame("Sheet", SampleData::sheet(1500, 1000), PlotType_Cartesian2D)});
    restAt(page().at(0.3, 0.5));
    double const x = numberOf(tipAt(page().at(0.6, 0.5)), "X");
    double const left = numberOf(tipAt(page().at(0.3, 0.5)), "X");
    EXPECT_GT(x, left + 0.2);
    QTest::qWait(100);
    EXPECT_NEAR(numberOf(plain(QToolTip::text()), "X"), left, 1e-9);
}

TEST_F(PlotTipTest, AContourThatIsNotThereIsNamedAsSuch)
{
    auto const set = SampleData::sheet(21, 11);
    set->addVariable(std::make_shared<kernel::Variable>("q"));
    auto const frame = SampleData::frame("Sheet", set, PlotType_Cartesian2D);
    set->zone(1)->fields.resize(4);
    frame->contourVariable = set->variable(4)->id;
    show({frame});
    EXPECT_THAT(tipAt(page().at(0.4, 0.5)), HasSubstr("q = passive"));
}

} // namespace veldraw::tests
