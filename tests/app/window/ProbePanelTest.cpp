#include "app/window/ProbePanel.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"
#include "tests/app/support/WindowTest.h"
#include "tests/kernel/support/SampleLoader.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTreeWidget>

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Weighted = std::vector<kernel::WeightedPoint>;

/// A user who has pointed at places of the inlet, 4 x 3 points at X = 0 to 3 and Y = 0 to 2, with P = 10 X + 100 Y at points, and Q,
/// 7, 8, 9, ..., in cells.
class ProbePanelTest : public WindowTest
{
protected:
    void SetUp() override
    {
        openFrames({{"flow", makeGrid()}});
        ASSERT_TRUE(session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian2D)));
        session.history().clear();
        showWindow();
    }

    static kernel::Field stored(std::vector<double> const& values, ValueLocation_e location)
    {
        auto const buffer = kernel::Buffer::allocate(FieldDataType_Double, static_cast<std::int64_t>(values.size()));
        for (std::size_t n = 0; n < values.size(); ++n)
            buffer->setValue(static_cast<std::int64_t>(n), values[n]);
        return kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), location);
    }

    std::shared_ptr<kernel::DataSet> makeGrid()
    {
        auto set = std::make_shared<kernel::DataSet>("grid");
        for (char const* const name : {"X", "Y", "P", "Q", "None", "Later"})
            set->addVariable(std::make_shared<kernel::Variable>(name));
        std::vector<double> x, y, p, q;
        for (int n = 0; n < 12; ++n) {
            x.push_back(n % 4);
            y.push_back(n / 4);
            p.push_back(10.0 * x.back() + 100.0 * y.back());
            q.push_back(7.0 + n);
        }
        auto zone = std::make_shared<kernel::Zone>("inlet", ZoneType_Ordered, 4, 3, 1);
        zone->fields = {stored(x, ValueLocation_Nodal),
                        stored(y, ValueLocation_Nodal),
                        stored(p, ValueLocation_Nodal),
                        stored(q, ValueLocation_CellCentered),
                        kernel::Field(),
                        sample::Loader::field(loader)};
        set->addZone(zone);
        return set;
    }

    app::CentralView makeView() override
    {
        app::CentralView view = WindowTest::makeView();
        view.onProbe = [this](auto const& function) { m_probe = function; };
        view.markProbes = [this](std::vector<app::ProbedPlace> const& places) { marked = places.size(); };
        view.probeByClick = [this](bool isOn) { probesByClick = isOn; };
        return view;
    }

    /// Points at a place of a cell of the first row.
    void pointAt(std::int64_t cell, double alongX, double alongY)
    {
        auto const& set = session.activeDataSet();
        app::ProbedPlace probe;
        probe.dataSet = set;
        probe.axes = {set->variable(1)->id, set->variable(2)->id, 0};
        probe.frame = session.activeFrame()->id;
        probe.place = {set->zone(1)->id, cell,
                       Weighted{{cell, (1.0 - alongX) * (1.0 - alongY)},
                                {cell + 1, alongX * (1.0 - alongY)},
                                {cell + 5, alongX * alongY},
                                {cell + 4, (1.0 - alongX) * alongY}}};
        m_probe(probe);
        settle();
    }

    std::vector<std::string> lines()
    {
        std::vector<std::string> found;
        auto const& list = find<QTreeWidget>("probeList");
        for (int row = 0; row < list.topLevelItemCount(); ++row)
            found.push_back((list.topLevelItem(row)->text(0) + QStringLiteral(" = ") + list.topLevelItem(row)->text(1))
                                .toStdString());
        return found;
    }

    template <typename Widget>
    Widget& find(char const* name)
    {
        return *window->findChild<Widget*>(QString::fromLatin1(name));
    }

    void press(char const* button)
    {
        QTest::mouseClick(&find<QPushButton>(button), Qt::LeftButton);
        settle();
    }

    std::shared_ptr<sample::Loader> loader =
        std::make_shared<sample::Loader>(std::vector<double>{0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22});
    bool probesByClick = false;
    std::size_t marked = 0; // places in the plots

private:
    std::function<void(app::ProbedPlace const&)> m_probe;
};

} // namespace

TEST_F(ProbePanelTest, APlaceComesWithZoneIndexPositionAndAllVariables)
{
    pointAt(1, 0.25, 0.5);
    EXPECT_THAT(lines(),
                ElementsAre("Zone = 1: inlet", "I, J, K = 2, 1, 1", "Position = 1.25, 0.5", "X = 1.25", "Y = 0.5",
                            "P = 62.5", "Q = 8 (of the cell)", "None = passive", "Later = not loaded"));
    EXPECT_FALSE(find<QDockWidget>("probeDock").visibleRegion().isEmpty()) << "it comes to the front";
}

TEST_F(ProbePanelTest, ASecondPlaceComesWithTheWayFromTheFirst)
{
    pointAt(0, 0.5, 0.0);
    pointAt(6, 0.5, 1.0); // from (0.5, 0) to (2.5, 2)
    std::vector<std::string> const found = lines();
    ASSERT_GT(found.size(), 6U);
    EXPECT_EQ(found[2], "Position = 2.5, 2");
    EXPECT_EQ(found[3], "dX = 2");
    EXPECT_EQ(found[4], "dY = 2");
    EXPECT_EQ(found[5], "Length = 2.828427125");
    EXPECT_EQ(marked, 2U);
    press("probeForget");
    EXPECT_EQ(marked, 0U);
    EXPECT_THAT(lines(), ElementsAre());
    EXPECT_FALSE(find<QPushButton>("probeCopy").isEnabled());
}

TEST_F(ProbePanelTest, ValuesFollowEditsAndUndo)
{
    pointAt(1, 0.5, 0.0);
    EXPECT_EQ(lines()[5], "P = 15");
    ASSERT_TRUE(session.perform(kernel::SetValue(*session.activeDataSet(), 1, 3, 2, 110.0, true)));
    settle();
    EXPECT_EQ(lines()[5], "P = 60");
    session.undo();
    settle();
    EXPECT_EQ(lines()[5], "P = 15");
}

TEST_F(ProbePanelTest, NamesAndVariablesFollowTheData)
{
    pointAt(1, 0.5, 0.0);
    session.perform(kernel::RenameZone(*session.activeDataSet(), 1, "pipe"));
    session.perform(kernel::DeleteVariables(*session.activeDataSet(), {4, 5}));
    settle();
    EXPECT_THAT(lines(), ElementsAre("Zone = 1: pipe", "I, J, K = 2, 1, 1", "Position = 1.5, 0", "X = 1.5", "Y = 0",
                                     "P = 15", "Later = not loaded"));
    session.undo();
    settle();
    EXPECT_EQ(lines()[6], "Q = 8 (of the cell)");
}

TEST_F(ProbePanelTest, AZoneThatIsGoneIsSaidToBeAndComesBackByUndo)
{
    pointAt(1, 0.5, 0.0);
    std::vector<std::string> const before = lines();
    auto const set = session.activeDataSet();
    auto const zone = set->zone(1);
    set->zones().clear();
    session.events().emitEvent({StateChange_ZonesDeleted, {1}, {}, {}, 0});
    settle();
    EXPECT_THAT(lines(), ElementsAre("Zone = not there any more"));
    set->zones().push_back(zone);
    session.events().emitEvent({StateChange_ZonesAdded, {1}, {}, {}, 0});
    settle();
    EXPECT_EQ(lines(), before);
}

TEST_F(ProbePanelTest, ValuesAreLoadedWhenTheUserAsksForThem)
{
    pointAt(1, 0.25, 0.5);
    EXPECT_EQ(loader->loads, 0);
    press("probeLoad");
    EXPECT_EQ(loader->loads, 1);
    EXPECT_EQ(lines().back(), "Later = 6.5"); // twice the number of the point, 1.25 + 0.5 * 4
    EXPECT_FALSE(find<QPushButton>("probeLoad").isEnabled());
}

TEST_F(ProbePanelTest, CopyTakesAllLinesWithAllDigits)
{
    pointAt(1, 1.0 / 3.0, 0.0);
    press("probeCopy");
    std::string const text = QGuiApplication::clipboard()->text().toStdString();
    EXPECT_THAT(text, HasSubstr("Zone\t1: inlet\nI, J, K\t2, 1, 1\n"));
    EXPECT_THAT(text, HasSubstr("\nX\t1.3333333333333333\n"));
    EXPECT_THAT(text, HasSubstr("\nQ\t8\n"));
    QGuiApplication::clipboard()->clear();
    find<QTreeWidget>("probeList").setFocus();
    QTest::keyClick(&find<QTreeWidget>("probeList"), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
}

TEST_F(ProbePanelTest, TheCheckBoxHasClicksProbeWithoutShift)
{
    action("probeAction").trigger();
    settle();
    EXPECT_FALSE(probesByClick);
    QTest::keyClick(&find<QCheckBox>("probeByClick"), Qt::Key_Space);
    EXPECT_TRUE(probesByClick);
    QTest::keyClick(&find<QCheckBox>("probeByClick"), Qt::Key_Space);
    EXPECT_FALSE(probesByClick);
}

TEST_F(ProbePanelTest, TwoPlacesGiveALinePlotInANewFrame)
{
    EXPECT_FALSE(find<QPushButton>("probeLine").isEnabled());
    pointAt(0, 0.5, 0.0);
    EXPECT_FALSE(find<QPushButton>("probeLine").isEnabled()) << "one place is no line";
    pointAt(6, 0.5, 1.0); // from (0.5, 0) to (2.5, 2)
    action("probeAction").trigger();
    settle();
    find<QSpinBox>("probePoints").setFocus();
    find<QSpinBox>("probePoints").selectAll();
    QTest::keyClicks(&find<QSpinBox>("probePoints"), QStringLiteral("5"));
    press("probeLine");
    auto const set = session.activeDataSet();
    kernel::Frame const& shown = *session.activeFrame();
    EXPECT_EQ(session.activePage()->frames.size(), 2U);
    EXPECT_EQ(shown.plotType, PlotType_XYLine);
    ASSERT_EQ(set->zoneCount(), 2);
    ASSERT_FALSE(shown.lineMaps.empty());
    EXPECT_EQ(shown.lineMaps[0].zone, set->zone(2)->id);
    EXPECT_EQ(shown.lineMaps[0].xVariable, set->variable(7)->id);
    EXPECT_EQ(set->variable(7)->name, "Distance along Line");
    kernel::Frame const& plot = *session.activePage()->frames[0];
    EXPECT_EQ(shown.lineMaps[0].yVariable, plot.contourVariable);
    ASSERT_EQ(set->zone(2)->pointCount(), 5);
    for (int point = 0; point < 5; ++point) { // P = 10 X + 100 Y along X = 0.5 + s, Y = s
        EXPECT_NEAR(set->field(2, 3)->group()->buffer()->value(point), 5.0 + 110.0 * 0.5 * point, 1e-11);
        EXPECT_NEAR(set->field(2, 7)->group()->buffer()->value(point), std::sqrt(0.5) * point, 1e-14);
    }
    EXPECT_EQ(session.history().undoName(), "Plot along Line");
    session.undo();
    settle();
    EXPECT_EQ(session.activePage()->frames.size(), 1U);
    EXPECT_EQ(set->zoneCount(), 1);
    EXPECT_EQ(set->variableCount(), 6);
    EXPECT_TRUE(find<QPushButton>("probeLine").isEnabled()) << "the places are still there";
    session.redo();
    EXPECT_EQ(set->zoneCount(), 2);
}

} // namespace veldraw::tests
