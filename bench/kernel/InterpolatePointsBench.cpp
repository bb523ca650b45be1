// Inverse distance and kriging between random points, each beside its peer on the same data in the same run.
#include "CancellingWaiter.h"
#include "PeakMemory.h"
#include "kernel/compute/KrigingModel.h"
#include "kernel/compute/NeighborSearch.h"
#include "kernel/compute/SpatialOrder.h"
#include "kernel/operations/InterpolateByInverseDistance.h"
#include "kernel/operations/Krige.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/session/Session.h"

#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPointInterpolator.h>
#include <vtkPolyData.h>
#include <vtkShepardKernel.h>

#include <Eigen/Dense>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <numeric>
#include <random>

using namespace veldraw::kernel;

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Random points in the unit cube, one after the other.
std::vector<double> randomPoints(std::int64_t size, unsigned seed)
{
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> distribution;
    std::vector<double> places(static_cast<std::size_t>(3 * size));
    std::generate(places.begin(), places.end(), [&] { return distribution(random); });
    return places;
}

double fieldAt(double const* place)
{
    return std::sin(7 * place[0]) + place[1] * place[2];
}

class Points : public PointReader
{
public:
    explicit Points(std::vector<double> const& places)
        : m_places(places)
    {
    }

    int dimensions() const override { return 3; }
    void read(std::uint32_t point, double* place) const override { std::copy_n(&m_places[3 * point], 3, place); }

private:
    std::vector<double> const& m_places;
};

/// A session with a zone of source points and one of targets.
struct ScatteredStage
{
    ScatteredStage(std::int64_t sourceCount, std::int64_t targetCount)
        : sources(randomPoints(sourceCount, 1))
        , targets(randomPoints(targetCount, 2))
    {
        for (char const* name : {"X", "Y", "Z", "P"}) {
            dataSet->addVariable(std::make_shared<Variable>(name));
        }
        addZone(sources);
        addZone(targets);
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

    void addZone(std::vector<double> const& places)
    {
        auto const size = static_cast<std::int64_t>(places.size() / 3);
        auto const zone = std::make_shared<Zone>("points", ZoneType_Ordered, size, 1, 1);
        for (std::size_t variable = 0; variable < 4; ++variable) {
            auto const buffer = Buffer::allocate(FieldDataType_Double, size);
            auto* const values = static_cast<double*>(buffer->mutableData());
            for (std::size_t at = 0; at < places.size() / 3; ++at) {
                values[at] = variable < 3 ? places[3 * at + variable] : fieldAt(&places[3 * at]);
            }
            zone->fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
        }
        dataSet->addZone(zone);
    }

    bool byInverseDistance(NeighborChoice choice, double exponent)
    {
        return session.perform(InterpolateByInverseDistance(frame, {1}, 2, {4}, choice, {exponent, 0.0}));
    }

    bool krige(NeighborChoice choice)
    {
        return session.perform(Krige(frame, {1}, 2, {4}, choice, {0.3, 0.0, Drift_None}));
    }

    double result(std::size_t point) const
    {
        return dataSet->field(2, 4)->group()->buffer()->value(static_cast<std::int64_t>(point));
    }

    std::vector<double> sources;
    std::vector<double> targets;
    Session session;
    std::shared_ptr<DataSet> dataSet = std::make_shared<DataSet>("Bench");
    UniqueId frame = 0;
};

template <typename Operation>
double leastSeconds(benchmark::State& state, ScatteredStage& stage, Operation const& operation)
{
    double least = 1e300;
    for (auto _ : state) {
        auto const start = Clock::now();
        if (!operation()) {
            state.SkipWithError("the interpolation was refused");
            break;
        }
        least = std::min(least, secondsSince(start));
        state.PauseTiming();
        stage.session.history().clear();
        state.ResumeTiming();
    }
    return least;
}

/// Tells how long we take for each second of the peer, and how far its results are from ours. Results that differ are an error.
void tell(benchmark::State& state, ScatteredStage const& stage, double seconds, double peerSeconds,
          std::vector<double> const& peerResults)
{
    double difference = 0.0;
    for (std::size_t at = 0; at < peerResults.size(); ++at) {
        difference = std::max(difference, std::abs(peerResults[at] - stage.result(at)));
    }
    state.counters["peer_s"] = peerSeconds;
    state.counters["ratio"] = seconds / peerSeconds;
    state.counters["difference"] = difference;
    if (!(difference < 1e-9)) {
        state.SkipWithError("the results differ from the peer's");
    }
}

vtkNew<vtkPolyData> polyData(std::vector<double> const& places, bool hasValues)
{
    vtkNew<vtkPoints> points;
    points->SetDataTypeToDouble();
    vtkNew<vtkDoubleArray> values;
    values->SetName("P");
    for (std::size_t at = 0; at < places.size(); at += 3) {
        points->InsertNextPoint(&places[at]);
        values->InsertNextValue(fieldAt(&places[at]));
    }
    vtkNew<vtkPolyData> data;
    data->SetPoints(points);
    if (hasValues) {
        data->GetPointData()->AddArray(values);
    }
    return data;
}

void inverseDistanceFromNearest(benchmark::State& state)
{
    ScatteredStage stage(state.range(0), state.range(0));
    double const seconds = leastSeconds(state, stage, [&] {
        return stage.byInverseDistance({PtSelection_NearestN, 8}, 2.0);
    });
    if (state.range(0) > 1000000) {
        return;
    }
    vtkNew<vtkPolyData> const source = polyData(stage.sources, true);
    vtkNew<vtkPolyData> const target = polyData(stage.targets, false);
    auto const start = Clock::now();
    vtkNew<vtkShepardKernel> kernel;
    kernel->SetKernelFootprintToNClosest();
    kernel->SetNumberOfPoints(8);
    kernel->SetPowerParameter(2.0);
    vtkNew<vtkPointInterpolator> filter;
    filter->SetInputData(target);
    filter->SetSourceData(source);
    filter->SetKernel(kernel);
    filter->Update();
    double const peerSeconds = secondsSince(start);
    auto* const values = filter->GetOutput()->GetPointData()->GetArray("P");
    std::vector<double> results;
    for (vtkIdType at = 0; at < values->GetNumberOfTuples(); ++at) {
        results.push_back(values->GetTuple1(at));
    }
    tell(state, stage, seconds, peerSeconds, results);
}

void inverseDistanceFromAll(benchmark::State& state)
{
    constexpr double exponent = 3.5;
    ScatteredStage stage(state.range(0), state.range(0));
    double const seconds = leastSeconds(state, stage, [&] {
        return stage.byInverseDistance({PtSelection_All, 1}, exponent);
    });
    std::vector<double> values;
    for (std::size_t at = 0; at < stage.sources.size(); at += 3) {
        values.push_back(fieldAt(&stage.sources[at]));
    }
    std::vector<double> results(stage.targets.size() / 3);
    auto const start = Clock::now();
    auto const size = static_cast<std::int64_t>(results.size());
#pragma omp parallel for
    for (std::int64_t target = 0; target < size; ++target) {
        double const* const place = &stage.targets[static_cast<std::size_t>(3 * target)];
        double weights = 0.0;
        double sum = 0.0;
        for (std::size_t point = 0; point < values.size(); ++point) {
            double const x = stage.sources[3 * point] - place[0];
            double const y = stage.sources[3 * point + 1] - place[1];
            double const z = stage.sources[3 * point + 2] - place[2];
            double const weight = std::pow(std::sqrt(x * x + y * y + z * z), -exponent);
            weights += weight;
            sum += weight * values[point];
        }
        results[static_cast<std::size_t>(target)] = sum / weights;
    }
    tell(state, stage, seconds, secondsSince(start), results);
}

/// The estimate at one target from its neighbours, by a factorization of Eigen's.
double krigedByEigen(NeighborSearch const& search, Neighborhoods const& found, std::size_t target, double const* place,
                     KrigingModel const& model, std::vector<double> const& values)
{
    std::size_t const first = found.begins[target];
    std::size_t const last = found.begins[target + 1];
    auto const size = static_cast<Eigen::Index>(last - first);
    Eigen::MatrixXd places(3, size);
    Eigen::VectorXd known(size);
    for (Eigen::Index at = 0; at < size; ++at) {
        known(at) = values[search.point(found.neighbors[first + static_cast<std::size_t>(at)].place)];
    }
    search.read(&found.neighbors[first], last - first, places.data());
    Eigen::MatrixXd matrix(size, size);
    Eigen::MatrixXd right(size, 2);
    for (Eigen::Index a = 0; a < size; ++a) {
        for (Eigen::Index b = 0; b < a; ++b) {
            matrix(a, b) = model.covariance((places.col(a) - places.col(b)).norm());
        }
        matrix(a, a) = 1.0;
        right(a, 0) = model.covariance((places.col(a) - Eigen::Map<Eigen::Vector3d const>(place)).norm());
        right(a, 1) = 1.0;
    }
    Eigen::MatrixXd const solution = Eigen::LLT<Eigen::MatrixXd>(matrix).solve(right);
    double const multiplier = (solution.col(0).sum() - 1.0) / solution.col(1).sum();
    return (solution.col(0) - multiplier * solution.col(1)).dot(known);
}

void krigingFromNearest(benchmark::State& state)
{
    ScatteredStage stage(state.range(0), 10 * state.range(0));
    NeighborChoice const choice{PtSelection_NearestN, 16};
    double const seconds = leastSeconds(state, stage, [&] { return stage.krige(choice); });
    Points const sources(stage.sources);
    Points const targets(stage.targets);
    std::vector<std::uint32_t> points(stage.sources.size() / 3);
    std::iota(points.begin(), points.end(), 0U);
    std::vector<double> values;
    for (std::size_t at = 0; at < stage.sources.size(); at += 3) {
        values.push_back(fieldAt(&stage.sources[at]));
    }
    Eigen::Map<Eigen::Matrix3Xd const> const all(stage.sources.data(), 3, static_cast<Eigen::Index>(points.size()));
    KrigingModel const model{0.3 * (all.rowwise().maxCoeff() - all.rowwise().minCoeff()).norm(), 0.0, Drift_None};
    std::vector<double> results(stage.targets.size() / 3);
    auto const start = Clock::now();
    Progress progress;
    auto const search = NeighborSearch::make(sources, points, progress);
    auto const size = static_cast<std::int64_t>(results.size());
#pragma omp parallel for schedule(dynamic, 512)
    for (std::int64_t target = 0; target < size; ++target) {
        double const* const place = &stage.targets[static_cast<std::size_t>(3 * target)];
        Neighborhoods found;
        search->find(place, 1, choice, progress, found);
        results[static_cast<std::size_t>(target)] = krigedByEigen(*search, found, 0, place, model, values);
    }
    double const peerSeconds = secondsSince(start);
    tell(state, stage, seconds, peerSeconds, results);
    auto const startOfSearch = Clock::now();
#pragma omp parallel for schedule(dynamic, 512)
    for (std::int64_t target = 0; target < size; ++target) {
        Neighborhoods found;
        search->find(&stage.targets[static_cast<std::size_t>(3 * target)], 1, choice, progress, found);
    }
    double const searchSeconds = secondsSince(startOfSearch);
    state.counters["peer_search_s"] = searchSeconds;
}

/// What an interpolation takes at most beyond the new array, for each byte of coordinates of sources and targets.
template <bool isKriging>
void memoryOfNearest(benchmark::State& state)
{
    ScatteredStage stage(state.range(0), state.range(1));
    NeighborChoice const choice{PtSelection_NearestN, 8};
    double taken = 0.0;
    for (auto _ : state) {
        taken = peakBytes([&] { isKriging ? stage.krige(choice) : stage.byInverseDistance(choice, 2.0); });
    }
    auto const targets = static_cast<double>(state.range(1));
    auto const points = static_cast<double>(state.range(0)) + targets;
    state.counters["memory"] = (taken - targets * sizeof(double)) / (points * 3 * sizeof(double));
}

/// The longest time from a cancel to the end of the operation, cancelled at points of time all over its course.
template <typename Operation>
void cancelAllOver(benchmark::State& state, ScatteredStage& stage, Operation const& operation)
{
    constexpr int moments = 20;
    auto const start = Clock::now();
    operation();
    std::chrono::duration<double> const whole = Clock::now() - start;
    stage.session.history().clear();
    CancellingWaiter waiter;
    stage.session.setWaiter(&waiter);
    double longest = 0.0;
    int number = 0;
    for (auto _ : state) {
        waiter.setDelay(whole * (number++ % moments) / moments);
        operation();
        double const rest = waiter.sinceCancel().count();
        longest = std::max(longest, rest);
        state.SetIterationTime(rest);
        stage.session.history().clear();
    }
    stage.session.setWaiter(nullptr);
    state.counters["longest_ms"] = 1e3 * longest;
    state.counters["whole_ms"] = 1e3 * whole.count();
}

void cancelInverseDistance(benchmark::State& state)
{
    ScatteredStage stage(2000000, 2000000);
    cancelAllOver(state, stage, [&] { return stage.byInverseDistance({PtSelection_NearestN, 8}, 2.0); });
}

void cancelKriging(benchmark::State& state)
{
    ScatteredStage stage(5000, 50000);
    cancelAllOver(state, stage, [&] { return stage.krige({PtSelection_All, 1}); });
}

BENCHMARK(inverseDistanceFromNearest)
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(1000000)
    ->Arg(10000000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(inverseDistanceFromAll)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(krigingFromNearest)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_TEMPLATE(memoryOfNearest, false)
    ->ArgsProduct({{100000, 8000000}, {100000, 8000000}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_TEMPLATE(memoryOfNearest, true)
    ->ArgsProduct({{100000, 8000000}, {100000}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(cancelInverseDistance)->Iterations(20)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(cancelKriging)->Iterations(20)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
