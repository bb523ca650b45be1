#include "app/plot/FiniteElementShape.h"
#include "app/plot/LinePoints.h"
#include "app/plot/OrderedShape.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/Threads.h"
#include "tests/support/WriteValue.h"

#include <vtkIdList.h>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <tuple>

namespace veldraw::tests {

namespace {

using Index = std::int64_t;

/// A cell with the corners of one of its faces, in ascending order.
using CellFace = std::pair<Index, std::set<Index>>;

std::shared_ptr<kernel::Buffer> marks(Index count, std::set<Index> const& places, int mark)
{
    auto const buffer = kernel::Buffer::allocate(FieldDataType_Byte, count);
    for (Index const place : places)
        buffer->setValue(place, mark);
    return buffer;
}

void hideCells(kernel::Zone& zone, std::set<Index> const& cells)
{
    zone.blanking = std::make_shared<kernel::Blanking>(
        zone, kernel::Blanking::Marks{nullptr, marks(zone.cellCount(), cells, kernel::Blanking::hiddenCell)});
}

void hidePoints(kernel::Zone& zone, std::set<Index> const& points)
{
    zone.blanking = std::make_shared<kernel::Blanking>(
        zone, kernel::Blanking::Marks{marks(zone.pointCount(), points, kernel::Blanking::hiddenPoint), nullptr});
}

std::set<CellFace> shownFacesOf(app::ZoneShape const& shape)
{
    std::set<CellFace> faces;
    vtkNew<vtkIdList> ids;
    for (vtkIdType n = 0; n < shape.polygons->GetNumberOfCells(); ++n) {
        shape.polygons->GetCellAtId(n, ids);
        CellFace face{shape.cellOf(n), {}};
        for (vtkIdType const id : *ids)
            face.second.insert(shape.pointOf(id));
        EXPECT_TRUE(faces.insert(face).second) << "drawn twice";
    }
    return faces;
}

std::vector<Index> cornersOf(app::ZoneShape const& shape)
{
    std::vector<Index> corners;
    vtkNew<vtkIdList> ids;
    for (vtkIdType n = 0; n < shape.polygons->GetNumberOfCells(); ++n) {
        shape.polygons->GetCellAtId(n, ids);
        corners.insert(corners.end(), ids->begin(), ids->end());
    }
    return corners;
}

/// By asking each cell of a volume on each of its sides whether somebody visible is there.
std::set<CellFace> expectedFaces(kernel::Zone const& zone)
{
    std::set<CellFace> faces;
    Index const counts[3] = {zone.i - 1, zone.j - 1, zone.k - 1};
    auto const point = [&zone](Index i, Index j, Index k) { return i + zone.i * (j + zone.j * k); };
    auto const isSeen = [&](Index i, Index j, Index k) {
        bool const isInside = i >= 0 && j >= 0 && k >= 0 && i < counts[0] && j < counts[1] && k < counts[2];
        return isInside && !zone.isHidden(ValueLocation_CellCentered, point(i, j, k));
    };
    for (Index k = 0; k < counts[2]; ++k)
        for (Index j = 0; j < counts[1]; ++j)
            for (Index i = 0; i < counts[0]; ++i) {
                if (!isSeen(i, j, k))
                    continue;
                for (Index const side : {0, 1}) {
                    Index const step = side == 0 ? -1 : 1;
                    Index const x = i + side;
                    Index const y = j + side;
                    Index const z = k + side;
                    if (!isSeen(i + step, j, k))
                        faces.insert(
                            {point(i, j, k),
                             {point(x, j, k), point(x, j + 1, k), point(x, j, k + 1), point(x, j + 1, k + 1)}});
                    if (!isSeen(i, j + step, k))
                        faces.insert(
                            {point(i, j, k),
                             {point(i, y, k), point(i + 1, y, k), point(i, y, k + 1), point(i + 1, y, k + 1)}});
                    if (!isSeen(i, j, k + step))
                        faces.insert(
                            {point(i, j, k),
                             {point(i, j, z), point(i + 1, j, z), point(i, j + 1, z), point(i + 1, j + 1, z)}});
                }
            }
    return faces;
}

std::set<Index> some(Index count, unsigned share)
{
    std::mt19937 random(5);
    std::set<Index> result;
    for (Index n = 0; n < count; ++n)
        if (random() % share == 0)
            result.insert(n);
    return result;
}

// Where a place of the data stands in the plot.
QPoint placeOf(PlotTestPage& page, double x, double y)
{
    app::FieldView& view = page.field();
    view.stage().SetWorldPoint(view.space().toScene(0, x), view.space().toScene(1, y), 0.0, 1.0);
    view.stage().WorldToDisplay();
    double const* const shown = view.stage().GetDisplayPoint();
    double const ratio = page.view().devicePixelRatioF();
    return {static_cast<int>(shown[0] / ratio), page.view().height() - static_cast<int>(shown[1] / ratio)};
}

} // namespace

TEST(HiddenParts, OfAnOrderedVolumeLetTheFacesBehindThemBeSeen)
{
    for (unsigned const share : {2U, 5U, 50U}) {
        kernel::Zone zone("z", ZoneType_Ordered, 13, 11, 9);
        hideCells(zone, some(zone.cellCount(), share));
        EXPECT_EQ(shownFacesOf(app::OrderedShape::create(zone, false)), expectedFaces(zone));
        hidePoints(zone, some(zone.pointCount(), 10 * share));
        EXPECT_EQ(shownFacesOf(app::OrderedShape::create(zone, false)), expectedFaces(zone));
    }
}

TEST(HiddenParts, OfASheetAndOfALineAreGaps)
{
    for (auto const& [i, j, k] : {std::tuple(6, 5, 1), {6, 1, 5}, {1, 6, 5}}) {
        kernel::Zone sheet("z", ZoneType_Ordered, i, j, k);
        hideCells(sheet, {3, 7});
        auto const shape = app::OrderedShape::create(sheet, false);
        EXPECT_EQ(shape.cellCount(), 18);
        for (Index n = 0; n < shape.cellCount(); ++n)
            EXPECT_FALSE(sheet.isHidden(ValueLocation_CellCentered, shape.cellOf(n)));
    }
    kernel::Zone line("z", ZoneType_Ordered, 7, 1, 1);
    hidePoints(line, {3});
    auto const shape = app::OrderedShape::create(line, false);
    EXPECT_EQ(shape.lines->GetNumberOfCells(), 4);
    EXPECT_EQ(shape.cells, (std::vector<Index>{0, 1, 4, 5}));
}

TEST(HiddenParts, OfElementsLetTheFacesBehindThemBeSeen)
{
    auto const set = SampleData::bricks(3);
    kernel::Zone& zone = *set->zone(1);
    Index const middle = 13;
    hideCells(zone, {middle});
    auto const shape = app::FiniteElementShape::create(zone);
    EXPECT_EQ(shape.cellCount(), 6 * 9 + 6);
    EXPECT_EQ(std::count(shape.cells.begin(), shape.cells.end(), middle), 0);
    EXPECT_EQ(std::count(shape.cells.begin(), shape.cells.end(), middle + 1), 2)
        << "outside, and towards the hidden one";
    std::set<Index> all;
    for (Index cell = 0; cell < zone.cellCount(); ++cell)
        all.insert(cell);
    hideCells(zone, all);
    EXPECT_EQ(app::FiniteElementShape::create(zone).cellCount(), 0);
}

TEST(HiddenParts, LeaveTheSameShapeForEachNumberOfThreads)
{
    kernel::Zone block("z", ZoneType_Ordered, 61, 47, 31);
    hideCells(block, some(block.cellCount(), 5));
    auto const set = SampleData::bricks(20);
    kernel::Zone& bricks = *set->zone(1);
    hideCells(bricks, some(bricks.cellCount(), 5));
    std::set<CellFace> const expected = expectedFaces(block);
    std::vector<app::ZoneShape> ofBlock;
    std::vector<app::ZoneShape> ofBricks;
    for (int const count : {1, 2, 5}) {
        Threads const some(count);
        ofBlock.push_back(app::OrderedShape::create(block, false));
        ofBricks.push_back(app::FiniteElementShape::create(bricks));
    }
    EXPECT_EQ(shownFacesOf(ofBlock[0]), expected);
    for (auto const& shapes : {ofBlock, ofBricks})
        for (app::ZoneShape const& shape : shapes) {
            EXPECT_EQ(shape.points, shapes[0].points);
            EXPECT_EQ(shape.cells, shapes[0].cells);
            EXPECT_EQ(cornersOf(shape), cornersOf(shapes[0]));
        }
}

TEST(HiddenParts, AreNotLookedForAnyMoreWhenNobodyWantsThem)
{
    kernel::Progress progress;
    progress.interrupt();
    kernel::Zone block("z", ZoneType_Ordered, 5, 5, 5);
    hideCells(block, {3});
    EXPECT_THROW(app::OrderedShape::create(block, false, progress), kernel::Interrupted);
    auto const set = SampleData::triangles(3);
    hideCells(*set->zone(1), {0, 5});
    EXPECT_THROW(app::FiniteElementShape::create(*set->zone(1), progress), kernel::Interrupted);
}

TEST(HiddenParts, OfSurfaceElementsAreLeftOut)
{
    auto const set = SampleData::triangles(3);
    kernel::Zone& zone = *set->zone(1);
    hideCells(zone, {0, 5});
    auto const shape = app::FiniteElementShape::create(zone);
    EXPECT_EQ(shape.cellCount(), zone.cellCount() - 2);
    EXPECT_EQ(shape.cellOf(0), 1);
    EXPECT_EQ(shape.cellOf(4), 6);
}

TEST(HiddenParts, AreNeitherDrawnNorPickedNorInTheLegend)
{
    auto const set = SampleData::sheet(21, 11);
    kernel::Zone& zone = *set->zone(1);
    std::set<Index> left;
    for (Index point = 0; point < zone.pointCount(); ++point)
        if (point % 21 < 12)
            left.insert(point);
    for (Index const point : left) {
        writeValue(*zone.fields[0].group(), point, -1e30);
        writeValue(*zone.fields.back().group(), point, 1e30);
    }
    hidePoints(zone, left);
    PlotTestPage page({SampleData::frame("Sheet", set, PlotType_Cartesian2D)});
    page.picture("hidden-parts");
    EXPECT_EQ(page.message(), QString());
    ASSERT_EQ(page.field().zones().size(), 1U);
    EXPECT_EQ(page.field().zones()[0]->cellCount(), 8 * 10);
    EXPECT_NEAR(page.field().legend().max(), 15.0, 1e-6);
    EXPECT_NEAR(page.field().legend().min(), -5.0 + 20.0 * 12 / 20, 1e-6);
    page.click(placeOf(page, 1.6, 0.5));
    EXPECT_EQ(page.session().picks().size(), 1U);
}

TEST(HiddenParts, AreSeenAndClickedThrough)
{
    auto const set = SampleData::sheet(21, 11);
    std::set<Index> middle;
    for (Index cell = 0; cell < 200; ++cell)
        if (cell % 20 >= 8 && cell % 20 < 12)
            middle.insert(cell);
    hideCells(*set->zone(1), middle);
    PlotTestPage page({SampleData::frame("Sheet", set, PlotType_Cartesian2D)});
    page.picture();
    page.click(placeOf(page, 1.0, 0.5));
    EXPECT_TRUE(page.session().picks().empty());
    page.click(placeOf(page, 0.3, 0.5));
    EXPECT_EQ(page.session().picks().size(), 1U);
}

TEST(HiddenParts, AreGapsOfACurve)
{
    auto const set = SampleData::waves(3000);
    kernel::Zone& zone = *set->zone(1);
    hidePoints(zone, some(3000, 9));
    auto const table = app::LinePoints::create(*set, 1, 1, 2, {}).table;
    ASSERT_EQ(table->GetNumberOfRows(), 3000);
    for (Index n = 0; n < 3000; ++n) {
        bool const isGap = std::isnan(table->GetValue(n, 0).ToDouble()) && std::isnan(table->GetValue(n, 1).ToDouble());
        ASSERT_EQ(isGap, zone.isHidden(ValueLocation_Nodal, n)) << n;
    }
}

} // namespace veldraw::tests
