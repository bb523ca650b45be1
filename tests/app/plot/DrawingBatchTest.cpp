#include "app/plot/DrawingBatch.h"

#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <vtkCellData.h>
#include <vtkMapper.h>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr int zoneCount = 70; // more than are drawn one by one

struct Cells
{
    std::vector<std::int64_t> offsets = {0, 2, 5, 8, 10};
    std::vector<std::int64_t> indices = {0, 1, 2, 3, 4, 3, 5, 4, 0, 2};
    std::vector<kernel::Connectivity::Shape> shapes = {
        kernel::Connectivity::Shape::LineSegment, kernel::Connectivity::Shape::Triangle,
        kernel::Connectivity::Shape::Triangle, kernel::Connectivity::Shape::LineSegment};
};

double valueAt(double x, double y)
{
    return x + 10.0 * y;
}

/// A zone with lines and faces, and values of its cells that belong to their middles.
void addZone(kernel::DataSet& set, double left, double bottom)
{
    auto const arrays = std::make_shared<Cells>();
    auto cells = std::make_shared<kernel::Connectivity>();
    cells->cellCount = 4;
    cells->indexCount = 10;
    cells->offsets = arrays->offsets.data();
    cells->indices = arrays->indices.data();
    cells->shapes = arrays->shapes.data();
    cells->owner = arrays;
    std::vector<double> const x = {left, left + 0.8, left, left + 0.8, left, left + 0.8};
    std::vector<double> const y = {bottom + 0.8, bottom + 0.8, bottom, bottom, bottom + 0.5, bottom + 0.5};
    std::vector<double> middles;
    for (std::size_t cell = 0; cell < 4; ++cell) {
        double sum = 0.0;
        for (auto corner = arrays->offsets[cell]; corner < arrays->offsets[cell + 1]; ++corner) {
            auto const point = static_cast<std::size_t>(arrays->indices[static_cast<std::size_t>(corner)]);
            sum += valueAt(x[point], y[point]);
        }
        middles.push_back(sum / static_cast<double>(arrays->offsets[cell + 1] - arrays->offsets[cell]));
    }
    auto const zone = std::make_shared<kernel::Zone>("mixed", ZoneType_FEMixed, 6, 4, 0);
    zone->connectivity = cells;
    set.addZone(zone);
    SampleData::addField(*zone, x);
    SampleData::addField(*zone, y);
    SampleData::addField(*zone, std::vector<double>(6, 0.0));
    SampleData::addField(*zone, middles, ValueLocation_CellCentered);
}

std::shared_ptr<kernel::DataSet> zonesOfLinesAndFaces()
{
    auto set = std::make_shared<kernel::DataSet>("mixed");
    for (char const* name : {"X", "Y", "Z", "p"})
        set->addVariable(std::make_shared<kernel::Variable>(name));
    for (int n = 0; n < zoneCount; ++n)
        addZone(*set, n % 10, n / 10);
    return set;
}

} // namespace

TEST(DrawingBatch, GivesLinesAndFacesOfManyZonesTheValuesOfTheirCells)
{
    auto const set = zonesOfLinesAndFaces();
    PlotTestPage page({SampleData::frame("Mixed", set, PlotType_Cartesian2D)});
    page.picture("lines-and-faces");
    app::PlotSpace const& space = page.field().space();
    double const lowest = set->zone(1)->range(4).min;
    double const highest = set->zone(zoneCount)->range(4).max;
    ASSERT_LT(page.field().actors().size(), 10U) << "in batches";
    vtkIdType cells = 0;
    for (vtkActor* const actor : page.field().actors()) {
        vtkPolyData& drawing = *vtkPolyData::SafeDownCast(actor->GetMapper()->GetInput());
        vtkDataArray* const shares = drawing.GetCellData()->GetScalars();
        ASSERT_NE(shares, nullptr);
        ASSERT_EQ(shares->GetNumberOfTuples(), drawing.GetNumberOfCells());
        for (vtkIdType cell = 0; cell < drawing.GetNumberOfCells(); ++cell, ++cells) {
            vtkIdType corners = 0;
            vtkIdType const* points = nullptr;
            drawing.GetCellPoints(cell, corners, points);
            double expected = 0.0;
            for (vtkIdType corner = 0; corner < corners; ++corner) {
                double const* const place = drawing.GetPoint(points[corner]);
                expected +=
                    valueAt(space.toValue(0, place[0]), space.toValue(1, place[1])) / static_cast<double>(corners);
            }
            double const value = lowest + shares->GetTuple1(cell) * (highest - lowest);
            ASSERT_NEAR(value, expected, 1e-3) << cell << " of " << drawing.GetNumberOfCells();
        }
    }
    EXPECT_EQ(cells, 4 * zoneCount);
}

} // namespace veldraw::tests
