#include "kernel/compute/DenseKriging.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/SystemMemory.h"
#include "kernel/compute/CovarianceColumn.h"
#include "kernel/compute/DriftBasis.h"

#include <Eigen/Dense>
#include <algorithm>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

using Index = Eigen::Index;

constexpr Index tileLength = 128;
constexpr double shareOfMemory = 0.7;
constexpr double leastRoot =
    1e-6; // on the diagonal of the factor: of points that are all but equal it is rounding errors
constexpr double tinyNugget = 1e-10; // makes a matrix regular whose points are all but equal

Index tilesOf(Index count)
{
    return (count + tileLength - 1) / tileLength;
}

} // namespace

struct DenseKriging::System
{
    KrigingModel model;
    PointColumns points;
    std::size_t axes;
    Index count;
    Eigen::MatrixXd factor; ///< below the diagonal and on it
    DriftBasis drift;
    std::vector<Eigen::VectorXd> pointWeights; ///< one a variable
    std::vector<Eigen::VectorXd> driftWeights;

    System(KrigingModel const& krigingModel, PointColumns columns)
        : model(krigingModel)
        , points(std::move(columns))
        , axes(points[2].empty() ? 2 : 3)
        , count(static_cast<Index>(points[0].size()))
        , drift(krigingModel.drift, axes)
    {
    }

    Index sizeOf(Index tileNumber) const { return std::min(tileLength, count - tileNumber * tileLength); }

    auto block(Index row, Index column)
    {
        return factor.block(row * tileLength, column * tileLength, sizeOf(row), sizeOf(column));
    }

    auto block(Index row, Index column) const
    {
        return factor.block(row * tileLength, column * tileLength, sizeOf(row), sizeOf(column));
    }

    double covariance(Index a, Index b) const
    {
        double square = 0.0;
        for (std::size_t axis = 0; axis < axes; ++axis) {
            double const difference =
                points[axis][static_cast<std::size_t>(a)] - points[axis][static_cast<std::size_t>(b)];
            square += difference * difference;
        }
        return model.covariance(std::sqrt(square));
    }

    void fillTile(Index row, Index column, double diagonal)
    {
        for (Index b = column * tileLength; b < column * tileLength + sizeOf(column); ++b) {
            for (Index a = row * tileLength; a < row * tileLength + sizeOf(row); ++a) {
                factor(a, b) = a == b ? diagonal : covariance(a, b);
            }
        }
    }

    /// Column of tiles by column of tiles, the tiles of a column on all cores. Each tile is computed by one thread, in one
    /// order, so the result does not depend on their number.
    /// @return whether the matrix is positive definite
    bool factorizeCovariances(double diagonal, Progress& progress)
    {
        Index const tiles = tilesOf(count);
        for (Index column = 0; column < tiles; ++column) {
            updateTile(column, column, diagonal, progress);
            Eigen::LLT<Eigen::MatrixXd> const small(block(column, column).selfadjointView<Eigen::Lower>());
            bool const isRegular =
                small.info() == Eigen::Success && small.matrixLLT().diagonal().minCoeff() > leastRoot;
            if (!isRegular) {
                return false;
            }
            block(column, column) = Eigen::MatrixXd(small.matrixL());
            forEachInParallel(tiles - column - 1, [&](std::int64_t below) {
                Index const row = column + 1 + below;
                updateTile(row, column, diagonal, progress);
                block(column, column)
                    .triangularView<Eigen::Lower>()
                    .transpose()
                    .solveInPlace<Eigen::OnTheRight>(block(row, column));
            });
        }
        return true;
    }

    void updateTile(Index row, Index column, double diagonal, Progress& progress)
    {
        fillTile(row, column, diagonal);
        for (Index before = 0; before < column; ++before) {
            progress.check();
            block(row, column).noalias() -= block(row, before) * block(column, before).transpose();
        }
        progress.advance(column + 1);
    }

    /// Solves Lx = b, in place.
    void solveForward(Eigen::Ref<Eigen::MatrixXd> numbers, Progress const& progress) const
    {
        for (Index row = 0; row < tilesOf(count); ++row) {
            progress.check();
            auto part = numbers.middleRows(row * tileLength, sizeOf(row));
            for (Index column = 0; column < row; ++column) {
                part.noalias() -= block(row, column) * numbers.middleRows(column * tileLength, sizeOf(column));
            }
            block(row, row).triangularView<Eigen::Lower>().solveInPlace(part);
        }
    }

    /// Solves L'x = b, in place.
    void solveBackward(Eigen::Ref<Eigen::MatrixXd> numbers, Progress const& progress) const
    {
        for (Index row = tilesOf(count); row-- > 0;) {
            progress.check();
            auto part = numbers.middleRows(row * tileLength, sizeOf(row));
            for (Index below = row + 1; below < tilesOf(count); ++below) {
                part.noalias() -= block(below, row).transpose() * numbers.middleRows(below * tileLength, sizeOf(below));
            }
            block(row, row).transpose().triangularView<Eigen::Upper>().solveInPlace(part);
        }
    }

    /// Centred in the points' box and scaled to half of its longest side.
    void factorizeDrift(Progress const& progress)
    {
        std::array<double, 3> origin{};
        double extent = 0.0;
        for (std::size_t axis = 0; axis < axes; ++axis) {
            auto const [low, high] = std::minmax_element(points[axis].begin(), points[axis].end());
            origin[axis] = 0.5 * *low + 0.5 * *high;
            extent = std::max(extent, 0.5 * (*high - *low));
        }
        drift.setScale(origin, extent);
        drift.factorize(
            count, [this](Index point) { return placeOf(static_cast<std::size_t>(point)); },
            [&](Eigen::MatrixXd& terms) { solveForward(terms, progress); });
    }

    std::array<double, 3> placeOf(std::size_t point) const
    {
        std::array<double, 3> place{};
        for (std::size_t axis = 0; axis < axes; ++axis) {
            place[axis] = points[axis][point];
        }
        return place;
    }
};

std::int64_t DenseKriging::mostPoints()
{
    double const available = std::min(availableMemory(), 1e15);
    return static_cast<std::int64_t>(std::sqrt(shareOfMemory * available / sizeof(double)));
}

std::int64_t DenseKriging::workFor(std::int64_t points)
{
    Index const tiles = tilesOf(points);
    return tiles * (tiles + 1) * (tiles + 2) / 6;
}

DenseKriging::DenseKriging(KrigingModel const& model, PointColumns points, Progress& progress)
    : m_system(std::make_unique<System>(model, std::move(points)))
{
    System& system = *m_system;
    double const bytes = static_cast<double>(system.count) * static_cast<double>(system.count) * sizeof(double);
    requireMemory(bytes);
    system.factor.resize(system.count, system.count);
    if (!system.factorizeCovariances(1.0, progress)) {
        Progress again(progress, 0);
        if (!system.factorizeCovariances(1.0 + tinyNugget, again)) {
            throw std::runtime_error("The points lie too close to each other to be taken all at once.");
        }
    }
    system.factorizeDrift(progress);
}

DenseKriging::~DenseKriging() = default;

Drift_e DenseKriging::drift() const
{
    return m_system->drift.drift();
}

void DenseKriging::addVariable(std::vector<double> const& values, Progress const& progress)
{
    System& system = *m_system;
    Eigen::VectorXd numbers = Eigen::Map<Eigen::VectorXd const>(values.data(), system.count);
    system.solveForward(numbers, progress);
    Eigen::VectorXd const share = system.drift.orthogonal().transpose() * numbers;
    system.driftWeights.emplace_back(system.drift.triangle().triangularView<Eigen::Upper>().solve(share));
    numbers -= system.drift.orthogonal() * share;
    system.solveBackward(numbers, progress);
    system.pointWeights.push_back(std::move(numbers));
}

void DenseKriging::estimate(std::vector<double> const& targets, std::vector<double>& estimates,
                            Progress const& progress) const
{
    System const& system = *m_system;
    std::size_t const variables = system.pointWeights.size();
    std::size_t const targetCount = targets.size() / system.axes;
    estimates.assign(targetCount * variables, 0.0);
    Eigen::VectorXd covariances(system.count);
    for (std::size_t target = 0; target < targetCount; ++target) {
        progress.check();
        std::array<double, 3> place{};
        std::copy_n(&targets[target * system.axes], system.axes, place.begin());
        covarianceColumn(system.points, system.model, place, covariances.data());
        Eigen::VectorXd const terms = system.drift.terms(place.data());
        for (std::size_t variable = 0; variable < variables; ++variable) {
            estimates[target * variables + variable] =
                covariances.dot(system.pointWeights[variable]) + terms.dot(system.driftWeights[variable]);
        }
    }
}

} // namespace veldraw::kernel
