#include "kernel/compute/CarefulKriging.h"

#include <Eigen/Dense>
#include <algorithm>

namespace veldraw::kernel {

namespace {

using Index = Eigen::Index;

constexpr double leastPivot = 1e-12; // of a covariance matrix with ones on its diagonal

std::size_t number(Index index)
{
    return static_cast<std::size_t>(index);
}

} // namespace

struct CarefulKriging::System
{
    KrigingModel model;
    std::size_t axes;
    std::vector<double> const places;
    std::vector<std::size_t> used; ///< the points that count
    std::array<double, 3> origin{};
    double scale = 1.0;
    Eigen::MatrixXd factor;
    Eigen::MatrixXd basis;
    Eigen::MatrixXd triangle;

    System(KrigingModel const& krigingModel, std::vector<double> points, std::size_t axisCount,
           Progress const& progress)
        : model(krigingModel)
        , axes(axisCount)
        , places(std::move(points))
    {
        factorizeCovariances(progress);
        placeDrift();
        while (!factorizeDrift()) {
            model.drift = lowerDrift(model.drift);
        }
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
            progress.check();
            auto const row = static_cast<Index>(used.size());
            for (Index column = 0; column < row; ++column) {
                factor(row, column) = model.covariance(distance(place(point), place(used[number(column)])));
            }
            auto const before = factor.topLeftCorner(row, row).triangularView<Eigen::Lower>();
            Eigen::VectorXd const rest = before.solve(factor.row(row).head(row).transpose());
            double const pivot = 1.0 - rest.squaredNorm();
            if (pivot > leastPivot) {
                factor.row(row).head(row) = rest.transpose();
                factor(row, row) = std::sqrt(pivot);
                used.push_back(point);
            }
        }
        auto const size = static_cast<Index>(used.size());
        factor = Eigen::MatrixXd(factor.topLeftCorner(size, size));
    }

    void placeDrift()
    {
        std::copy_n(place(0), axes, origin.begin());
        double size = 0.0;
        for (std::size_t const point : used) {
            for (std::size_t axis = 0; axis < axes; ++axis) {
                size = std::max(size, std::abs(place(point)[axis] - origin[axis]));
            }
        }
        scale = size > 0.0 ? size : 1.0;
    }

    Eigen::VectorXd driftTerms(double const* at) const
    {
        std::array<double, 3> scaled{};
        for (std::size_t axis = 0; axis < axes; ++axis) {
            scaled[axis] = (at[axis] - origin[axis]) / scale;
        }
        Eigen::VectorXd terms(static_cast<Index>(mostDriftTerms));
        setDriftTerms(scaled.data(), axes, terms.data());
        return terms.head(static_cast<Index>(driftTermCount(model.drift, axes)));
    }

    /// @return whether the points tell of every term of the drift; with the constant alone they always do
    bool factorizeDrift()
    {
        auto const terms = static_cast<Index>(driftTermCount(model.drift, axes));
        auto const count = static_cast<Index>(used.size());
        if (count < terms) {
            return false;
        }
        basis.resize(count, terms);
        for (Index row = 0; row < count; ++row) {
            basis.row(row) = driftTerms(place(used[number(row)])).transpose();
        }
        factor.triangularView<Eigen::Lower>().solveInPlace(basis);
        Eigen::HouseholderQR<Eigen::MatrixXd> const qr(basis);
        triangle = qr.matrixQR().topRows(terms).triangularView<Eigen::Upper>();
        for (Index term = 1; term < terms; ++term) {
            if (!(std::abs(triangle(term, term)) > leastRest * std::abs(triangle(0, 0)))) {
                return false;
            }
        }
        basis = qr.householderQ() * Eigen::MatrixXd::Identity(count, terms);
        return true;
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
    return m_system->model.drift;
}

void CarefulKriging::weigh(double const* target, std::vector<double>& weights) const
{
    System const& system = *m_system;
    Eigen::VectorXd solution(static_cast<Index>(system.used.size()));
    for (std::size_t at = 0; at < system.used.size(); ++at) {
        double const distance = system.distance(system.place(system.used[at]), target);
        solution(static_cast<Index>(at)) = system.model.covariance(distance);
    }
    auto const lower = system.factor.triangularView<Eigen::Lower>();
    lower.solveInPlace(solution);
    Eigen::VectorXd terms = system.driftTerms(target);
    system.triangle.transpose().triangularView<Eigen::Lower>().solveInPlace(terms);
    solution -= system.basis * (system.basis.transpose() * solution - terms);
    lower.transpose().solveInPlace(solution);
    weights.assign(system.places.size() / system.axes, 0.0);
    for (std::size_t at = 0; at < system.used.size(); ++at) {
        weights[system.used[at]] = solution(static_cast<Index>(at));
    }
}

} // namespace veldraw::kernel
