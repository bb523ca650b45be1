// Linear interpolation to random points, beside VTK's probe filter on the same data.
#include "PeakMemory.h"
#include "kernel/operations/InterpolateLinearly.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/session/Session.h"

#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkProbeFilter.h>
#include <vtkStaticCellLocator.h>
#include <vtkStructuredGrid.h>
#include <vtkUnstructuredGrid.h>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <ctime>
#include <fstream>
#include <numeric>
#include <random>

using namespace veldraw::kernel;

namespace {

using Clock = std::chrono::steady_clock;

/// Processor time of all threads, which is hardly longer while other programs run.
double processorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

struct Places
{
    std::vector<double> x, y, z;

    void add(double px, double py, double pz)
    {
        x.push_back(px);
        y.push_back(py);
        z.push_back(pz);
    }
};

double fieldAt(double x, double y, double z)
{
    return std::sin(7 * x) + y * z;
}

Places randomPlaces(std::int64_t wanted)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> distribution(0.05, 0.95);
    Places places;
    for (std::int64_t at = 0; at < wanted; ++at) {
        double const x = distribution(random);
        double const y = distribution(random);
        places.add(x, y, distribution(random));
    }
    return places;
}

/// A grid of @p edge points along each axis of the unit cube, bent inside.
Places grid(std::int64_t edge)
{
    Places places;
    double const spacing = 1.0 / static_cast<double>(edge - 1);
    for (std::int64_t at = 0; at < edge * edge * edge; ++at) {
        double const x = static_cast<double>(at % edge) * spacing;
        double const y = static_cast<double>(at / edge % edge) * spacing;
        double const z = static_cast<double>(at / edge / edge) * spacing;
        double const bend = 0.02 * std::sin(M_PI * x) * std::sin(M_PI * y) * std::sin(M_PI * z);
        places.add(x + bend, y - bend, z + bend);
    }
    return places;
}

/// Tetrahedra in a random order, at least @p wanted of them.
struct Tetrahedra
{
    explicit Tetrahedra(std::int64_t wanted)
    {
        auto const edge = static_cast<std::int64_t>(std::ceil(std::cbrt(static_cast<double>(wanted) / 6))) + 1;
        places = grid(edge);
        constexpr std::int64_t ways[6][2] = {{1, 3}, {3, 2}, {2, 6}, {6, 4}, {4, 5}, {5, 1}}; // around the diagonal
        auto const corner = [edge](std::int64_t first, std::int64_t bits) {
            return first + bits % 2 + bits / 2 % 2 * edge + bits / 4 * edge * edge;
        };
        std::vector<std::array<std::int64_t, 4>> cells;
        for (std::int64_t k = 0; k < edge - 1; ++k) {
            for (std::int64_t j = 0; j < edge - 1; ++j) {
                for (std::int64_t i = 0; i < edge - 1; ++i) {
                    std::int64_t const first = i + edge * (j + edge * k);
                    for (auto const& way : ways) {
                        cells.push_back({first, corner(first, way[0]), corner(first, way[1]), corner(first, 7)});
                    }
                }
            }
        }
        std::shuffle(cells.begin(), cells.end(), std::mt19937(1));
        for (auto const& cell : cells) {
            corners.insert(corners.end(), cell.begin(), cell.end());
            offsets.push_back(static_cast<std::int64_t>(corners.size()));
        }
    }

    Places places;
    std::vector<std::int64_t> corners;
    std::vector<std::int64_t> offsets{0};
};

Field fieldOf(std::vector<double> const& values)
{
    auto const buffer = Buffer::allocate(FieldDataType_Double, static_cast<std::int64_t>(values.size()));
    std::copy(values.begin(), values.end(), static_cast<double*>(buffer->mutableData()));
    return Field(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
}

void addFields(Zone& zone, Places const& places, bool hasValues)
{
    std::vector<double> values(places.x.size());
    for (std::size_t at = 0; hasValues && at < values.size(); ++at) {
        values[at] = fieldAt(places.x[at], places.y[at], places.z[at]);
    }
    for (auto const* numbers : {&places.x, &places.y, &places.z, &std::as_const(values)}) {
        zone.fields.push_back(fieldOf(*numbers));
    }
}

/// A session with a source zone and one of points.
struct Stage
{
    Stage(std::shared_ptr<Zone> const& source, Places const& sourcePlaces, Places const& targets)
        : dataSet(std::make_shared<DataSet>("Bench"))
    {
        for (char const* name : {"X", "Y", "Z", "P"}) {
            dataSet->addVariable(std::make_shared<Variable>(name));
        }
        addFields(*source, sourcePlaces, true);
        auto const target =
            std::make_shared<Zone>("points", ZoneType_Ordered, static_cast<std::int64_t>(targets.x.size()), 1, 1);
        addFields(*target, targets, false);
        dataSet->addZone(source);
        dataSet->addZone(target);
        auto const shown = std::make_shared<Frame>("Frame", Rectangle{});
        shown->dataSet = dataSet;
        frame = shown->id;
        session.openPage({shown});
        session.perform(SetPlotType(frame, PlotType_Cartesian3D));
        for (int axis = 0; axis < 3; ++axis) {
            session.perform(AssignVariable(frame, static_cast<char>('X' + axis), axis + 1));
        }
        session.history().clear();
    }

    bool interpolate()
    {
        return session.perform(InterpolateLinearly(frame, {1}, 2, {4}, 0, LinearInterpMode_DontChange));
    }

    double value(std::int64_t point) const { return dataSet->field(2, 4)->group()->buffer()->value(point); }

    Session session;
    std::shared_ptr<DataSet> dataSet;
    UniqueId frame = 0;
};

vtkNew<vtkPoints> pointsOf(Places const& places)
{
    vtkNew<vtkPoints> points;
    points->SetDataTypeToDouble();
    points->SetNumberOfPoints(static_cast<vtkIdType>(places.x.size()));
    for (std::size_t at = 0; at < places.x.size(); ++at) {
        points->SetPoint(static_cast<vtkIdType>(at), places.x[at], places.y[at], places.z[at]);
    }
    return points;
}

void addValues(vtkPointSet& set, Places const& places)
{
    vtkNew<vtkDoubleArray> values;
    values->SetName("P");
    for (std::size_t at = 0; at < places.x.size(); ++at) {
        values->InsertNextValue(fieldAt(places.x[at], places.y[at], places.z[at]));
    }
    set.GetPointData()->AddArray(values);
}

/// Seconds that the probe filter takes, its locator included; what it finds at the points.
std::pair<double, std::vector<double>> probe(vtkPointSet& source, Places const& targets)
{
    vtkNew<vtkPolyData> points;
    points->SetPoints(pointsOf(targets));
    auto const start = Clock::now();
    vtkNew<vtkProbeFilter> filter;
    vtkNew<vtkStaticCellLocator> locator;
    filter->SetCellLocatorPrototype(locator);
    filter->SetInputData(points);
    filter->SetSourceData(&source);
    filter->Update();
    double const seconds = std::chrono::duration<double>(Clock::now() - start).count();
    auto* const values = filter->GetOutput()->GetPointData()->GetArray("P");
    std::vector<double> found;
    for (vtkIdType at = 0; at < values->GetNumberOfTuples(); ++at) {
        found.push_back(values->GetTuple1(at));
    }
    return {seconds, found};
}

/// What an interpolation takes at most beyond the new array, for each byte of coordinates of the source and the target.
double memoryOf(Stage& stage)
{
    auto const points = [&](int zone) { return static_cast<double>(stage.dataSet->zone(zone)->pointCount()); };
    double const taken = peakBytes([&] { stage.interpolate(); }) - points(2) * sizeof(double);
    return taken / ((points(1) + points(2)) * 3 * sizeof(double));
}

/// Measures the interpolation, and tells how long it takes for each second of VTK's filter, which has to find the same values.
void compare(benchmark::State& state, Stage& stage, vtkPointSet* peer, Places const& targets)
{
    double least = 1e300;
    double leastOfProcessor = 1e300;
    for (auto _ : state) {
        auto const start = Clock::now();
        double const startOfProcessor = processorSeconds();
        if (!stage.interpolate()) {
            state.SkipWithError("the interpolation was refused");
            return;
        }
        least = std::min(least, std::chrono::duration<double>(Clock::now() - start).count());
        leastOfProcessor = std::min(leastOfProcessor, processorSeconds() - startOfProcessor);
        state.PauseTiming();
        stage.session.history().clear();
        state.ResumeTiming();
    }
    state.counters["memory"] = memoryOf(stage);
    state.counters["processor_s"] = leastOfProcessor;
    if (peer == nullptr) {
        return;
    }
    double const startOfPeer = processorSeconds();
    auto const [seconds, values] = probe(*peer, targets);
    state.counters["vtk_processor_s"] = processorSeconds() - startOfPeer;
    std::int64_t different = 0;
    for (std::size_t at = 0; at < values.size(); ++at) {
        different += std::abs(values[at] - stage.value(static_cast<std::int64_t>(at))) > 1e-4 ? 1 : 0;
    }
    state.counters["vtk_s"] = seconds;
    state.counters["ratio"] = least / seconds;
    state.counters["different"] = static_cast<double>(different);
}

void tetrahedra(benchmark::State& state)
{
    Tetrahedra const mesh(state.range(0));
    Places const targets = randomPlaces(state.range(0));
    auto const cellCount = static_cast<std::int64_t>(mesh.offsets.size()) - 1;
    auto connectivity = std::make_shared<Connectivity>();
    connectivity->cellCount = cellCount;
    connectivity->indexCount = 4 * cellCount;
    connectivity->offsets = mesh.offsets.data();
    connectivity->indices = mesh.corners.data();
    auto const zone = std::make_shared<Zone>("tetrahedra", ZoneType_FETetra,
                                             static_cast<std::int64_t>(mesh.places.x.size()), cellCount, 0);
    zone->connectivity = connectivity;
    Stage stage(zone, mesh.places, targets);
    vtkNew<vtkUnstructuredGrid> peer;
    bool const hasPeer = state.range(0) <= 1000000;
    if (hasPeer) {
        peer->SetPoints(pointsOf(mesh.places));
        peer->AllocateExact(cellCount, 4 * cellCount);
        for (std::int64_t cell = 0; cell < cellCount; ++cell) {
            vtkIdType corners[4];
            std::copy_n(mesh.corners.begin() + 4 * cell, 4, corners);
            peer->InsertNextCell(VTK_TETRA, 4, corners);
        }
        addValues(*peer, mesh.places);
    }
    compare(state, stage, hasPeer ? peer.Get() : nullptr, targets);
}

void curvilinear(benchmark::State& state)
{
    auto const edge = static_cast<int>(state.range(0));
    Places const places = grid(edge);
    Places const targets = randomPlaces(1000000);
    Stage stage(std::make_shared<Zone>("grid", ZoneType_Ordered, edge, edge, edge), places, targets);
    vtkNew<vtkStructuredGrid> peer;
    peer->SetDimensions(edge, edge, edge);
    peer->SetPoints(pointsOf(places));
    addValues(*peer, places);
    compare(state, stage, peer, targets);
}

BENCHMARK(tetrahedra)
    ->Name("interpolateLinearlyFromTetrahedra")
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(1000000)
    ->Arg(10000000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(curvilinear)
    ->Name("interpolateLinearlyFromACurvilinearGrid")
    ->Arg(200)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
