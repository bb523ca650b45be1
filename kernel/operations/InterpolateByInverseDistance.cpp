#include "kernel/operations/InterpolateByInverseDistance.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/InverseDistance.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace veldraw::kernel {

namespace {

constexpr std::size_t targetsForAllPoints = 64;
constexpr std::int64_t sourcesForATarget = 4; // that are put in the tree in the time that a target takes

} // namespace

std::string InterpolateByInverseDistance::reasonAgainst() const
{
    if (!(m_formula.exponent > 0.0 && m_formula.exponent <= 100.0)) {
        return "The exponent must be a number above 0 and at most 100.";
    }
    if (!std::isfinite(m_formula.minimumDistance) || m_formula.minimumDistance < 0.0) {
        return "The minimum distance must be a number of at least 0.";
    }
    return PointInterpolation::reasonAgainst();
}

void InterpolateByInverseDistance::estimate(Task& task, Progress& progress)
{
    if (takesAll(static_cast<std::int64_t>(task.sourcePoints.size()))) {
        averageAll(task, progress);
    } else {
        averageNeighbors(task, progress);
    }
}

void InterpolateByInverseDistance::averageAll(Task const& task, Progress& progress) const
{
    progress.setTotal(static_cast<std::int64_t>(task.targetPoints.size()));
    PointColumns const points = task.sourceColumns(progress);
    InverseDistance const formula(m_formula.minimumDistance * task.scale, m_formula.exponent);
    auto const read = [&task](std::size_t variable, std::size_t first, std::size_t count, double* values) {
        task.gather(variable, &task.sourcePoints[first], count, values);
    };
    task.forEachBlock(targetsForAllPoints, progress,
                      [&](std::uint32_t const* targets, std::vector<double> const& places) {
                          std::vector<double> means;
                          formula.average(points, places, task.variableCount(), read, means, progress);
                          for (std::size_t at = 0; at < means.size(); ++at) {
                              task.store(at % task.variableCount(), targets[at / task.variableCount()], means[at]);
                          }
                      });
}

void InterpolateByInverseDistance::averageNeighbors(Task& task, Progress& progress) const
{
    std::int64_t const buildingUnits = static_cast<std::int64_t>(task.sourcePoints.size()) / sourcesForATarget;
    progress.setTotal(buildingUnits + static_cast<std::int64_t>(task.targetPoints.size()));
    auto const search = [&] {
        Progress building(progress, buildingUnits);
        return NeighborSearch::make(task.sources, std::move(task.sourcePoints), building);
    }();
    InverseDistance const formula(m_formula.minimumDistance * task.scale, m_formula.exponent);
    task.forEachBlock(
        task.blockSize(choice()), progress, [&](std::uint32_t const* targets, std::vector<double> const& places) {
            Neighborhoods found;
            std::vector<double> weights;
            search->find(places.data(), places.size() / static_cast<std::size_t>(task.sources.dimensions()), choice(),
                         progress, found);
            formula.weigh(found, weights);
            task.storeSums(*search, found, weights, targets);
        });
}

CommandText InterpolateByInverseDistance::command() const
{
    return withPoints(withZones("interpolate-inverse-distance")
                          .real("exponent", m_formula.exponent)
                          .real("minimum-distance", m_formula.minimumDistance));
}

} // namespace veldraw::kernel
