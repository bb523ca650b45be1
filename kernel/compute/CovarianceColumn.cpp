#include "kernel/compute/CovarianceColumn.h"

#include "kernel/compute/WideLanes.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

VELDRAW_WIDE_LANES("avx512f", "avx2")
void makeCovariances(double inverseRange, double sill, std::size_t count, double* squares)
{
    for (std::size_t point = 0; point < count; ++point) {
        double const share = std::sqrt(squares[point]) * inverseRange;
        double const fraction = share < 1.0 ? share : 1.0;
        squares[point] = sill * (1.0 - fraction * (1.5 - 0.5 * fraction * fraction));
    }
}

} // namespace

void covarianceColumn(PointColumns const& points, KrigingModel const& model, std::array<double, 3> const& target,
                      double* covariances)
{
    std::size_t const count = points[0].size();
    measureSquares(points, 0, count, target.data(), covariances);
    makeCovariances(1.0 / std::max(model.range, 1e-300), 1.0 - model.nugget, count, covariances);
}

} // namespace veldraw::kernel
