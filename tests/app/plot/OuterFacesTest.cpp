// The faces of volume cells against those that VTK's own filter finds.
#include "app/plot/OuterFaces.h"

#include "app/plot/FaceSearch.h"
#include "app/plot/FiniteElementShape.h"
#include "app/vtk/ZoneToVtk.h"
#include "kernel/base/Progress.h"
#include "tests/app/support/SampleSolid.h"

#include <vtkCellData.h>
#include <vtkGeometryFilter.h>
#include <vtkIdList.h>
#include <vtkIdTypeArray.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <ostream>
#include <set>

namespace veldraw::tests {

namespace {

using Shape = kernel::Connectivity::Shape;
using Face = std::vector<std::int64_t>; // the cell, then the points, from the lowest on in their direction
using Faces = std::multiset<Face>;

template <typename PointOf>
Face faceOf(std::int64_t cell, vtkIdList& ids, PointOf const& pointOf)
{
    Face face;
    for (vtkIdType const id : ids)
        face.push_back(pointOf(id));
    std::rotate(face.begin(), std::min_element(face.begin(), face.end()), face.end());
    face.insert(face.begin(), cell);
    return face;
}

Faces facesOf(app::ZoneShape const& shape)
{
    Faces faces;
    vtkNew<vtkIdList> ids;
    std::int64_t drawn = 0;
    for (auto const& cells : {shape.vertices, shape.lines, shape.polygons})
        for (vtkIdType n = 0; cells && n < cells->GetNumberOfCells(); ++n, ++drawn) {
            cells->GetCellAtId(n, ids);
            faces.insert(faceOf(shape.cellOf(drawn), *ids, [&](vtkIdType id) { return shape.pointOf(id); }));
        }
    return faces;
}

// Numbers of their own for points or cells, since the filter's do not come in all cases.
void number(vtkDataSetAttributes& attributes, std::int64_t count)
{
    vtkNew<vtkIdTypeArray> numbers;
    numbers->SetName("number");
    numbers->SetNumberOfValues(count);
    std::iota(numbers->Begin(), numbers->End(), vtkIdType(0));
    attributes.AddArray(numbers);
}

Faces facesByVtk(std::shared_ptr<kernel::Zone> const& zone)
{
    kernel::DataSet dataSet;
    dataSet.addZone(zone);
    auto const grid = app::vtkDataSetOfZone(dataSet, 1, {0, 0, 0}, {});
    number(*grid->GetPointData(), zone->pointCount());
    number(*grid->GetCellData(), zone->cellCount());
    vtkNew<vtkGeometryFilter> filter;
    filter->SetInputData(grid);
    filter->MergingOff();
    filter->Update();
    vtkPolyData& output = *filter->GetOutput();
    vtkDataArray& cells = *output.GetCellData()->GetArray("number");
    vtkDataArray& points = *output.GetPointData()->GetArray("number");
    auto const numberIn = [](vtkDataArray& array, vtkIdType n) {
        return static_cast<std::int64_t>(array.GetComponent(n, 0));
    };
    Faces faces;
    vtkNew<vtkIdList> ids;
    for (vtkIdType n = 0; n < output.GetNumberOfCells(); ++n) {
        output.GetCellPoints(n, ids);
        faces.insert(faceOf(numberIn(cells, n), *ids, [&](vtkIdType id) { return numberIn(points, id); }));
    }
    return faces;
}

struct Solid
{
    char const* name;
    ZoneType_e type;
    Shape shape;
};

std::ostream& operator<<(std::ostream& stream, Solid const& solid)
{
    return stream << solid.name;
}

class OuterFacesOf : public ::testing::TestWithParam<Solid>
{
};

std::vector<std::int64_t> found(kernel::Zone const& zone, std::int64_t facesInRound)
{
    app::CellFaces const cells(zone);
    kernel::Progress const progress;
    return app::FaceSearch(cells, zone.pointCount(), progress, facesInRound).find();
}

} // namespace

TEST_P(OuterFacesOf, AreThoseOfVtk)
{
    auto const zone = SampleSolid::cubes(12, GetParam().type, GetParam().shape);
    ASSERT_TRUE(app::OuterFaces::canFind(*zone));
    Faces const ours = facesOf(app::FiniteElementShape::create(*zone));
    EXPECT_GT(ours.size(), 1000U);
    EXPECT_TRUE(ours == facesByVtk(zone));
}

INSTANTIATE_TEST_SUITE_P(Shapes, OuterFacesOf,
                         ::testing::Values(Solid{"Tetrahedra", ZoneType_FETetra, Shape::Tetrahedron},
                                           Solid{"Bricks", ZoneType_FEBrick, Shape::Brick},
                                           Solid{"Pyramids", ZoneType_FEMixed, Shape::Pyramid},
                                           Solid{"Prisms", ZoneType_FEMixed, Shape::Prism}),
                         [](auto const& solid) { return solid.param.name; });

TEST(OuterFaces, OfManyShapesTogetherAreThoseOfVtk)
{
    auto const zone = SampleSolid::everything(12, false);
    Faces const ours = facesOf(app::FiniteElementShape::create(*zone));
    EXPECT_GT(ours.size(), 1000U);
    EXPECT_TRUE(ours == facesByVtk(zone));
}

TEST(OuterFaces, StandBesideTheLinesOfTheZone)
{
    Faces const without = facesOf(app::FiniteElementShape::create(*SampleSolid::everything(3, false)));
    auto const zone = SampleSolid::everything(3, true);
    auto const shape = app::FiniteElementShape::create(*zone);
    ASSERT_TRUE(shape.lines);
    EXPECT_EQ(shape.lines->GetNumberOfCells(), 1);
    Faces with = facesOf(shape);
    for (Face const& face : without) {
        auto const there = with.find(face);
        ASSERT_NE(there, with.end());
        with.erase(there);
    }
    ASSERT_EQ(with.size(), 1U);
    EXPECT_EQ(with.begin()->size(), 3U);
    EXPECT_EQ(with.begin()->front(), zone->cellCount() - 1);
}

TEST(OuterFaces, OfATetrahedronAloneLookOutwards)
{
    auto const shape = app::OuterFaces::create(*SampleSolid::cubes(1, ZoneType_FETetra, Shape::Tetrahedron), {});
    EXPECT_EQ(shape.polygons->GetNumberOfCells(), 12) << "two on each side of the cube";
    EXPECT_EQ(shape.pointCount, 8);
    EXPECT_TRUE(std::is_sorted(shape.points.begin(), shape.points.end()));
    EXPECT_TRUE(std::is_sorted(shape.cells.begin(), shape.cells.end()));
}

TEST(OuterFaces, DoNotDependOnHowManyAreLookedAtInARound)
{
    auto const zone = SampleSolid::everything(8, true);
    auto const atOnce = found(*zone, std::int64_t{1} << 23);
    EXPECT_GT(atOnce.size(), 500U);
    for (std::int64_t const faces : {300, 2000})
        EXPECT_EQ(found(*zone, faces), atOnce) << faces;
}

TEST(OuterFaces, LeaveOutCellsWithTooFewCornersForTheirShape)
{
    auto const zone = SampleSolid::cubes(1, ZoneType_FETetra, Shape::Tetrahedron);
    zone->type = ZoneType_FEBrick;
    EXPECT_EQ(app::FiniteElementShape::create(*zone).cellCount(), 0);
}

TEST(OuterFaces, LeaveOutAFaceThatThreeCellsHave)
{
    struct Arrays
    {
        std::vector<std::int64_t> offsets = {0, 4, 8, 12};
        std::vector<std::int64_t> indices = {0, 1, 2, 3, 2, 0, 1, 4, 1, 2, 0, 5};
    };
    auto const arrays = std::make_shared<Arrays>();
    auto cells = std::make_shared<kernel::Connectivity>();
    cells->cellCount = 3;
    cells->indexCount = 12;
    cells->offsets = arrays->offsets.data();
    cells->indices = arrays->indices.data();
    cells->owner = arrays;
    kernel::Zone zone("Three", ZoneType_FETetra, 6, 3, 0);
    zone.connectivity = cells;
    EXPECT_EQ(app::FiniteElementShape::create(zone).polygons->GetNumberOfCells(), 9);
}

TEST(OuterFaces, AreNotLookedForAnyMoreWhenNobodyWantsThem)
{
    auto const zone = SampleSolid::cubes(8, ZoneType_FETetra, Shape::Tetrahedron);
    kernel::Progress progress;
    progress.interrupt();
    EXPECT_THROW(app::FiniteElementShape::create(*zone, progress), kernel::Interrupted);
}

} // namespace veldraw::tests
