#include "kernel/operations/Krige.h"

#include "kernel/compute/DenseKriging.h"
#include "kernel/compute/LocalKriging.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

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
    text += m_lowered > 0 ? (text.empty() ? "" : " ") + counted(m_lowered, "kriging system") +
                                " solved with a lower drift, since the points did not tell of the whole one."
                          : "";
    return text;
}

void Krige::estimate(Task const& given, Progress& progress)
{
    Task task = given;
    m_merged = std::max(m_merged, task.mergeCoincidentPoints(progress));
    bool const takesAll = choice().selection == PtSelection_All ||
                          (choice().selection == PtSelection_NearestN &&
                           choice().count >= static_cast<std::int64_t>(task.sourcePoints.size()));
    if (takesAll) {
        estimateFromAll(task, progress);
    } else {
        estimateFromNeighbors(task, progress);
    }
}

void Krige::estimateFromAll(Task const& task, Progress& progress)
{
    auto const points = static_cast<std::int64_t>(task.sourcePoints.size());
    if (points > DenseKriging::mostPoints()) {
        throw std::runtime_error(
            "Kriging from all of " + counted(points, "point") + " at once takes more memory than there is: " +
            std::to_string(DenseKriging::mostPoints()) + " points would fit. Take the nearest points instead.");
    }
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
    m_lowered += kriging.drift() != m_model.drift ? 1 : 0;
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
