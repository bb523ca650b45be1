#include "kernel/compute/DriftBasis.h"

namespace veldraw::kernel {

Eigen::VectorXd DriftBasis::terms(double const* place) const
{
    std::array<double, 3> scaled{};
    for (std::size_t axis = 0; axis < m_axes; ++axis) {
        scaled[axis] = (place[axis] - m_origin[axis]) / m_scale;
    }
    Eigen::VectorXd all(static_cast<Eigen::Index>(mostDriftTerms));
    setDriftTerms(scaled.data(), m_axes, all.data());
    return all.head(static_cast<Eigen::Index>(driftTermCount(m_drift, m_axes)));
}

void DriftBasis::factorize(Eigen::Index count, std::function<std::array<double, 3>(Eigen::Index)> const& place,
                           std::function<void(Eigen::MatrixXd&)> const& solveForward)
{
    Eigen::MatrixXd matrix(count, static_cast<Eigen::Index>(driftTermCount(m_drift, m_axes)));
    for (Eigen::Index point = 0; point < count; ++point) {
        matrix.row(point) = terms(place(point).data()).transpose();
    }
    solveForward(matrix);
    while (!takeTerms(matrix.leftCols(static_cast<Eigen::Index>(driftTermCount(m_drift, m_axes))))) {
        m_drift = lowerDrift(m_drift); // whose terms stand first
    }
}

/// @return whether the points tell of every term; of the constant alone they always do
bool DriftBasis::takeTerms(Eigen::MatrixXd const& matrix)
{
    if (matrix.rows() < matrix.cols()) {
        return false;
    }
    Eigen::HouseholderQR<Eigen::MatrixXd> const qr(matrix);
    m_triangle = qr.matrixQR().topRows(matrix.cols()).triangularView<Eigen::Upper>();
    for (Eigen::Index term = 1; term < matrix.cols(); ++term) {
        if (!(std::abs(m_triangle(term, term)) > leastRest * std::abs(m_triangle(0, 0)))) {
            return false;
        }
    }
    m_orthogonal = qr.householderQ() * Eigen::MatrixXd::Identity(matrix.rows(), matrix.cols());
    return true;
}

} // namespace veldraw::kernel
