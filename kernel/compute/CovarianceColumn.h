#pragma once

#include "kernel/compute/KrigingModel.h"
#include "kernel/compute/PointColumns.h"

namespace veldraw::kernel {

/// The covariances of all points with a target. @param covariances receives one a point
void covarianceColumn(PointColumns const& points, KrigingModel const& model, std::array<double, 3> const& target,
                      double* covariances);

} // namespace veldraw::kernel
