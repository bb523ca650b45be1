#pragma once

#include "kernel/compute/KrigingModel.h"

#include <Eigen/Dense>
#include <array>
#include <functional>

namespace veldraw::kernel {

/// The drift of one kriging system, with the orthogonal basis of its terms: with the covariances LL' of the points and the terms F at
/// them, inv(L) F = QR.
class DriftBasis
{
public:
    /// @param highest the drift that is wanted; @param axes 2 or 3
    DriftBasis(Drift_e highest, std::size_t axes)
        : m_drift(highest)
        , m_axes(axes)
    {
    }

    /// Coordinates are taken from @p origin on, in units of @p extent (or as they are where it is 0).
    void setScale(std::array<double, 3> const& origin, double extent)
    {
        m_origin = origin;
        m_scale = extent > 0.0 ? extent : 1.0;
    }

    /// The terms at a place.
    Eigen::VectorXd terms(double const* place) const;

    /// Takes the highest drift, up to the one that is wanted, of which the points tell.
    /// @param count of the points; @param place gives the coordinates of one; @param solveForward replaces a matrix B by inv(L) B
    void factorize(Eigen::Index count, std::function<std::array<double, 3>(Eigen::Index)> const& place,
                   std::function<void(Eigen::MatrixXd&)> const& solveForward);

    Drift_e drift() const { return m_drift; }
    Eigen::MatrixXd const& orthogonal() const { return m_orthogonal; } ///< Q
    Eigen::MatrixXd const& triangle() const { return m_triangle; }     ///< R

private:
    bool takeTerms(Eigen::MatrixXd const& matrix);

    Drift_e m_drift;
    std::size_t m_axes;
    std::array<double, 3> m_origin{};
    double m_scale = 1.0;
    Eigen::MatrixXd m_orthogonal;
    Eigen::MatrixXd m_triangle;
};

} // namespace veldraw::kernel
