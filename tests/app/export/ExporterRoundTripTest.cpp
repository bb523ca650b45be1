#include "app/export/Exporter.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellType.h>

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

kernel::Field field(FieldDataType_e type, std::vector<double> const& values,
                    ValueLocation_e location = ValueLocation_Nodal)
{
    auto buffer = kernel::Buffer::allocate(type, static_cast<std::int64_t>(values.size()));
    for (std::size_t n = 0; n < values.size(); ++n)
        buffer->setValue(static_cast<std::int64_t>(n), values[n]);
    return kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(buffer)), location);
}

std::shared_ptr<kernel::DataSet> dataSetWith(std::vector<std::string> const& names)
{
    auto dataSet = std::make_shared<kernel::DataSet>("title");
    for (std::string const& name : names)
        dataSet->addVariable(std::make_shared<kernel::Variable>(name));
    return dataSet;
}

void expectSameField(kernel::Zone const& zone, kernel::Field const& left, kernel::Field const& right)
{
    ASSERT_EQ(left.isPassive(), right.isPassive());
    if (left.isPassive())
        return;
    EXPECT_EQ(left.type(), right.type());
    EXPECT_EQ(left.location(), right.location());
    auto const a = left.group()->buffer();
    auto const b = right.group()->buffer();
    ASSERT_EQ(a->size(), b->size());
    for (std::int64_t n = 0; n < a->size(); ++n) {
        bool const unused =
            zone.isOrdered() && left.location() == ValueLocation_CellCentered &&
            ((zone.i > 1 && n % zone.i == zone.i - 1) || (zone.j > 1 && n / zone.i % zone.j == zone.j - 1) ||
             (zone.k > 1 && n / zone.i / zone.j == zone.k - 1));
        double const x = a->value(n);
        double const y = b->value(n);
        ASSERT_TRUE(unused || std::memcmp(&x, &y, sizeof x) == 0) << n << ": " << x << " " << y;
    }
}

void expectSameZones(kernel::DataSet const& left, kernel::DataSet const& right)
{
    ASSERT_EQ(variableNames(left), variableNames(right));
    ASSERT_EQ(left.zoneCount(), right.zoneCount());
    for (int n = 1; n <= left.zoneCount(); ++n) {
        kernel::Zone const& a = *left.zone(n);
        kernel::Zone const& b = *right.zone(n);
        SCOPED_TRACE(a.name);
        EXPECT_EQ(a.name, b.name);
        EXPECT_EQ(a.type, b.type);
        EXPECT_EQ(a.i, b.i);
        EXPECT_EQ(a.j, b.j);
        EXPECT_EQ(a.k, b.k);
        EXPECT_EQ(a.isScattered, b.isScattered);
        EXPECT_EQ(a.strand, b.strand);
        EXPECT_EQ(a.solutionTime, b.solutionTime);
        ASSERT_EQ(a.connectivity == nullptr, b.connectivity == nullptr);
        if (a.connectivity) {
            EXPECT_EQ(cellsOf(a), cellsOf(b));
            ASSERT_EQ(a.connectivity->shapes == nullptr, b.connectivity->shapes == nullptr);
            for (std::int64_t cell = 0; a.connectivity->shapes && cell < a.connectivity->cellCount; ++cell)
                EXPECT_EQ(a.connectivity->shapes[cell], b.connectivity->shapes[cell]);
            ASSERT_EQ(a.connectivity->faceStreamSize, b.connectivity->faceStreamSize);
            for (std::int64_t at = 0; at < a.connectivity->faceStreamSize; ++at)
                EXPECT_EQ(a.connectivity->faceStream[at], b.connectivity->faceStream[at]);
        }
        for (int variable = 1; variable <= left.variableCount(); ++variable)
            expectSameField(a, *left.field(n, variable), *right.field(n, variable));
    }
}

void expectRoundTrip(kernel::DataSet const& data, std::string const& name)
{
    TemporaryFolder const folder;
    app::exportDataSet(data, QString::fromStdString(folder.path(name)));
    auto const result = import(folder.path(name));
    expectSameZones(data, *result.dataSet);
    EXPECT_TRUE(result.remarks.empty()) << result.remarks.front();
}

std::shared_ptr<kernel::DataSet> importedGrid(vtkDataSet& grid, std::string const& name)
{
    TemporaryFolder const folder;
    return import(writeXml(grid, folder.path(name))).dataSet;
}

} // namespace

TEST(RoundTrip, KeepsEveryBitOfEveryTypeInAnOrderedZone)
{
    auto const data = dataSetWith({"X", "Y", "Z", "f <m/s> & \"more\"", "d\tü", "i", "s", "b", "t", "cell"});
    auto const zone = std::make_shared<kernel::Zone>("Zöne \"1\" <a&b>", ZoneType_Ordered, 2, 3, 1);
    zone->solutionTime = 0.1;
    zone->strand = 7;
    zone->fields = {field(FieldDataType_Float, {0, 1, 0, 1, 0, 1}),
                    field(FieldDataType_Float, {0, 0, 1, 1, 2, 2}),
                    field(FieldDataType_Float, {0.1, 0.2, 0.3, 0.4, 0.5, 0.6}),
                    field(FieldDataType_Float, {1e-45, -0.0, nan, INFINITY, 3.4028235e38, 0.1}),
                    field(FieldDataType_Double, {5e-324, -0.0, nan, -INFINITY, 1.7976931348623157e308, 0.1}),
                    field(FieldDataType_Int32, {-2147483648.0, 2147483647, 0, 1, 2, 3}),
                    field(FieldDataType_Int16, {-32768, 32767, 0, 1, 2, 3}),
                    field(FieldDataType_Byte, {0, 255, 1, 2, 3, 4}),
                    field(FieldDataType_Bit, {1, 0, 1, 1, 0, 1}),
                    field(FieldDataType_Double, {1.5, 99, 2.5, 99, 99, 99}, ValueLocation_CellCentered)};
    data->addZone(zone);
    expectRoundTrip(*data, "zone.vts");
    expectRoundTrip(*data, "zones.vtm");
}

TEST(RoundTrip, KeepsNamesOrderAndTypesOfCoordinatesOfAnyKind)
{
    auto const data = dataSetWith({"p", "y", "z", "x"});
    auto const zone = std::make_shared<kernel::Zone>("z", ZoneType_Ordered, 2, 1, 1);
    zone->fields = {field(FieldDataType_Float, {1, 2}), field(FieldDataType_Double, {0.1, 4}),
                    field(FieldDataType_Int32, {5, 6}), field(FieldDataType_Float, {0.1, 8})};
    data->addZone(zone);
    expectRoundTrip(*data, "zone.vts");
}

TEST(RoundTrip, KeepsDataWithoutAnyCoordinates)
{
    auto const data = dataSetWith({"time", "signal"});
    auto const zone = std::make_shared<kernel::Zone>("series", ZoneType_Ordered, 3, 1, 1);
    zone->fields = {field(FieldDataType_Double, {0, 1, 2}), field(FieldDataType_Double, {0.5, 0.25, 0.125})};
    data->addZone(zone);
    expectRoundTrip(*data, "series.vts");
}

TEST(RoundTrip, KeepsEveryFiniteElementType)
{
    struct Sample
    {
        char const* name;
        vtkSmartPointer<vtkUnstructuredGrid> grid;
        ZoneType_e type;
    };
    for (Sample const& sample :
         {Sample{"line", unstructuredGrid(3, {{VTK_LINE, {0, 1}}, {VTK_LINE, {1, 2}}}), ZoneType_FELineSeg},
          Sample{"triangle", unstructuredGrid(4, {{VTK_TRIANGLE, {0, 1, 2}}, {VTK_TRIANGLE, {1, 2, 3}}}),
                 ZoneType_FETriangle},
          Sample{"quad", unstructuredGrid(6, {{VTK_QUAD, {0, 1, 2, 3}}, {VTK_QUAD, {2, 3, 4, 5}}}), ZoneType_FEQuad},
          Sample{"tetra", unstructuredGrid(5, {{VTK_TETRA, {0, 1, 2, 3}}, {VTK_TETRA, {1, 2, 3, 4}}}),
                 ZoneType_FETetra},
          Sample{"brick",
                 unstructuredGrid(
                     9, {{VTK_HEXAHEDRON, {0, 1, 2, 3, 4, 5, 6, 7}}, {VTK_HEXAHEDRON, {8, 1, 2, 3, 4, 5, 6, 7}}}),
                 ZoneType_FEBrick},
          Sample{"polygon", unstructuredGrid(6, {{VTK_POLYGON, {0, 1, 2, 3, 4}}, {VTK_TRIANGLE, {3, 4, 5}}}),
                 ZoneType_FEPolygon},
          Sample{"polyhedron", polyhedra(), ZoneType_FEPolyhedron},
          Sample{"mixed", unstructuredGrid(8, {{VTK_WEDGE, {0, 1, 2, 3, 4, 5}}, {VTK_PYRAMID, {0, 1, 2, 3, 6}}}),
                 ZoneType_FEMixed}}) {
        SCOPED_TRACE(sample.name);
        addCellValues(*sample.grid, "cell", {0.1, 0.2});
        auto const data = importedGrid(*sample.grid, "grid.vtu");
        ASSERT_EQ(data->zone(1)->type, sample.type);
        expectRoundTrip(*data, "zone.vtu");
        expectRoundTrip(*data, "zone.vtm");
    }
}

TEST(RoundTrip, KeepsSurfacesAndLinesInPolyDataFiles)
{
    auto const faces =
        importedGrid(*unstructuredGrid(6, {{VTK_POLYGON, {0, 1, 2, 3, 4}}, {VTK_TRIANGLE, {3, 4, 5}}}), "g.vtu");
    expectRoundTrip(*faces, "surface.vtp");
    auto const mixed =
        importedGrid(*unstructuredGrid(6, {{VTK_QUAD, {0, 1, 2, 3}}, {VTK_TRIANGLE, {3, 4, 5}}}), "g.vtu");
    expectRoundTrip(*mixed, "surface.vtp");
    auto const lines = importedGrid(*unstructuredGrid(3, {{VTK_LINE, {0, 1}}, {VTK_LINE, {1, 2}}}), "g.vtu");
    expectRoundTrip(*lines, "lines.vtp");
}

TEST(RoundTrip, KeepsPointsOfATableScattered)
{
    auto const points = dataSetWith({"X", "Y", "Z", "p"});
    auto const zone = std::make_shared<kernel::Zone>("cloud", ZoneType_Ordered, 3, 1, 1);
    zone->isScattered = true;
    for (double const start : {0.0, 5.0, 2.0, 7.0})
        zone->fields.push_back(field(FieldDataType_Double, {start, start + 2.0, start + 1.0}));
    points->addZone(zone);
    for (char const* const name : {"cloud.vts", "cloud.vtp", "cloud.vtm"})
        expectRoundTrip(*points, name);
    zone->isScattered = false;
    for (char const* const name : {"curve.vts", "curve.vtm"})
        expectRoundTrip(*points, name);
}

TEST(RoundTrip, KeepsAMixedZoneThatHappensToHaveOneShape)
{
    auto const data = importedGrid(*unstructuredGrid(6, {{VTK_WEDGE, {0, 1, 2, 3, 4, 5}}}), "g.vtu");
    ASSERT_EQ(data->zone(1)->type, ZoneType_FEMixed);
    expectRoundTrip(*data, "zone.vtu");
}

TEST(RoundTrip, KeepsUniformGridsInImageFiles)
{
    auto const data = dataSetWith({"X", "Y", "Z", "c"});
    auto const zone = std::make_shared<kernel::Zone>("image", ZoneType_Ordered, 2, 2, 1);
    zone->fields = {field(FieldDataType_Double, {1, 1.5, 1, 1.5}), field(FieldDataType_Double, {2, 2, 2.25, 2.25}),
                    field(FieldDataType_Double, {3, 3, 3, 3}),
                    field(FieldDataType_Float, {7, 0, 0, 0}, ValueLocation_CellCentered)};
    data->addZone(zone);
    expectRoundTrip(*data, "image.vti");
}

TEST(RoundTrip, KeepsSeveralZonesWithPassiveVariablesStrandsAndTimes)
{
    auto const data = dataSetWith({"X", "Y", "Z", "p", "T"});
    for (int n = 0; n < 3; ++n) {
        auto const zone = std::make_shared<kernel::Zone>("step " + std::to_string(n), ZoneType_Ordered, 2, 1, 1);
        zone->strand = n == 2 ? kernel::staticStrand : n;
        zone->solutionTime = 0.1 * n;
        zone->fields = {field(FieldDataType_Float, {0, 1}), field(FieldDataType_Float, {0, 0}),
                        field(FieldDataType_Float, {0, 0}),
                        n == 0 ? kernel::Field() : field(FieldDataType_Float, {5, 6}),
                        n == 1 ? kernel::Field() : field(FieldDataType_Double, {7, 0}, ValueLocation_CellCentered)};
        data->addZone(zone);
    }
    expectRoundTrip(*data, "steps.vtm");
}

TEST(RoundTrip, KeepsTwoVariablesOfOneNameApart)
{
    auto const data = dataSetWith({"p", "p"});
    auto const zone = std::make_shared<kernel::Zone>("z", ZoneType_Ordered, 2, 1, 1);
    zone->fields = {field(FieldDataType_Float, {1, 2}), field(FieldDataType_Float, {3, 4})};
    data->addZone(zone);
    TemporaryFolder const folder;
    app::exportDataSet(*data, QString::fromStdString(folder.path("z.vts")));
    auto const again = import(folder.path("z.vts")).dataSet;
    EXPECT_EQ(variableNames(*again), "p,p (2)");
    EXPECT_EQ(valuesOf(*again, 1, "p (2)"), "3 4");
}

TEST(RoundTrip, KeepsEveryDigitInTables)
{
    auto const data = dataSetWith({"a, b", "1", " c\"d "});
    auto const zone = std::make_shared<kernel::Zone>("table", ZoneType_Ordered, 3, 1, 1);
    zone->fields = {field(FieldDataType_Double, {0.1, 5e-324, 1.7976931348623157e308}),
                    field(FieldDataType_Double, {-INFINITY, 1.0 / 3.0, -0.0}), field(FieldDataType_Double, {1, 2, 3})};
    data->addZone(zone);
    expectRoundTrip(*data, "table.csv");
    expectRoundTrip(*data, "table.tsv");
}

TEST(RoundTrip, ReadsFloatsOfTablesBackAsTheSameNumbers)
{
    auto const data = dataSetWith({"f"});
    auto const zone = std::make_shared<kernel::Zone>("table", ZoneType_Ordered, 3, 1, 1);
    zone->fields = {field(FieldDataType_Float, {0.1F, 1e-45F, 3.4028235e38F})};
    data->addZone(zone);
    TemporaryFolder const folder;
    app::exportDataSet(*data, QString::fromStdString(folder.path("table.csv")));
    auto const again = import(folder.path("table.csv")).dataSet;
    for (std::int64_t n = 0; n < 3; ++n)
        EXPECT_EQ(static_cast<float>(fieldOf(*again, 1, "f").group()->buffer()->value(n)),
                  static_cast<float>(zone->fields[0].group()->buffer()->value(n)));
}

} // namespace veldraw::tests
