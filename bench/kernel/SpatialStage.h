#pragma once

#include "kernel/data/SpatialVariables.h"
#include "kernel/frames/Session.h"

/// A session that shows one ordered zone in space: float coordinates X, Y, Z, a float vector U, V, W on them, and a float
/// scalar, every value written.
struct SpatialStage
{
    explicit SpatialStage(std::int64_t points);

    veldraw::kernel::Session session;
    std::shared_ptr<veldraw::kernel::DataSet> dataSet;
    veldraw::kernel::UniqueId frame;
    veldraw::kernel::SpatialVariables variables;
};
