#include "app/plot/PlaceOnRay.h"

#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

using Formula = SampleData::Formula;

double linear(double x, double y, double z)
{
    return 3.0 * x - 2.0 * y + 0.5 * z + 7.0;
}

double product(double x, double y, double z)
{
    return x * y * (1.0 + z);
}

// The coordinates of a point; Z is 0 where there is none.
std::array<double, 3> pointOf(kernel::DataSet const& set, int zone, std::int64_t point)
{
    std::array<double, 3> place{};
    for (int axis = 0; axis < 3; ++axis) {
        bool const isAxis = set.variable(axis + 1) && set.variable(axis + 1)->name == std::string(1, "XYZ"[axis]);
        place[static_cast<std::size_t>(axis)] =
            isAxis ? set.field(zone, axis + 1)->group()->buffer()->value(point) : 0.0;
    }
    return place;
}

// Adds a variable with the values of a formula at all points.
std::shared_ptr<kernel::DataSet> withFormula(std::shared_ptr<kernel::DataSet> set, Formula const& formula)
{
    set->addVariable(std::make_shared<kernel::Variable>("f"));
    int const variable = set->variableCount();
    for (int number = 1; number <= set->zoneCount(); ++number) {
        auto const zone = set->zone(number);
        std::vector<double> values;
        for (std::int64_t point = 0; point < zone->pointCount(); ++point) {
            auto const [x, y, z] = pointOf(*set, number, point);
            values.push_back(formula(x, y, z));
        }
        zone->fields.resize(static_cast<std::size_t>(variable));
        auto const buffer = kernel::Buffer::allocate(FieldDataType_Double, zone->pointCount());
        for (std::int64_t point = 0; point < zone->pointCount(); ++point)
            buffer->setValue(point, values[static_cast<std::size_t>(point)]);
        zone->fields.back() = kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), ValueLocation_Nodal);
    }
    return set;
}

// The bricks of a cube, each cut into six tetrahedra around its diagonal.
std::shared_ptr<kernel::DataSet> tetrahedra(int n)
{
    struct Arrays
    {
        std::vector<std::int64_t> offsets{0};
        std::vector<std::int64_t> indices;
    };
    static constexpr std::size_t corners[6][4] = {{0, 1, 2, 6}, {0, 2, 3, 6}, {0, 3, 7, 6},
                                                  {0, 7, 4, 6}, {0, 4, 5, 6}, {0, 5, 1, 6}};
    auto set = SampleData::bricks(n);
    auto const bricks = set->zone(1);
    auto arrays = std::make_shared<Arrays>();
    for (std::int64_t brick = 0; brick < bricks->connectivity->cellCount; ++brick)
        for (auto const& tetrahedron : corners) {
            for (std::size_t const corner : tetrahedron)
                arrays->indices.push_back(bricks->connectivity->indices[8 * brick + static_cast<std::int64_t>(corner)]);
            arrays->offsets.push_back(static_cast<std::int64_t>(arrays->indices.size()));
        }
    auto cells = std::make_shared<kernel::Connectivity>();
    cells->cellCount = static_cast<std::int64_t>(arrays->offsets.size()) - 1;
    cells->indexCount = static_cast<std::int64_t>(arrays->indices.size());
    cells->offsets = arrays->offsets.data();
    cells->indices = arrays->indices.data();
    cells->owner = arrays;
    bricks->type = ZoneType_FETetra;
    bricks->j = cells->cellCount;
    bricks->connectivity = cells;
    return set;
}

/// Asks thousands of positions of a plot what is seen there.
class PlaceOnRayTest : public ::testing::Test
{
protected:
    struct Asked
    {
        app::ZonePlace place;
        std::array<double, 3> position;
        double value;
    };

    void show(std::shared_ptr<kernel::DataSet> const& set, PlotType_e plotType, std::vector<kernel::Cut> cuts = {})
    {
        m_set = set;
        auto const frame = SampleData::frame("Places", set, plotType);
        frame->showCuts = !cuts.empty();
        frame->cuts = std::move(cuts);
        m_page = std::make_unique<PlotTestPage>(std::vector{frame});
        m_page->picture();
    }

    app::FieldView& field() { return m_page->field(); }
    kernel::DataSet& set() { return *m_set; }
    PlotTestPage& page() { return *m_page; }

    /// What is seen at @p count x @p count positions, and the number of those with nothing.
    std::vector<Asked> askEverywhere(int count = 90)
    {
        std::vector<Asked> found;
        std::array<int, 3> const axes = m_page->frame().axisVariables();
        for (int n = 0; n < count * count; ++n) {
            QPointF const at((n % count + 0.37) / count, (n / count + 0.41) / count);
            auto const question = field().questionAt(at);
            auto const seen = question ? app::seenCell(*question) : std::nullopt;
            if (!seen)
                continue;
            auto const place = field().placeOf(set(), *question, *seen);
            if (!place) {
                ADD_FAILURE() << "no place where a cell is seen";
                continue;
            }
            auto const zone = set().zone(set().zoneNumber(place->zone));
            EXPECT_TRUE(app::hasPlace(*zone, *place));
            found.push_back({*place, app::positionOf(*zone, *place, axes),
                             app::valueAt(*zone, set().variableCount(), *place).value});
            expectUnderTheMouse(found.back().position, at);
        }
        return found;
    }

    /// By VTK's projection, the other way round.
    void expectUnderTheMouse(std::array<double, 3> const& position, QPointF const& at)
    {
        bool const inSpace = m_page->frame().plotType == PlotType_Cartesian3D;
        vtkRenderer& stage = field().stage();
        stage.SetWorldPoint(field().space().toScene(0, position[0]), field().space().toScene(1, position[1]),
                            inSpace ? field().space().toScene(2, position[2]) : 0.0, 1.0);
        stage.WorldToDisplay();
        QRect const area = m_page->view().plotArea(m_page->frame().id);
        double const ratio = m_page->view().devicePixelRatioF();
        double const x = area.left() + at.x() * area.width();
        double const y = m_page->view().height() - 1 - area.bottom() + at.y() * area.height();
        EXPECT_NEAR(stage.GetDisplayPoint()[0] / ratio, x, m_reach);
        EXPECT_NEAR(stage.GetDisplayPoint()[1] / ratio, y, m_reach);
    }

    void expectFormula(Formula const& formula, std::size_t least)
    {
        std::vector<Asked> const found = askEverywhere();
        EXPECT_GT(found.size(), least);
        for (Asked const& asked : found) {
            auto const& [x, y, z] = asked.position;
            EXPECT_NEAR(asked.value, formula(x, y, z), 1e-11);
        }
    }

    double m_reach = 0.01; // pixels that a place may be beside the mouse

private:
    std::shared_ptr<kernel::DataSet> m_set;
    std::unique_ptr<PlotTestPage> m_page;
};

kernel::Cut cutAt(kernel::CutKind kind, double position, kernel::UniqueId variable = 0)
{
    kernel::Cut cut;
    cut.kind = kind;
    cut.position = position;
    cut.variable = variable;
    return cut;
}

} // namespace

TEST_F(PlaceOnRayTest, ALinearFieldHasItsExactValueAtEveryPlaceOfThePlane)
{
    for (auto const& data : {SampleData::sheet(23, 11), SampleData::triangles(7)}) {
        show(withFormula(data, &linear), PlotType_Cartesian2D);
        expectFormula(&linear, 2000);
    }
}

TEST_F(PlaceOnRayTest, ALinearFieldHasItsExactValueOnSurfacesInSpace)
{
    for (auto const& data : {SampleData::block(9, 8, 7), SampleData::block(20, 30, 1), SampleData::bricks(5),
                             SampleData::prism(), SampleData::mixed(), tetrahedra(3)}) {
        show(withFormula(data, &linear), PlotType_Cartesian3D);
        expectFormula(&linear, 400);
    }
}

TEST_F(PlaceOnRayTest, AQuadrilateralIsBilinear)
{
    show(withFormula(SampleData::sheet(9, 5), &product), PlotType_Cartesian2D);
    expectFormula(&product, 2000);
}

TEST_F(PlaceOnRayTest, OnASliceTheValueIsThatInTheCellAndNotBetweenItsEdges)
{
    kernel::Cut slant = cutAt(kernel::CutKind::Plane, 0.0);
    slant.normal = {1.0, 2.0, 0.7};
    slant.origin = {0.5, 0.45, 0.5};
    show(withFormula(SampleData::bricks(4), &product), PlotType_Cartesian3D, {slant});
    std::vector<Asked> const found = askEverywhere();
    EXPECT_GT(found.size(), 1000U);
    for (Asked const& asked : found) {
        auto const& [x, y, z] = asked.position;
        EXPECT_NEAR(asked.value, product(x, y, z), 1e-11);
        EXPECT_NEAR((x - 0.5) + 2.0 * (y - 0.45) + 0.7 * (z - 0.5), 0.0, 1e-9);
        EXPECT_EQ(asked.place.points.size(), 8U);
    }
}

TEST_F(PlaceOnRayTest, ALinearFieldHasItsExactValueOnSlicesThroughCellsOfAllShapes)
{
    for (auto const& data : {SampleData::block(9, 8, 7), SampleData::prism(), tetrahedra(3)}) {
        auto const set = withFormula(data, &linear);
        double const middle = 0.503 * (set->zone(1)->range(3).min + set->zone(1)->range(3).max);
        show(set, PlotType_Cartesian3D, {cutAt(kernel::CutKind::Z, middle)});
        for (Asked const& asked : askEverywhere())
            EXPECT_NEAR(asked.position[2], middle, 1e-9);
        expectFormula(&linear, 400);
    }
}

TEST_F(PlaceOnRayTest, OnAnIsoSurfaceTheVariableHasItsValue)
{
    auto const set = withFormula(SampleData::bricks(6), &linear);
    show(set, PlotType_Cartesian3D, {cutAt(kernel::CutKind::IsoSurface, 7.6, set->variable(5)->id)});
    std::vector<Asked> const found = askEverywhere(180);
    EXPECT_GT(found.size(), 500U);
    for (Asked const& asked : found) {
        auto const& [x, y, z] = asked.position;
        EXPECT_NEAR(linear(x, y, z), 7.6, 1e-9);
        EXPECT_NEAR(asked.value, 7.6, 1e-9);
    }
}

TEST_F(PlaceOnRayTest, TheNearestPointAndTheCellAreThoseOfTheGrid)
{
    // 9 x 5 points with steps of 1/4, so that indices follow from places.
    show(withFormula(SampleData::sheet(9, 5), &linear), PlotType_Cartesian2D);
    for (Asked const& asked : askEverywhere(50)) {
        auto const& [x, y, z] = asked.position;
        std::int64_t const nearest = app::nearestPoint(*set().zone(1), asked.place, page().frame().axisVariables());
        EXPECT_LE(std::abs(4.0 * x - static_cast<double>(nearest % 9)), 0.5 + 1e-9);
        EXPECT_LE(std::abs(4.0 * y - static_cast<double>(nearest / 9)), 0.5 + 1e-9);
        double const cell = std::floor(4.0 * x) + 9.0 * std::floor(4.0 * y);
        EXPECT_EQ(static_cast<double>(asked.place.cell), cell) << x << ' ' << y;
        EXPECT_EQ(z, 0.0);
    }
}

TEST_F(PlaceOnRayTest, ValuesAtCellsAreToldAsTheyAre)
{
    show(SampleData::cellSheet(9, 5), PlotType_Cartesian2D); // 1 to 8, by column
    std::vector<Asked> const found = askEverywhere(50);
    EXPECT_GT(found.size(), 500U);
    for (Asked const& asked : found)
        EXPECT_EQ(asked.value, std::floor(4.0 * asked.position[0]) + 1.0);
}

TEST_F(PlaceOnRayTest, APlaceIsNoneWhenTheDataHaveChangedSinceThePicture)
{
    show(withFormula(SampleData::sheet(9, 5), &linear), PlotType_Cartesian2D);
    auto const question = field().questionAt({0.5, 0.5});
    ASSERT_TRUE(question);
    auto const seen = app::seenCell(*question);
    ASSERT_TRUE(seen);
    EXPECT_TRUE(field().placeOf(set(), *question, *seen));
    writeValue(*set().field(1, 1)->group(), 3, 0.8);
    EXPECT_FALSE(field().placeOf(set(), *question, *seen));
}

TEST_F(PlaceOnRayTest, OnALineThePlaceIsTheNearestOneBetweenItsPoints)
{
    m_reach = 5.01;
    show(withFormula(SampleData::segments(60), &linear), PlotType_Cartesian2D);
    std::size_t const onLines = askEverywhere(90).size();
    EXPECT_GT(onLines, 100U);
    for (Asked const& asked : askEverywhere(60))
        EXPECT_NEAR(asked.value, linear(asked.position[0], asked.position[1], 0.0), 1e-11);
}

} // namespace veldraw::tests
