#include "tests/app/support/FileHelpers.h"
#include "tools/samples/FlowSample.h"
#include "tools/samples/IslandSample.h"
#include "tools/samples/LargeGrid.h"
#include "tools/samples/MeshSamples.h"
#include "tools/samples/RainfallSample.h"
#include "tools/samples/TableSamples.h"
#include "tools/samples/TransientSample.h"

#include <gtest/gtest.h>
#include <set>

namespace veldraw::tests {

namespace {

app::ImportResult sample(void (*write)(std::string const&), std::string const& name)
{
    TemporaryFolder const folder;
    write(folder.path(name));
    return import(folder.path(name));
}

} // namespace

TEST(Samples, FlowHasStructuredBlocksWithVectorsAndCellCentredPressure)
{
    auto const result = sample(&samples::writeFlow, "flow.vtm");
    kernel::DataSet const& data = *result.dataSet;
    ASSERT_EQ(data.zoneCount(), 3);
    EXPECT_EQ(data.zone(2)->name, "Throat");
    EXPECT_EQ(data.zone(2)->dimensionality(), 3);
    EXPECT_EQ(variableNames(data), "X,Y,Z,velocity_X,velocity_Y,velocity_Z,temperature,pressure");
    EXPECT_EQ(fieldOf(data, 3, "pressure").location(), ValueLocation_CellCentered);
    EXPECT_LT(data.zone(2)->range(data.findVariable("pressure")).min,
              data.zone(1)->range(data.findVariable("pressure")).min);
    EXPECT_TRUE(result.remarks.empty());
}

TEST(Samples, MeshesHaveTetrahedraAndTriangles)
{
    auto const bar = sample(&samples::writeTetrahedra, "tetra.vtu").dataSet;
    EXPECT_EQ(bar->zone(1)->type, ZoneType_FETetra);
    EXPECT_EQ(bar->zone(1)->j, 6 * 24 * 6 * 6);
    auto const membrane = sample(&samples::writeTriangles, "triangles.vtu").dataSet;
    EXPECT_EQ(membrane->zone(1)->type, ZoneType_FETriangle);
    EXPECT_EQ(membrane->zone(1)->i, 1 + 16 * 48);
}

TEST(Samples, TetrahedraAllHaveAPositiveVolume)
{
    auto const bar = sample(&samples::writeTetrahedra, "tetra.vtu").dataSet;
    kernel::Connectivity const& cells = *bar->zone(1)->connectivity;
    auto const edge = [&](std::int64_t cell, int corner, int axis) {
        auto const values = bar->field(1, axis)->group()->buffer();
        return values->value(cells.indices[4 * cell + corner]) - values->value(cells.indices[4 * cell]);
    };
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        double a[3];
        double b[3];
        double c[3];
        for (int axis = 0; axis < 3; ++axis) {
            a[axis] = edge(cell, 1, axis + 1);
            b[axis] = edge(cell, 2, axis + 1);
            c[axis] = edge(cell, 3, axis + 1);
        }
        double const volume = a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                              a[2] * (b[0] * c[1] - b[1] * c[0]);
        ASSERT_GT(volume, 0.0) << cell;
    }
}

TEST(Samples, TransientHasTwoStrandsOfSixSteps)
{
    auto const data = sample(&samples::writeTransient, "transient.vtm").dataSet;
    ASSERT_EQ(data->zoneCount(), 12);
    std::multiset<int> strands;
    std::set<double> times;
    for (auto const& zone : data->zones()) {
        strands.insert(zone->strand);
        times.insert(zone->solutionTime);
    }
    EXPECT_EQ(strands.count(1), 6U);
    EXPECT_EQ(strands.count(2), 6U);
    EXPECT_EQ(times, (std::set<double>{0.0, 0.5, 1.0, 1.5, 2.0, 2.5}));
}

TEST(Samples, RainfallIsKnownEverywhereButOnTheMap)
{
    auto const data = sample(&samples::writeRainfall, "rainfall.vtm").dataSet;
    ASSERT_EQ(data->zoneCount(), 3);
    EXPECT_EQ(data->zone(1)->name, "Gauges");
    EXPECT_EQ(data->zone(2)->name, "Forecast");
    EXPECT_EQ(data->zone(3)->name, "Map");
    int const rainfall = data->findVariable("rainfall");
    ASSERT_GT(rainfall, 0);
    EXPECT_FALSE(data->field(1, rainfall)->isPassive());
    EXPECT_FALSE(data->field(2, rainfall)->isPassive());
    EXPECT_TRUE(data->field(3, rainfall)->isPassive());
}

TEST(Samples, TheIslandHasMarksWithinAShoreAndRoundALake)
{
    auto const data = sample(&samples::writeIsland, "island.vtm").dataSet;
    ASSERT_EQ(data->zoneCount(), 3);
    EXPECT_EQ(data->zone(1)->name, "Marks");
    EXPECT_GT(data->zone(1)->pointCount(), 150);
    for (int const line : {2, 3}) {
        kernel::Zone const& zone = *data->zone(line);
        EXPECT_EQ(zone.name, line == 2 ? "Shore" : "Lake");
        EXPECT_TRUE(zone.isOrdered());
        EXPECT_EQ(zone.dimensionality(), 1);
        for (int const variable : {1, 2}) {
            auto const values = data->field(line, variable)->group()->buffer();
            EXPECT_EQ(values->value(0), values->value(zone.i - 1)) << "it is closed";
        }
    }
    EXPECT_EQ(variableNames(*data), "X,Y,Z,height");
}

TEST(Samples, TablesHaveATimeSeriesAndScatteredPoints)
{
    auto const series = sample(&samples::writeTimeSeries, "timeseries.csv").dataSet;
    EXPECT_EQ(series->zone(1)->i, 512);
    EXPECT_EQ(variableNames(*series), "time,signal,envelope,temperature");
    for (int const at : {0, 1, 255, 511})
        EXPECT_EQ(series->field(1, 1)->group()->buffer()->value(at), at / 256.0) << "in even steps";
    auto const points = sample(&samples::writeScatter, "scatter.csv").dataSet;
    EXPECT_EQ(points->zone(1)->i, 400);
    EXPECT_EQ(variableNames(*points), "X,Y,Z,rainfall");
}

TEST(Samples, AreTheSameEveryTime)
{
    TemporaryFolder const folder;
    for (char const* name : {"a.csv", "b.csv"})
        samples::writeScatter(folder.path(name));
    EXPECT_EQ(contentOf(folder.path("a.csv")), contentOf(folder.path("b.csv")));
    for (char const* name : {"a.vtu", "b.vtu"})
        samples::writeTetrahedra(folder.path(name));
    EXPECT_EQ(contentOf(folder.path("a.vtu")), contentOf(folder.path("b.vtu")));
}

TEST(Samples, TheLargeGridHasSixFloatVariables)
{
    TemporaryFolder const folder;
    samples::writeLargeGrid(folder.path("large.vts"), 9);
    auto const data = import(folder.path("large.vts")).dataSet;
    EXPECT_EQ(variableNames(*data), "X,Y,Z,p,T,rho");
    EXPECT_EQ(data->zone(1)->pointCount(), 729);
    for (int variable = 1; variable <= 6; ++variable)
        EXPECT_EQ(data->field(1, variable)->type(), FieldDataType_Float);
}

} // namespace veldraw::tests
