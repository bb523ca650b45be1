// Smoothing of a block and of triangles, each beside plain loops that do the same, in the same run.
#include "PeakMemory.h"
#include "Times.h"
#include "kernel/compute/WideLanes.h"
#include "kernel/operations/SmoothVariable.h"
#include "kernel/session/Session.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <numeric>
#include <random>

using namespace veldraw::kernel;

namespace {

constexpr int passes = 50;
constexpr double weight = 0.5;

/// A session in space over one zone with the variable P.
class Stage
{
public:
    Stage(std::shared_ptr<Zone> const& zone, std::shared_ptr<Buffer> const& values)
    {
        m_dataSet->addVariable(std::make_shared<Variable>("P"));
        zone->fields.emplace_back(std::make_shared<ShareGroup>(values), ValueLocation_Nodal);
        m_dataSet->addZone(zone);
        auto const shown = std::make_shared<Frame>("Frame", Rectangle{});
        shown->dataSet = m_dataSet;
        shown->plotType = PlotType_Cartesian3D;
        m_frame = shown->id;
        m_session.openPage({shown});
    }

    bool smooth() { return m_session.perform(SmoothVariable(m_frame, 1, 1, passes, weight, BoundaryCondition_Fixed)); }

    void takeBack()
    {
        m_session.undo();
        m_session.history().clear();
    }

    Buffer const& values() const { return *m_dataSet->field(1, 1)->group()->buffer(); }

private:
    std::shared_ptr<DataSet> m_dataSet = std::make_shared<DataSet>("Bench");
    Session m_session;
    UniqueId m_frame = 0;
};

/// Measures ours and the peer by turns, and tells how far the two are apart.
template <typename Peer>
void compare(benchmark::State& state, Stage& stage, Peer const& peer)
{
    Times ours;
    Times theirs;
    double difference = 0;
    for (auto _ : state) {
        bool isDone = false;
        ours.measure([&] { isDone = stage.smooth(); });
        if (!isDone) {
            state.SkipWithError("the smoothing was refused");
            return;
        }
        state.PauseTiming();
        auto result = peer(theirs);
        for (std::size_t at = 0; at < result.size(); ++at) {
            double const found = stage.values().value(static_cast<std::int64_t>(at));
            difference = std::max(difference, std::fabs(found - static_cast<double>(result[at])));
        }
        stage.takeBack();
        state.ResumeTiming();
    }
    state.counters["peer_s"] = theirs.clock;
    state.counters["ratio"] = ours.clock / theirs.clock;
    state.counters["processor_s"] = ours.processor;
    state.counters["processor_ratio"] = ours.processor / theirs.processor;
    state.counters["difference"] = difference;
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void smoothRow(float const* __restrict row, std::int64_t edge, float* __restrict result)
{
    std::int64_t const layer = edge * edge;
    for (std::int64_t at = 1; at < edge - 1; ++at) {
        float const sum =
            row[at - 1] + row[at + 1] + row[at - edge] + row[at + edge] + row[at - layer] + row[at + layer];
        result[at] = row[at] + static_cast<float>(weight) * (sum * (1.0F / 6.0F) - row[at]);
    }
}

/// The seven-point loop between two arrays; the time of the loops alone.
std::vector<float> smoothBetweenArrays(std::vector<float> const& values, std::int64_t edge, Times& least)
{
    std::vector<float> before = values;
    std::vector<float> after = values;
    least.measure([&] {
        for (int pass = 0; pass < passes; ++pass) {
            float const* const from = before.data();
            float* const to = after.data();
#pragma omp parallel for schedule(static)
            for (std::int64_t k = 1; k < edge - 1; ++k) {
                for (std::int64_t j = 1; j < edge - 1; ++j) {
                    smoothRow(from + edge * (j + edge * k), edge, to + edge * (j + edge * k));
                }
            }
            before.swap(after);
        }
    });
    return before;
}

void block(benchmark::State& state)
{
    std::int64_t const edge = state.range(0);
    std::vector<float> values(static_cast<std::size_t>(edge * edge * edge));
    std::mt19937 random(1);
    std::generate(values.begin(), values.end(), [&] { return static_cast<float>(random()) / 4e9F; });
    auto const buffer = Buffer::allocate(FieldDataType_Float, edge * edge * edge);
    std::copy(values.begin(), values.end(), static_cast<float*>(buffer->mutableData()));
    Stage stage(std::make_shared<Zone>("block", ZoneType_Ordered, edge, edge, edge), buffer);
    compare(state, stage, [&](Times& least) { return smoothBetweenArrays(values, edge, least); });
    double const arrays = peakBytes([&] { stage.smooth(); }) / static_cast<double>(buffer->bytes()) - 1;
    state.counters["memory"] = arrays; // beyond the result, for each byte of it
}

/// Triangles between the points of a square grid, whose numbers may be shuffled.
struct Triangles
{
    Triangles(std::int64_t edge, bool isShuffled)
    {
        std::vector<std::int64_t> numbers(static_cast<std::size_t>(edge * edge));
        std::iota(numbers.begin(), numbers.end(), std::int64_t{0});
        if (isShuffled) {
            std::shuffle(numbers.begin(), numbers.end(), std::mt19937(2));
        }
        auto const number = [&](std::int64_t i, std::int64_t j) {
            return numbers[static_cast<std::size_t>(i + edge * j)];
        };
        for (std::int64_t j = 0; j < edge - 1; ++j) {
            for (std::int64_t i = 0; i < edge - 1; ++i) {
                corners.insert(corners.end(), {number(i, j), number(i + 1, j), number(i + 1, j + 1)});
                corners.insert(corners.end(), {number(i, j), number(i + 1, j + 1), number(i, j + 1)});
            }
        }
        for (std::size_t at = 0; at <= corners.size(); at += 3) {
            offsets.push_back(static_cast<std::int64_t>(at));
        }
        connectivity->cellCount = static_cast<std::int64_t>(offsets.size()) - 1;
        connectivity->indexCount = static_cast<std::int64_t>(corners.size());
        connectivity->offsets = offsets.data();
        connectivity->indices = corners.data();
        zone = std::make_shared<Zone>("triangles", ZoneType_FETriangle, edge * edge, connectivity->cellCount, 0);
        zone->connectivity = connectivity;
    }

    std::vector<std::int64_t> corners;
    std::vector<std::int64_t> offsets;
    std::shared_ptr<Connectivity> connectivity = std::make_shared<Connectivity>();
    std::shared_ptr<Zone> zone;
};

/// Compressed rows of neighbors, each once; those of the rim are empty.
struct Rows
{
    Rows(std::vector<std::int64_t> const& corners, std::size_t pointCount)
    {
        std::vector<std::int32_t> raw(2 * corners.size());
        std::vector<std::int32_t> rawStarts(pointCount + 1);
        for (std::int64_t const corner : corners) {
            rawStarts[static_cast<std::size_t>(corner) + 1] += 2;
        }
        std::partial_sum(rawStarts.begin(), rawStarts.end(), rawStarts.begin());
        std::vector<std::int32_t> next(rawStarts.begin(), rawStarts.end() - 1);
        for (std::size_t at = 0; at < corners.size(); at += 3) {
            for (std::size_t corner = 0; corner < 3; ++corner) {
                auto& place = next[static_cast<std::size_t>(corners[at + corner])];
                raw[static_cast<std::size_t>(place++)] = static_cast<std::int32_t>(corners[at + (corner + 1) % 3]);
                raw[static_cast<std::size_t>(place++)] = static_cast<std::int32_t>(corners[at + (corner + 2) % 3]);
            }
        }
        starts.resize(pointCount + 1);
#pragma omp parallel for schedule(static)
        for (std::size_t row = 0; row < pointCount; ++row) {
            auto const begin = raw.begin() + rawStarts[row];
            auto const end = raw.begin() + rawStarts[row + 1];
            std::sort(begin, end);
            bool isRim = false;
            for (auto at = begin; at != end; ++at) {
                bool const isAlone = (at == begin || at[-1] != *at) && (at + 1 == end || at[1] != *at);
                isRim = isRim || isAlone;
            }
            starts[row + 1] = isRim ? 0 : static_cast<std::int32_t>(std::unique(begin, end) - begin);
        }
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        neighbors.resize(static_cast<std::size_t>(starts.back()));
#pragma omp parallel for schedule(static)
        for (std::size_t row = 0; row < pointCount; ++row) {
            std::copy_n(raw.begin() + rawStarts[row], starts[row + 1] - starts[row], neighbors.begin() + starts[row]);
        }
    }

    std::vector<std::int32_t> starts;
    std::vector<std::int32_t> neighbors;
};

/// The loop over compressed rows, with the making of the rows.
std::vector<double> smoothByRows(std::vector<double> const& values, std::vector<std::int64_t> const& corners,
                                 Times& least)
{
    std::vector<double> before = values;
    std::vector<double> after = values;
    least.measure([&] {
        Rows const rows(corners, values.size());
        for (int pass = 0; pass < passes; ++pass) {
#pragma omp parallel for schedule(static)
            for (std::size_t row = 0; row < before.size(); ++row) {
                std::int32_t const begin = rows.starts[row];
                std::int32_t const end = rows.starts[row + 1];
                double sum = 0;
                for (std::int32_t at = begin; at < end; ++at) {
                    sum += before[static_cast<std::size_t>(rows.neighbors[static_cast<std::size_t>(at)])];
                }
                after[row] = begin < end ? before[row] + weight * (sum / (end - begin) - before[row]) : before[row];
            }
            before.swap(after);
        }
    });
    return before;
}

void triangles(benchmark::State& state)
{
    Triangles const mesh(1000, state.range(0) != 0);
    std::vector<double> values(1000 * 1000);
    std::mt19937 random(1);
    std::generate(values.begin(), values.end(), [&] { return static_cast<double>(random()) / 4e9; });
    auto const buffer = Buffer::allocate(FieldDataType_Double, 1000 * 1000);
    std::copy(values.begin(), values.end(), static_cast<double*>(buffer->mutableData()));
    Stage stage(mesh.zone, buffer);
    compare(state, stage, [&](Times& least) { return smoothByRows(values, mesh.corners, least); });
    double const arrays = peakBytes([&] { stage.smooth(); }) / static_cast<double>(buffer->bytes()) - 1;
    state.counters["memory"] = arrays;
}

BENCHMARK(block)->Name("smoothABlock")->Arg(256)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(4);
BENCHMARK(triangles)
    ->Name("smoothTriangles")
    ->Arg(0) // as they come
    ->Arg(1) // numbers of points shuffled
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(4);

} // namespace
