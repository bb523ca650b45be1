#include "kernel/operations/Krige.h"

#include "kernel/base/SystemMemory.h"
#include "kernel/compute/DenseKriging.h"
#include "kernel/compute/LocalKriging.h"
#include "kernel/compute/PointBox.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numeric>
#include <thread>

namespace veldraw::kernel {

namespace {

constexpr std::size_t targetsForTheSystem = 16;
constexpr std::int64_t sourcesForASystem = 16; // that are put in the tree in the time that a target takes

bool isFraction(double number)
{
    return number >= 0.0 && number <= 1.0;
}

/// Of the box of all points.
double diagonalOf(PointReader const& reader, std::vector<std::uint32_t> const& points, Progress const& progress)
{
    Box const box = boxOf(reader, points.data(), static_cast<std::int64_t>(points.size()), progress);
    double square = 0.0;
    for (std::size_t axis = 0; axis < box.low.size(); ++axis) {
        square += (box.high[axis] - box.low[axis]) * (box.high[axis] - box.low[axis]);
    }
    return std::sqrt(square);
}

} // namespace

std::string Krige::reasonAgainst() const
{
    if (!isFraction(m_model.range)) {
        return "The range must be from 0 to 1.";
    }
    if (!isFraction(m_model.zeroValue)) {
        return "The zero value must be from 0 to 1.";
    }
    return PointInterpolation::reasonAgainst();
}

void Krige::compute(Progress& progress)
{
    m_merged = 0;
    m_lowered = 0;
    PointInterpolation::compute(progress);
}

std::string Krige::details() const
{
    std::string text;
    text += m_merged > 0 ? counted(m_merged, "source point") + " merged with others at the same place." : "";
    text += m_lowered > 0
                ? (text.empty() ? "" : " ") + std::string("A lower drift was taken at ") + counted(m_lowered, "point") +
                      ", whose source points are too few or lie in a plane or on a line."
                : "";
    return text;
}

std::string Krige::reasonAgainstPoints(std::int64_t count) const
{
    double most = static_cast<double>(DenseKriging::mostPoints());
    std::int64_t needed = count;
    if (!takesAll(count)) {
        // Each thread has a system of its own, and a copy of it for a moment.
        most /= std::sqrt(2.0 * static_cast<double>(std::max(std::thread::hardware_concurrency(), 1U)));
        needed = std::min(choice().count, count);
    }
    if (static_cast<double>(needed) <= most) {
        return {};
    }
    return "Kriging from " + counted(needed, "point") +
           " at once takes more memory than there is: " + std::to_string(static_cast<std::int64_t>(most)) +
           " points would fit.";
}

void Krige::estimate(Task& task, Progress& progress)
{
    std::int64_t const unitsForMerging = progress.total() / 20;
    {
        Progress merging(progress, unitsForMerging);
        m_merged = std::max(m_merged, task.mergeCoincidentPoints(merging));
    }
    returnFreedMemory(); // what sorting took is not to be added to what the search takes
    Progress estimating(progress, progress.total() - unitsForMerging);
    if (takesAll(static_cast<std::int64_t>(task.sourcePoints.size()))) {
        estimateFromAll(task, estimating);
    } else {
        estimateFromNeighbors(task, estimating);
    }
}

void Krige::estimateFromAll(Task const& task, Progress& progress)
{
    auto const points = static_cast<std::int64_t>(task.sourcePoints.size());
    auto const targets = static_cast<std::int64_t>(task.targetPoints.size());
    progress.setTotal(DenseKriging::workFor(points) + targets);
    KrigingModel const model{m_model.range * diagonalOf(task.sources, task.sourcePoints, progress), m_model.zeroValue,
                             m_model.drift};
    DenseKriging kriging(model, task.sourceColumns(progress), progress);
    std::vector<double> firsts; // differences from them are estimated, so that equal values give just this value
    std::vector<double> means;
    for (std::size_t variable = 0; variable < task.variableCount(); ++variable) {
        std::vector<double> values(task.sourcePoints.size());
        task.gather(variable, task.sourcePoints.data(), values.size(), values.data());
        firsts.push_back(values.front());
        std::transform(values.begin(), values.end(), values.begin(),
                       [first = firsts.back()](double value) { return value - first; });
        means.push_back(std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size()));
        kriging.addVariable(values, progress);
    }
    m_lowered = std::max(m_lowered, kriging.drift() != m_model.drift ? targets : 0);
    task.forEachBlock(targetsForTheSystem, progress,
                      [&](std::uint32_t const* numbers, std::vector<double> const& places) {
                          std::vector<double> estimates;
                          kriging.estimate(places, estimates, progress);
                          for (std::size_t at = 0; at < estimates.size(); ++at) {
                              std::size_t const variable = at % task.variableCount();
                              // A drift far outside may be too large for a number.
                              double const estimate = std::isfinite(estimates[at]) ? estimates[at] : means[variable];
                              task.store(variable, numbers[at / task.variableCount()], firsts[variable] + estimate);
                          }
                      });
}

void Krige::estimateFromNeighbors(Task& task, Progress& progress)
{
    auto const points = static_cast<std::int64_t>(task.sourcePoints.size());
    progress.setTotal(points / sourcesForASystem + static_cast<std::int64_t>(task.targetPoints.size()));
    KrigingModel const model{m_model.range * diagonalOf(task.sources, task.sourcePoints, progress), m_model.zeroValue,
                             m_model.drift};
    auto const search = [&] {
        Progress building(progress, points / sourcesForASystem);
        return NeighborSearch::make(task.sources, std::move(task.sourcePoints), building);
    }();
    auto const axes = static_cast<std::size_t>(task.sources.dimensions());
    std::atomic<std::int64_t> lowered{0};
    task.forEachBlock(Task::blockSize(choice()), progress,
                      [&](std::uint32_t const* targets, std::vector<double> const& places) {
                          Neighborhoods found;
                          std::vector<double> weights;
                          search->find(places.data(), places.size() / axes, choice(), progress, found);
                          LocalKriging kriging(*search, model, axes, progress);
                          lowered += kriging.weigh(places.data(), found, weights);
                          task.storeSums(*search, found, weights, targets);
                      });
    m_lowered = std::max(m_lowered, lowered.load());
}

CommandText Krige::command() const
{
    static constexpr char const* drifts[] = {"none", "linear", "quadratic"};
    return withPoints(withZones("krige")
                          .real("range", m_model.range)
                          .real("zero-value", m_model.zeroValue)
                          .word("drift", drifts[m_model.drift]));
}

} // namespace veldraw::kernel
