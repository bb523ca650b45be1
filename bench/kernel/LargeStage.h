#pragma once

#include "kernel/session/Session.h"

/// A session that shows a large data set: ordered zones with six float variables each, every value written.
struct LargeStage
{
    explicit LargeStage(std::int64_t pointsOfZone, int zoneCount = 1);

    veldraw::kernel::Session session;
    std::shared_ptr<veldraw::kernel::DataSet> dataSet;
};
