#include "app/plot/PlotTheme.h"
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

namespace {

/// A user who clicks on places of field plots.
class PlotProbeTest : public ::testing::TestWithParam<PlotType_e>
{
protected:
    PlotProbeTest()
        : set(isInSpace() ? SampleData::bricks(6) : SampleData::sheet(7, 7))
        , page({SampleData::frame("Grid", set, GetParam())}, {900, 560})
    {
        page.picture();
        QObject::connect(&page.view(), &app::PageView::probed,
                         [this](app::ProbedPlace const& place) { probes.push_back(place); });
    }

    static bool isInSpace() { return GetParam() == PlotType_Cartesian3D; }

    /// A point of the last layer, of 7 x 7 points, which is seen from above.
    std::int64_t pointOfTop(std::int64_t number) const { return set->zone(1)->pointCount() - 49 + number; }

    /// Where a point of the zone is seen.
    QPoint mouseOver(std::int64_t point)
    {
        vtkRenderer& stage = page.field().stage();
        double place[3] = {0.0, 0.0, 0.0};
        for (int axis = 0; axis < (isInSpace() ? 3 : 2); ++axis)
            place[axis] = page.field().space().toScene(axis, set->field(1, axis + 1)->group()->buffer()->value(point));
        stage.SetWorldPoint(place[0], place[1], place[2], 1.0);
        stage.WorldToDisplay();
        double const ratio = page.view().devicePixelRatioF();
        return {static_cast<int>(stage.GetDisplayPoint()[0] / ratio),
                page.view().height() - static_cast<int>(stage.GetDisplayPoint()[1] / ratio)};
    }

    void click(QPoint const& place, Qt::KeyboardModifiers modifiers)
    {
        std::size_t const before = probes.size();
        QTest::mouseClick(page.view().windowHandle(), Qt::LeftButton, modifiers, place);
        static_cast<void>(
            QTest::qWaitFor([&] { return probes.size() > before; }, 500)); // there may be nothing to probe
    }

    std::shared_ptr<kernel::DataSet> set;
    PlotTestPage page;
    std::vector<app::ProbedPlace> probes;
};

} // namespace

TEST_P(PlotProbeTest, AClickWithShiftProbesThePointUnderTheMouseAndPicksNothing)
{
    for (std::int64_t const point : {pointOfTop(24), pointOfTop(16), pointOfTop(37)}) {
        click(mouseOver(point), Qt::ShiftModifier);
        ASSERT_FALSE(probes.empty());
        app::ProbedPlace const& probe = probes.back();
        EXPECT_EQ(probe.frame, page.frame().id);
        EXPECT_EQ(app::nearestPoint(*set->zone(1), probe.place, probe.axisVariables()), point);
        std::array<double, 3> const position = probe.position().value();
        for (int axis = 0; axis < (isInSpace() ? 3 : 2); ++axis)
            EXPECT_NEAR(position[static_cast<std::size_t>(axis)],
                        set->field(1, axis + 1)->group()->buffer()->value(point), 0.02);
    }
    EXPECT_EQ(probes.size(), 3U);
    EXPECT_TRUE(page.session().picks().empty());
}

TEST_P(PlotProbeTest, AClickAlonePicksUnlessClicksAreToProbe)
{
    QPoint const middle = mouseOver(pointOfTop(24));
    click(middle, {});
    EXPECT_TRUE(probes.empty());
    EXPECT_EQ(page.session().picks().size(), 1U);
    page.session().setPicks({});
    page.view().probeByClick(true);
    click(middle + QPoint(20, 0), {});
    EXPECT_EQ(probes.size(), 1U);
    EXPECT_TRUE(page.session().picks().empty());
    click(middle, Qt::ControlModifier);
    EXPECT_EQ(probes.size(), 1U);
    EXPECT_EQ(page.session().picks().size(), 1U) << "with Ctrl zones are picked as ever";
}

TEST_P(PlotProbeTest, ADragWithShiftAndAClickBesideTheZonesProbeNothing)
{
    QPoint const middle = mouseOver(pointOfTop(24));
    page.drag(middle, middle + QPoint(40, 30), Qt::LeftButton, Qt::ShiftModifier);
    click(page.at(0.3, 0.01), Qt::ShiftModifier);
    EXPECT_TRUE(probes.empty());
}

TEST_P(PlotProbeTest, AProbedPlaceIsMarkedWhereItIsSeenAndTheMarkGoesWithTheView)
{
    auto const ringAt = [this](QPoint const& middle) {
        QImage const area = page.picture().copy(QRect(middle - QPoint(8, 8), QSize(17, 17)));
        return PlotTestPage::pixelsNear(area, app::PlotTheme::picked(), 40);
    };
    QPoint const place = mouseOver(pointOfTop(16));
    EXPECT_LT(ringAt(place), 5);
    click(place, Qt::ShiftModifier);
    ASSERT_EQ(probes.size(), 1U);
    page.view().markProbes(probes);
    EXPECT_GT(ringAt(place), 20);
    page.picture(isInSpace() ? "probed-in-space" : "probed-in-plane");
    page.drag(page.at(0.5, 0.5), page.at(0.58, 0.5), Qt::LeftButton, Qt::ShiftModifier);
    page.picture();
    EXPECT_GT((mouseOver(pointOfTop(16)) - place).manhattanLength(), 20);
    EXPECT_GT(ringAt(mouseOver(pointOfTop(16))), 20);
    page.view().markProbes({});
    EXPECT_LT(ringAt(mouseOver(pointOfTop(16))), 5);
}

INSTANTIATE_TEST_SUITE_P(FieldPlots, PlotProbeTest, ::testing::Values(PlotType_Cartesian2D, PlotType_Cartesian3D),
                         [](auto const& plot) {
                             return plot.param == PlotType_Cartesian2D ? "InThePlane" : "InSpace";
                         });

} // namespace veldraw::tests
