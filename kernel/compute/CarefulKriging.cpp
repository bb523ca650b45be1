#include "kernel/compute/CarefulKriging.h"

#include "kernel/compute/DriftBasis.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

using Index = Eigen::Index;

constexpr double leastPivot = 1e-12; // of a covariance matrix with ones on its diagonal

std::size_t number(Index index)
{
    return static_cast<std::size_t>(index);
}

constexpr Index columnsAtATime = 256;

/// Replaces @p right by inv(L) @p right, with the first rows and columns of @p lower, and looks for a cancel now and then.
void solveForward(Eigen::MatrixXd const& lower, Index size, Eigen::Ref<Eigen::MatrixXd> right, Progress const& progress)
{
    for (Index first = 0; first < size; first += columnsAtATime) {
        progress.check();
        Index const columns = std::min(columnsAtATime, size - first);
        Index const below = size - first - columns;
        auto part = right.middleRows(first, columns);
        lower.block(first, first, columns, columns).triangularView<Eigen::Lower>().solveInPlace(part);
        right.middleRows(first + columns, below).noalias() -=
            lower.block(first + columns, first, below, columns) * part;
    }
}

/// Replaces @p right by inv(L') @p right.
void solveBackward(Eigen::MatrixXd const& lower, Eigen::VectorXd& right, Progress const& progress)
{
    for (Index end = lower.rows(); end > 0;) {
        progress.check();
        Index const columns = std::min(columnsAtATime, end);
        Index const first = end - columns;
        Index const below = lower.rows() - end;
        auto part = right.segment(first, columns);
        part.noalias() -= lower.block(end, first, below, columns).transpose() * right.tail(below);
        lower.block(first, first, columns, columns).triangularView<Eigen::Lower>().transpose().solveInPlace(part);
        end = first;
    }
}

} // namespace

struct CarefulKriging::System
{
    KrigingModel model;
    std::size_t axes;
    std::vector<double> const places;
    std::vector<std::size_t> used; ///< the points that count
    Eigen::MatrixXd factor;
    DriftBasis drift;

    System(KrigingModel const& krigingModel, std::vector<double> points, std::size_t axisCount,
           Progress const& progress)
        : model(krigingModel)
        , axes(axisCount)
        , places(std::move(points))
        , drift(krigingModel.drift, axisCount)
    {
        factorizeCovariances(progress);
        factorizeDrift(progress);
    }

    double distance(double const* a, double const* b) const
    {
        double square = 0.0;
        for (std::size_t axis = 0; axis < axes; ++axis) {
            square += (a[axis] - b[axis]) * (a[axis] - b[axis]);
        }
        return std::sqrt(square);
    }

    double const* place(std::size_t point) const { return places.data() + point * axes; }

    /// Row after row, so that a point can be left out when its row turns out to depend on the others.
    void factorizeCovariances(Progress const& progress)
    {
        auto const count = static_cast<Index>(places.size() / axes);
        factor.setZero(count, count);
        for (std::size_t point = 0; point < number(count); ++point) {
            auto const row = static_cast<Index>(used.size());
            for (Index column = 0; column < row; ++column) {
                factor(row, column) = model.covariance(distance(place(point), place(used[number(column)])));
            }
            Eigen::VectorXd rest = factor.row(row).head(row).transpose();
            solveForward(factor, row, rest, progress);
            double const pivot = 1.0 - rest.squaredNorm();
            if (pivot > leastPivot) {
                factor.row(row).head(row) = rest.transpose();
                factor(row, row) = std::sqrt(pivot);
                used.push_back(point);
            }
        }
        auto const size = static_cast<Index>(used.size());
        if (size < count) {
            factor = Eigen::MatrixXd(factor.topLeftCorner(size, size));
        }
    }

    /// Centred at the first point and scaled to the farthest.
    void factorizeDrift(Progress const& progress)
    {
        double extent = 0.0;
        for (std::size_t const point : used) {
            for (std::size_t axis = 0; axis < axes; ++axis) {
                extent = std::max(extent, std::abs(place(point)[axis] - place(0)[axis]));
            }
        }
        drift.setScale(placeOf(0), extent);
        drift.factorize(
            static_cast<Index>(used.size()), [this](Index at) { return placeOf(used[number(at)]); },
            [&](Eigen::MatrixXd& terms) { solveForward(factor, factor.rows(), terms, progress); });
    }

    std::array<double, 3> placeOf(std::size_t point) const
    {
        std::array<double, 3> result{};
        std::copy_n(place(point), axes, result.begin());
        return result;
    }
};

CarefulKriging::CarefulKriging(KrigingModel const& model, std::vector<double> places, std::size_t axes,
                               Progress const& progress)
    : m_system(std::make_unique<System>(model, std::move(places), axes, progress))
{
}

CarefulKriging::~CarefulKriging() = default;

Drift_e CarefulKriging::drift() const
{
    return m_system->drift.drift();
}

void CarefulKriging::weigh(double const* target, std::vector<double>& weights, Progress const& progress) const
{
    System const& system = *m_system;
    Eigen::VectorXd solution(static_cast<Index>(system.used.size()));
    for (std::size_t at = 0; at < system.used.size(); ++at) {
        double const distance = system.distance(system.place(system.used[at]), target);
        solution(static_cast<Index>(at)) = system.model.covariance(distance);
    }
    solveForward(system.factor, system.factor.rows(), solution, progress);
    Eigen::VectorXd terms = system.drift.terms(target);
    system.drift.triangle().transpose().triangularView<Eigen::Lower>().solveInPlace(terms);
    Eigen::MatrixXd const& basis = system.drift.orthogonal();
    solution -= basis * (basis.transpose() * solution - terms);
    solveBackward(system.factor, solution, progress);
    weights.assign(system.places.size() / system.axes, 0.0);
    for (std::size_t at = 0; at < system.used.size(); ++at) {
        weights[system.used[at]] = solution(static_cast<Index>(at));
    }
}

} // namespace veldraw::kernel
