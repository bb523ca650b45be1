// What value blanking leaves out of field plots.
#include "kernel/frames/CutDefaults.h"
#include "kernel/operations/CutOperation.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"
#include "kernel/operations/SetValueBlanking.h"
#include "tests/app/plot/CutMeasure.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <vtkPolyData.h>

#include <gtest/gtest.h>
#include <set>

namespace veldraw::tests {

namespace {

using Slots = std::set<std::int64_t>;

kernel::ValueBlanking above(kernel::Frame const& frame, int variable, double limit)
{
    return {true, {{frame.dataSet->variable(variable)->id, true, limit, true}}};
}

/// The value slots of the cells that a geometry draws.
Slots cellsOf(app::ZoneGeometry const& geometry)
{
    auto const& cells = geometry.cells();
    Slots slots(cells.begin(), cells.end());
    if (cells.empty())
        for (std::int64_t n = 0; n < geometry.drawing().GetNumberOfCells(); ++n)
            slots.insert(n);
    return slots;
}

/// A sheet whose P is -5 + 10 X, with X from 0 to 2 in 41 columns. P is above 5 from column 21 on.
class BlankedSheet : public testing::Test
{
protected:
    static constexpr int columns = 41;
    static constexpr int rows = 21;

    BlankedSheet()
        : page({SampleData::frame("Sheet", SampleData::sheet(columns, rows), PlotType_Cartesian2D)})
    {
    }

    void blank(double limit)
    {
        EXPECT_TRUE(page.session().perform(kernel::SetValueBlanking(page.frame().id, above(page.frame(), 3, limit))));
        page.picture();
    }

    bool set(bool kernel::Frame::*option, bool value)
    {
        return page.session().perform(kernel::SetPlotOption(page.frame().id, option, value));
    }

    Slots drawn() { return cellsOf(*page.field().zones().front()->geometry()); }

    /// Cells of the first so many columns.
    static Slots firstColumns(int count)
    {
        Slots slots;
        for (int row = 0; row + 1 < rows; ++row)
            for (int column = 0; column < count; ++column)
                slots.insert(column + columns * row);
        return slots;
    }

    PlotTestPage page;
};

/// A block over 0 to 1 in which P is X. P is above 0.5 from the plane 15 of 30 on.
class BlankedBlock : public testing::Test
{
protected:
    BlankedBlock()
        : page({SampleData::frame("Block", grids::ordered(30, 30, 30, [](auto const& p) { return p[0]; }),
                                  PlotType_Cartesian3D)})
    {
        EXPECT_TRUE(page.session().perform(kernel::SetValueBlanking(page.frame().id, above(page.frame(), 4, 0.5))));
    }

    /// The cells of a layer across Z that are left.
    static Slots layer(int k)
    {
        Slots slots;
        for (int j = 0; j < 29; ++j)
            for (int i = 0; i < 15; ++i)
                slots.insert(i + 30 * (j + 30 * k));
        return slots;
    }

    Slots drawnBy(kernel::Cut const& cut)
    {
        EXPECT_TRUE(page.session().perform(kernel::AddCut(page.frame().id, cut)));
        page.picture();
        return cellsOf(*page.field().zones().front()->geometry());
    }

    PlotTestPage page;
};

} // namespace

TEST_F(BlankedSheet, ShowsTheOtherCellsAlone)
{
    QImage const whole = page.plot();
    blank(5.0);
    EXPECT_EQ(drawn(), firstColumns(21));
    EXPECT_EQ(page.view().remark(page.frame().id), QStringLiteral("Cells left out by their values"));
    page.session().undo();
    EXPECT_EQ(PlotTestPage::differingPixels(page.plot(), whole), 0);
    page.session().redo();
    page.picture("blanked-sheet");
    EXPECT_EQ(drawn(), firstColumns(21));
}

TEST_F(BlankedSheet, HasColoursOverTheValuesThatAreLeft)
{
    page.picture();
    EXPECT_EQ(page.field().legend().max(), 15.0);
    blank(5.0);
    EXPECT_EQ(page.field().legend().max(), 5.5) << "that of the last column with a cell";
    EXPECT_EQ(page.field().legend().min(), -5.0);
    ASSERT_TRUE(set(&kernel::Frame::contourWithoutEnds, true));
    page.picture();
    EXPECT_LE(page.field().legend().max(), 5.5);
    EXPECT_GT(page.field().legend().max(), 4.0);
}

TEST_F(BlankedSheet, KeepsItsAxes)
{
    page.picture();
    app::PlotSpace const before = page.field().space();
    blank(5.0);
    EXPECT_TRUE(page.field().space() == before);
}

TEST_F(BlankedSheet, HasNoArrowsAndLinesThere)
{
    page.session().perform(kernel::AssignVariable(page.frame().id, 'U', 2));
    ASSERT_TRUE(set(&kernel::Frame::showVectors, true));
    ASSERT_TRUE(set(&kernel::Frame::contourLines, true));
    page.picture();
    vtkIdType const arrows = page.field().vectors().arrows().GetNumberOfPoints();
    blank(5.0);
    vtkIdType const left = page.field().vectors().arrows().GetNumberOfPoints();
    EXPECT_GT(left, arrows / 3);
    EXPECT_LT(left, arrows * 2 / 3);
    auto const farthest = [this](double const* bounds) { return page.field().space().toValue(0, bounds[1]); };
    auto& things = page.field().vectors().arrows();
    EXPECT_LE(farthest(things.GetBounds()), 1.05 + 1e-6);
    auto& lines = page.field().contourLines().lines();
    EXPECT_LE(farthest(lines.GetBounds()), 1.05 + 1e-6);
    EXPECT_GT(lines.GetNumberOfCells(), 0);
}

TEST_F(BlankedSheet, IsNotPickedThere)
{
    page.picture();
    QPointF left;
    QPointF right;
    for (double x = 0.1; x < 0.9; x += 0.01) {
        if (page.field().zoneAt({x, 0.5}) == 0)
            continue;
        left = left.isNull() ? QPointF(x, 0.5) : left;
        right = QPointF(x, 0.5);
    }
    blank(5.0);
    EXPECT_EQ(page.field().zoneAt(left), 1);
    EXPECT_EQ(page.field().zoneAt(right), 0);
}

TEST_F(BlankedSheet, FollowsAnEditOfAValueThatIsNoContour)
{
    page.session().perform(kernel::AssignVariable(page.frame().id, 'C', 1));
    blank(5.0);
    ASSERT_EQ(drawn(), firstColumns(21));
    int const point = 30 + columns * 10; // an inner one, of four cells
    ASSERT_TRUE(page.session().perform(kernel::SetValue(*page.frame().dataSet, 1, 3, point, 0.0, false)));
    page.picture();
    Slots wanted = firstColumns(21);
    wanted.insert({point, point - 1, point - columns, point - columns - 1});
    EXPECT_EQ(drawn(), wanted);
    page.session().undo();
    page.picture();
    EXPECT_EQ(drawn(), firstColumns(21));
}

TEST_F(BlankedSheet, SaysWhereNothingIsLeft)
{
    blank(-6.0);
    EXPECT_EQ(page.message(), QStringLiteral("Value blanking leaves out all cells."));
}

TEST_F(BlankedBlock, HasItsOuterFacesWhereItEnds)
{
    page.picture("blanked-block");
    auto const& geometry = *page.field().zones().front()->geometry();
    EXPECT_EQ(geometry.drawing().GetNumberOfCells(), 2 * (29 * 29 + 29 * 15 + 29 * 15));
    for (std::int64_t const cell : cellsOf(geometry))
        EXPECT_LT(cell % 30, 15);
    EXPECT_NEAR(page.field().space().toValue(0, geometry.bounds()[1]), 15.0 / 29.0, 1e-6);
}

TEST_F(BlankedBlock, IsLeftOutOfSlices)
{
    kernel::Cut cut = kernel::defaultCut(kernel::CutKind::Z, page.frame());
    cut.position = 0.45; // between the planes 13 and 14
    EXPECT_EQ(drawnBy(cut), layer(13));
}

TEST_F(BlankedBlock, IsLeftOutOfSlicesAtAnIndex)
{
    kernel::Cut cut = kernel::defaultCut(kernel::CutKind::K, page.frame());
    cut.position = 5;
    Slots columns;
    for (std::int64_t const cell : drawnBy(cut))
        columns.insert(cell % 30);
    EXPECT_EQ(columns.size(), 15U);
    EXPECT_EQ(*columns.rbegin(), 14);
}

TEST_F(BlankedBlock, IsLeftOutOfIsoSurfaces)
{
    kernel::Cut cut = kernel::defaultCut(kernel::CutKind::IsoSurface, page.frame());
    cut.variable = page.frame().dataSet->variable(3)->id;
    cut.position = 0.45;
    EXPECT_EQ(drawnBy(cut), layer(13));
}

} // namespace veldraw::tests
