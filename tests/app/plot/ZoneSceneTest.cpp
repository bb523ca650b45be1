// What a change leaves as it is in a plot of many zones, and that the picture is as if it had been made anew.
#include "kernel/compute/Rotation.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"
#include "kernel/operations/SpatialVariables.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <vtkActor.h>
#include <vtkMapper.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <numeric>

namespace veldraw::tests {

namespace {

constexpr int tileCount = 300;

/// Small sheets side by side, with X, Y, Z, p and q.
SampleData::DataSetPtr tiles(int count)
{
    auto set = std::make_shared<kernel::DataSet>("tiles");
    for (char const* name : {"X", "Y", "Z", "p", "q"})
        set->addVariable(std::make_shared<kernel::Variable>(name));
    for (int n = 0; n < count; ++n) {
        auto zone = std::make_shared<kernel::Zone>("tile", ZoneType_Ordered, 3, 3, 1);
        set->addZone(zone);
        std::vector<double> x;
        std::vector<double> y;
        std::vector<double> p;
        for (int point = 0; point < 9; ++point) {
            x.push_back(n % 20 + 0.45 * (point % 3));
            y.push_back(n / 20 + 0.45 * (point / 3));
            p.push_back(x.back() + y.back());
        }
        std::vector<double> const zero(9, 0.0);
        for (auto const& values : {x, y, zero, p, y})
            SampleData::addField(*zone, values);
    }
    return set;
}

/// A page of tiles. Corner tiles stay, so that the extent is always the same.
class KeptShapes : public ::testing::TestWithParam<PlotType_e>
{
protected:
    KeptShapes()
        : page({frameOf(set)})
    {
        page.picture();
    }

    std::shared_ptr<kernel::Frame> frameOf(SampleData::DataSetPtr const& dataSet) const
    {
        return SampleData::frame("Tiles", dataSet, GetParam());
    }

    std::vector<vtkPolyData*> drawn()
    {
        std::vector<vtkPolyData*> all;
        for (vtkActor* const actor : page.field().actors())
            all.push_back(vtkPolyData::SafeDownCast(actor->GetMapper()->GetInput()));
        return all;
    }

    std::vector<vtkPoints*> points()
    {
        std::vector<vtkPoints*> all;
        for (auto const& zone : page.field().zones())
            all.push_back(zone->surface().GetPoints());
        return all;
    }

    void expectAsIfMadeAnew()
    {
        auto frame = frameOf(set);
        frame->contourVariable = page.frame().contourVariable;
        frame->showMesh = page.frame().showMesh;
        QImage const shown = page.plot();
        PlotTestPage fresh({frame});
        EXPECT_EQ(PlotTestPage::differingPixels(shown, fresh.plot()), 0);
    }

    SampleData::DataSetPtr set = tiles(tileCount);
    PlotTestPage page;
};

} // namespace

TEST_P(KeptShapes, AreFewThingsForTheRenderer)
{
    EXPECT_EQ(page.field().zones().size(), static_cast<std::size_t>(tileCount));
    EXPECT_LE(page.field().actors().size(), 5U);
}

TEST_P(KeptShapes, StayWhenAZoneIsHiddenAndShownAgain)
{
    auto const actors = page.field().actors();
    auto const shapes = drawn();
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 151, false)));
    page.picture();
    EXPECT_EQ(page.field().zones().size(), tileCount - 1U);
    EXPECT_EQ(page.field().actors(), actors);
    auto const after = drawn();
    EXPECT_EQ(std::inner_product(shapes.begin(), shapes.end(), after.begin(), 0, std::plus<>(), std::not_equal_to<>()),
              1)
        << "one batch has to be put together anew";
    EXPECT_GT(PlotTestPage::differingPixels(before, page.plot()), 20);
    expectAsIfMadeAnew();
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
}

TEST_P(KeptShapes, StayWhenCopiesComeAndGo)
{
    auto const actors = page.field().actors();
    auto const shapes = drawn();
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::DuplicateZones(*set, set->enabledZones())));
    page.picture();
    EXPECT_EQ(page.field().zones().size(), 2U * tileCount);
    expectAsIfMadeAnew();
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
    EXPECT_TRUE(std::equal(actors.begin(), actors.end() - 1, page.field().actors().begin()));
    EXPECT_TRUE(std::equal(shapes.begin(), shapes.end() - 1, drawn().begin())) << "all but the batch that had room";
}

TEST_P(KeptShapes, StayWhenTheContourBecomesAnotherOne)
{
    auto const shapes = drawn();
    auto const placed = points();
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'C', 5)));
    page.picture();
    EXPECT_EQ(drawn(), shapes);
    EXPECT_EQ(points(), placed);
    expectAsIfMadeAnew();
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showMesh, true)));
    page.picture();
    EXPECT_EQ(drawn(), shapes);
    expectAsIfMadeAnew();
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showContour, false)));
    EXPECT_LT(PlotTestPage::colouredPixels(page.plot()), 2000);
    EXPECT_EQ(points(), placed);
}

TEST_P(KeptShapes, FollowTheValuesOfOneZoneByItsColoursAlone)
{
    auto const placed = points();
    ASSERT_TRUE(page.session().perform(kernel::SetValue(*set, 77, 4, 4, 30.0, false)));
    page.picture();
    EXPECT_EQ(points(), placed);
    expectAsIfMadeAnew();
}

TEST_P(KeptShapes, AreMadeAnewWhereACoordinateIsEdited)
{
    auto const placed = points();
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::SetValue(*set, 77, 1, 4, 5.0, false)));
    page.picture();
    auto const moved = points();
    EXPECT_EQ(std::inner_product(placed.begin(), placed.end(), moved.begin(), 0, std::plus<>(), std::not_equal_to<>()),
              1);
    expectAsIfMadeAnew();
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
}

TEST_P(KeptShapes, FollowAnotherExtent)
{
    QImage const before = page.plot();
    for (int const number : {1, 300})
        ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, number, false)));
    for (int column = 0; column < 20; ++column)
        ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 281 + column, false)));
    expectAsIfMadeAnew();
    while (page.session().undo())
        ;
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
}

TEST_P(KeptShapes, FollowARotationAndItsUndo)
{
    QImage const before = page.plot();
    kernel::SpatialVariables variables;
    variables.coordinates = {1, 2, 3};
    kernel::RotationAxis axis;
    axis.direction = {0.0, 0.0, 1.0};
    ASSERT_TRUE(page.session().perform(kernel::RotateZones(*set, {140, 150, 160}, variables, axis, 25.0)))
        << page.session().lastError();
    EXPECT_GT(PlotTestPage::differingPixels(before, page.plot()), 20);
    expectAsIfMadeAnew();
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
    ASSERT_TRUE(page.session().redo());
    expectAsIfMadeAnew();
}

TEST_P(KeptShapes, FollowDeletedAxesAndContours)
{
    QImage const before = page.plot();
    for (int const variable : {1, 5}) {
        ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*set, {variable})));
        EXPECT_GT(PlotTestPage::differingPixels(before, page.plot()), 1000);
        ASSERT_TRUE(page.session().undo());
        EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
    }
}

TEST_P(KeptShapes, AreTheSameForACopyWithItsCells)
{
    auto const solid = SampleData::bricks(6);
    PlotTestPage other({frameOf(solid)});
    other.picture();
    ASSERT_TRUE(other.session().perform(kernel::DuplicateZones(*solid, {1})));
    other.picture();
    ASSERT_EQ(other.field().zones().size(), 2U);
    EXPECT_EQ(other.field().zones()[0]->geometry(), other.field().zones()[1]->geometry());
}

INSTANTIATE_TEST_SUITE_P(FieldPlots, KeptShapes, ::testing::Values(PlotType_Cartesian2D, PlotType_Cartesian3D),
                         [](auto const& type) { return type.param == PlotType_Cartesian2D ? "Plane" : "Space"; });

TEST(KeptShapesInSpace, OfAPileKeepTheirDepthsWhenOneIsHidden)
{
    auto const set = tiles(tileCount);
    for (int number = 1; number < tileCount; ++number)
        for (std::size_t axis = 0; axis < 2; ++axis)
            set->zone(number)->fields[axis] = set->zone(50)->fields[axis];
    PlotTestPage page({SampleData::frame("Pile", set, PlotType_Cartesian3D)});
    auto const depths = [&page] {
        page.picture();
        std::vector<vtkDataArray*> all;
        for (vtkActor* const actor : page.field().actors())
            all.push_back(
                vtkPolyData::SafeDownCast(actor->GetMapper()->GetInput())->GetPointData()->GetArray("depth order"));
        return all;
    };
    auto const before = depths();
    ASSERT_EQ(std::count(before.begin(), before.end(), nullptr), 0);
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 70, false)));
    auto const after = depths();
    ASSERT_EQ(before.size(), after.size());
    EXPECT_EQ(std::inner_product(before.begin(), before.end(), after.begin(), 0, std::plus<>(), std::not_equal_to<>()),
              1)
        << "one batch is put together anew";
}

TEST(KeptShapesInThePlane, LieOverOneAnotherInTheOrderOfTheZonesAlsoWhenTheyComeBack)
{
    auto const set = SampleData::sheet(80, 60); // large: a batch of its own
    for (int n = 0; n < 3; ++n) {
        auto const other = SampleData::sheet(n == 1 ? 3 : 80, n == 1 ? 3 : 60);
        kernel::ShareGroup& values = *other->zone(1)->fields[2].group();
        for (std::int64_t slot = 0; slot < values.size(); ++slot)
            writeValue(values, slot, 10.0 * n);
        set->addZone(other->zone(1));
    }
    PlotTestPage page({SampleData::frame("Piled", set, PlotType_Cartesian2D)});
    QImage const before = page.plot();
    for (int const number : {1, 2, 3, 4}) {
        ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, number, false)));
        page.picture();
        ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, number, true)));
        EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0) << number;
    }
}

} // namespace veldraw::tests
