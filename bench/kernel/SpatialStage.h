#pragma once

#include "kernel/operations/SpatialVariables.h"
#include "kernel/session/Session.h"

/// A session that shows ordered zones in space: coordinates X, Y, Z, a vector U, V, W on them, and a scalar, every value
/// written.
struct SpatialStage
{
    /// @param points of each zone
    /// @param type   of all variables: float, double or 16-bit
    explicit SpatialStage(std::int64_t points, int zones = 1, FieldDataType_e type = FieldDataType_Float);

    veldraw::kernel::Session session;
    std::shared_ptr<veldraw::kernel::DataSet> dataSet;
    veldraw::kernel::UniqueId frame;
    veldraw::kernel::SpatialVariables variables;
};
