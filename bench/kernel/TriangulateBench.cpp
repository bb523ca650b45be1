// Triangulation of random points, with and without a boundary, beside CGAL's own with what is needed to make a zone of it.
#include "CancelMeasure.h"
#include "PeakMemory.h"
#include "Times.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/Triangulate.h"
#include "kernel/session/Session.h"

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <unordered_map>

using namespace veldraw::kernel;

namespace {

using Places = std::vector<PlanePlace>;
using Library = CGAL::Exact_predicates_inexact_constructions_kernel;
using Plain = CGAL::Delaunay_triangulation_2<Library>;
using Constrained = CGAL::Constrained_Delaunay_triangulation_2<Library, CGAL::Default, CGAL::Exact_predicates_tag>;

Places randomPlaces(std::int64_t count)
{
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> distribution;
    Places places;
    for (std::int64_t at = 0; at < count; ++at) {
        double const x = distribution(random);
        places.push_back({x, distribution(random)});
    }
    return places;
}

/// A closed wavy line of so many edges.
Places outline(std::int64_t edges)
{
    Places places;
    for (std::int64_t at = 0; at <= edges; ++at) {
        double const angle = 2 * M_PI * static_cast<double>(at % edges) / static_cast<double>(edges);
        double const radius = 0.4 + 0.05 * std::sin(31 * angle);
        places.push_back({0.5 + radius * std::cos(angle), 0.5 + radius * std::sin(angle)});
    }
    return places;
}

/// A session with zones of points, whose variables are X, Y and another one.
struct Stage
{
    Stage(Places const& points, Places const& boundary)
        : dataSet(std::make_shared<DataSet>("Bench"))
    {
        for (char const* const name : {"X", "Y", "P"}) {
            dataSet->addVariable(std::make_shared<Variable>(name));
        }
        add(points);
        if (!boundary.empty()) {
            add(boundary);
        }
        auto const shown = std::make_shared<Frame>("Frame", Rectangle{});
        shown->dataSet = dataSet;
        frame = shown->id;
        session.openPage({shown});
        session.perform(SetPlotType(frame, PlotType_Cartesian2D));
        session.perform(AssignVariable(frame, 'X', 1));
        session.perform(AssignVariable(frame, 'Y', 2));
        session.history().clear();
    }

    void add(Places const& places)
    {
        auto const count = static_cast<std::int64_t>(places.size());
        auto const zone = std::make_shared<Zone>("points", ZoneType_Ordered, count, 1, 1);
        for (std::size_t variable = 0; variable < 3; ++variable) {
            auto const buffer = Buffer::allocate(FieldDataType_Double, count);
            for (std::size_t at = 0; at < places.size(); ++at) {
                buffer->setValue(static_cast<std::int64_t>(at),
                                 variable < 2 ? places[at][variable] : std::sin(9 * places[at][0]));
            }
            zone->fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
        }
        dataSet->addZone(zone);
    }

    bool triangulate()
    {
        NumberSet const boundaries = dataSet->zoneCount() > 1 ? NumberSet{2} : NumberSet{};
        return session.perform(Triangulate(frame, {1}, boundaries, true, 0.25));
    }

    void takeBack()
    {
        session.undo();
        session.history().clear();
    }

    Session session;
    std::shared_ptr<DataSet> dataSet;
    UniqueId frame = 0;
};

/// The corners of all triangles, with the points in memory of their own.
template <typename Triangulation>
std::size_t extract(Triangulation const& triangulation)
{
    std::unordered_map<typename Triangulation::Vertex_handle, std::int64_t> numbers;
    numbers.reserve(triangulation.number_of_vertices());
    std::vector<double> places;
    for (auto const vertex : triangulation.finite_vertex_handles()) {
        numbers.emplace(vertex, static_cast<std::int64_t>(numbers.size()));
        places.push_back(vertex->point().x());
        places.push_back(vertex->point().y());
    }
    std::vector<std::int64_t> corners;
    corners.reserve(3 * triangulation.number_of_faces());
    for (auto const face : triangulation.finite_face_handles()) {
        for (int corner = 0; corner < 3; ++corner) {
            corners.push_back(numbers.at(face->vertex(corner)));
        }
    }
    benchmark::DoNotOptimize(places.data());
    benchmark::DoNotOptimize(corners.data());
    return corners.size() / 3;
}

std::size_t triangulateByLibrary(Places const& points, Places const& boundary)
{
    std::vector<Library::Point_2> all;
    for (PlanePlace const& place : points) {
        all.emplace_back(place[0], place[1]);
    }
    if (boundary.empty()) {
        return extract(Plain(all.begin(), all.end()));
    }
    Constrained triangulation;
    triangulation.insert(all.begin(), all.end());
    Constrained::Vertex_handle before;
    for (PlanePlace const& place : boundary) {
        auto const vertex = triangulation.insert(
            {place[0], place[1]}, before == Constrained::Vertex_handle() ? Constrained::Face_handle() : before->face());
        if (before != Constrained::Vertex_handle()) {
            triangulation.insert_constraint(before, vertex);
        }
        before = vertex;
    }
    return extract(triangulation);
}

void triangulate(benchmark::State& state)
{
    Places const points = randomPlaces(state.range(0));
    Places const boundary = state.range(1) > 0 ? outline(state.range(1)) : Places();
    Stage stage(points, boundary);
    Times ours;
    Times peer;
    for (auto _ : state) {
        ours.measure([&] { stage.triangulate(); });
        state.PauseTiming();
        stage.takeBack();
        peer.measure([&] { benchmark::DoNotOptimize(triangulateByLibrary(points, boundary)); });
        state.ResumeTiming();
    }
    double const peak = peakBytes([&] { stage.triangulate(); });
    Zone const& made = *stage.dataSet->zone(stage.dataSet->zoneCount());
    auto const result = static_cast<double>(8 * (3 * made.pointCount() + 4 * made.cellCount()));
    state.counters["bytes_a_point"] = (peak - result) / static_cast<double>(state.range(0));
    state.counters["processor_s"] = ours.processor;
    state.counters["cgal_s"] = peer.clock;
    state.counters["cgal_processor_s"] = peer.processor;
    state.counters["ratio"] = ours.clock / peer.clock;
    state.counters["ratio_of_processor"] = ours.processor / peer.processor;
}

/// How soon it ends after a cancel, which comes at points of time spread evenly over its whole course.
void cancelTriangulation(benchmark::State& state)
{
    Stage stage(randomPlaces(state.range(0)), outline(2000));
    measureCancels(
        state, stage.session, [&] { return stage.triangulate(); }, [&] { stage.takeBack(); });
}

BENCHMARK(triangulate)
    ->Args({1000000, 0})
    ->Args({1000000, 2000})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(5);
BENCHMARK(cancelTriangulation)->Arg(1000000)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(32);

} // namespace
