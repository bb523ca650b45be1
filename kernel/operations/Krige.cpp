#include "kernel/operations/Krige.h"

#include "kernel/compute/DenseKriging.h"
#include "kernel/compute/LocalKriging.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <thread>

namespace veldraw::kernel {

namespace {

constexpr std::size_t targetsForTheSystem = 16;

bool isFraction(double number)
{
    return number >= 0.0 && number <= 1.0;
}

double diagonalOf(PointColumns const& points)
{
    double square = 0.0;
    for (std::vector<double> const& coordinates : points) {
        if (!coordinates.empty()) {
            auto const [low, high] = std::minmax_element(coordinates.begin(), coordinates.end());
            square += (*high - *low) * (*high - *low);
        }
    }
    return std::sqrt(square);
}

/// Checks that a system of so many points fits into the memory. @throws std::runtime_error
void requireRoom(std::int64_t points, std::int64_t most)
{
    if (points > most) {
        throw std::runtime_error("Kriging from " + counted(points, "point") +
                                 " at once takes more memory than there is: " + std::to_string(most) +
                                 " points would fit.");
    }
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

void Krige::estimate(Task const& given, Progress& progress)
{
    Task task = given;
    m_merged = std::max(m_merged, task.mergeCoincidentPoints(progress));
    if (task.takesAll(choice())) {
        estimateFromAll(task, progress);
    } else {
        estimateFromNeighbors(task, progress);
    }
}

void Krige::estimateFromAll(Task const& task, Progress& progress)
{
    auto const points = static_cast<std::int64_t>(task.sourcePoints.size());
    requireRoom(points, DenseKriging::mostPoints());
    auto const targets = static_cast<std::int64_t>(task.targetPoints.size());
    progress.setTotal(DenseKriging::workFor(points) + targets);
    PointColumns columns = task.sourceColumns();
    KrigingModel const model{m_model.range * diagonalOf(columns), m_model.zeroValue, m_model.drift};
    DenseKriging kriging(model, std::move(columns), progress);
    for (std::size_t variable = 0; variable < task.variableCount(); ++variable) {
        std::vector<double> values(task.sourcePoints.size());
        task.gather(variable, task.sourcePoints.data(), values.size(), values.data());
        kriging.addVariable(values, progress);
    }
    m_lowered += kriging.drift() != m_model.drift ? targets : 0;
    task.forEachBlock(targetsForTheSystem, progress,
                      [&](std::uint32_t const* numbers, std::vector<double> const& places) {
                          std::vector<double> estimates;
                          kriging.estimate(places, estimates, progress);
                          for (std::size_t at = 0; at < estimates.size(); ++at) {
                              task.store(at % task.variableCount(), numbers[at / task.variableCount()], estimates[at]);
                          }
                      });
}

void Krige::estimateFromNeighbors(Task const& task, Progress& progress)
{
    // Each thread has a system of its own, and a copy of it for a moment.
    double const systems = 2.0 * static_cast<double>(std::max(std::thread::hardware_concurrency(), 1U));
    requireRoom(std::min(choice().count, static_cast<std::int64_t>(task.sourcePoints.size())),
                static_cast<std::int64_t>(static_cast<double>(DenseKriging::mostPoints()) / std::sqrt(systems)));
    progress.setTotal(static_cast<std::int64_t>(task.targetPoints.size()));
    KrigingModel const model{m_model.range * diagonalOf(task.sourceColumns()), m_model.zeroValue, m_model.drift};
    auto const search = NeighborSearch::make(task.sources, task.sourcePoints, progress);
    auto const axes = static_cast<std::size_t>(task.sources.dimensions());
    task.forEachBlock(Task::blockSize(choice()), progress,
                      [&](std::uint32_t const* targets, std::vector<double> const& places) {
                          Neighborhoods found;
                          std::vector<double> weights;
                          search->find(places.data(), places.size() / axes, choice(), found);
                          LocalKriging kriging(*search, model, axes, progress);
                          m_lowered += kriging.weigh(places.data(), found, weights);
                          task.storeSums(*search, found, weights, targets);
                      });
}

} // namespace veldraw::kernel
