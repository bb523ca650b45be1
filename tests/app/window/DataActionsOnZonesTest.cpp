#include "app/window/VariableRange.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdtoolbox/Set.h"
#include "tests/app/support/DrawnWindowTest.h"
#include "tests/app/support/PictureDifference.h"
#include "tools/samples/FlowSample.h"
#include "tools/samples/MeshSamples.h"

#include <QAction>

#include <algorithm>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

double const origin[3] = {0.0, 0.0, 0.0};
double const alongZ[3] = {0.0, 0.0, 1.0};
int const xyz[3] = {1, 2, 3};

/// One of the operations on zones, turning or copying zone 1 to the other side of X.
struct Operation
{
    char const* name; ///< as the Edit menu shows it
    int copies;       ///< zones that it adds
    bool keepsSource; ///< whether the source stays where it was
    bool (*run)(long long dataSet, Set_s* zones);
};

Operation const operations[] = {
    {"Create Mirror Zone", 1, true, [](long long, Set_s* zones) { return VelUtilCreateMirrorZones(zones, 'X'); }},
    {"Axial Rotation", 0, false,
     [](long long dataSet, Set_s* zones) {
         return VelUtilDataRotate(dataSet, zones, xyz, true, nullptr, nullptr, nullptr, false, 180.0, origin, alongZ);
     }},
    {"Axial Duplication", 1, true,
     [](long long dataSet, Set_s* zones) {
         return VelUtilDataAxialDuplicate(dataSet, zones, xyz, true, nullptr, nullptr, nullptr, false, 180.0, 0.0, 1,
                                          origin, alongZ, true);
     }},
};

/// A file as it is written by the sample generator.
struct Sample
{
    char const* file;
    void (*write)(std::string const& path);
};

Sample const sampleFiles[] = {{"flow.vtm", &samples::writeFlow}, {"tetra.vtu", &samples::writeTetrahedra}};

/// The whole window with an opened sample, plots included.
class ZoneOperationTest : public DrawnWindowTest, public testing::WithParamInterface<std::tuple<Operation, Sample>>
{
protected:
    ZoneOperationTest()
    {
        showWindow();
        openSample(sample().file, sample().write);
        EXPECT_TRUE(session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian3D)));
        EXPECT_TRUE(session.perform(
            kernel::AssignVariable(session.activeFrame()->id, 'C', 1))); // the legend shows how far X reaches
        for (int other = dataSet().zoneCount(); other > 1; --other)
            EXPECT_TRUE(session.perform(kernel::EnableZone(dataSet(), other, false)));
        session.history().clear();
        settle();
    }

    static Operation const& operation() { return std::get<0>(GetParam()); }
    static Sample const& sample() { return std::get<1>(GetParam()); }

    bool run()
    {
        toolbox::Set const zones(1);
        bool const isDone = operation().run(dataSet().id(), zones.getRef());
        settle();
        return isDone;
    }

    QStringList zoneRows() { return column("zoneView", 1); }

    QString rangeOfX() { return shownRange(1); }
    Limits limits() { return {view().space().min(0), view().space().max(0)}; }

    QString menuText(char const* name) { return action(name).text(); }

    static void expectNear(Limits const& expected, Limits const& found)
    {
        double const tolerance = 1e-6 * (expected.max - expected.min);
        EXPECT_NEAR(expected.min, found.min, tolerance);
        EXPECT_NEAR(expected.max, found.max, tolerance);
    }
};

} // namespace

TEST_P(ZoneOperationTest, IsSeenAtOnceEverywhereAndTakenBackAndRedone)
{
    std::string const name = operation().name;
    int const zonesBefore = dataSet().zoneCount();
    QStringList const rowsBefore = zoneRows();
    Limits const before = limits();
    QString const rangeBefore = rangeOfX();
    QImage const pictureBefore = page().grabImage();
    ASSERT_LT(0.0, before.max - before.min);
    Limits const after = operation().keepsSource
                             ? Limits{std::min(before.min, -before.max), std::max(before.max, -before.min)}
                             : Limits{-before.max, -before.min};

    ASSERT_TRUE(run());
    EXPECT_EQ(static_cast<std::size_t>(1 + operation().copies), view().zones().size()) << "drawn at once";
    QStringList expectedRows = rowsBefore;
    for (int copy = 0; copy < operation().copies; ++copy)
        expectedRows << rowsBefore.first();
    EXPECT_EQ(expectedRows, zoneRows());
    expectNear(after, limits());
    expectNear(after, legendLimits());
    EXPECT_EQ(app::VariableRange(dataSet(), 1).text(), rangeOfX());
    QImage const pictureAfter = page().grabImage();
    EXPECT_LT(500, differingPixels(pictureBefore, pictureAfter));
    EXPECT_EQ(name, session.history().undoName());
    EXPECT_EQ("&Undo " + name, menuText("undoAction").toStdString());

    use("undoAction");
    EXPECT_EQ(zonesBefore, dataSet().zoneCount());
    EXPECT_EQ(rowsBefore, zoneRows());
    expectNear(before, legendLimits());
    EXPECT_EQ(rangeBefore, rangeOfX());
    EXPECT_EQ(0, differingPixels(pictureBefore, page().grabImage()));
    EXPECT_EQ(name, session.history().redoName());
    EXPECT_EQ("&Redo " + name, menuText("redoAction").toStdString());
    EXPECT_FALSE(action("undoAction").isEnabled());

    use("redoAction");
    EXPECT_EQ(expectedRows, zoneRows());
    expectNear(after, legendLimits());
    EXPECT_EQ(0, differingPixels(pictureAfter, page().grabImage()));
    EXPECT_EQ("&Undo " + name, menuText("undoAction").toStdString());
}

INSTANTIATE_TEST_SUITE_P(Opened, ZoneOperationTest,
                         testing::Combine(testing::ValuesIn(operations), testing::ValuesIn(sampleFiles)),
                         [](auto const& each) {
                             std::string text = std::get<0>(each.param).name;
                             text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
                             return text + (std::string(std::get<1>(each.param).file) == "flow.vtm" ? "Flow" : "Tetra");
                         });

} // namespace veldraw::tests
