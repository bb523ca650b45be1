#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/DimensionsLoader.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// Brings values from the cells of a zone to its points: each point gets the mean of the cells at it that are not hidden and have
/// a finite value, each of them once. A point without such a cell has no value: it gets no number.
/// @param values a cell-centred field of the zone, with the slots of one
/// @return in the type that computedType() gives
/// @throws Interrupted, std::bad_alloc
std::shared_ptr<Buffer const> meansAtPoints(ZoneType_e type, ZoneDimensions const& dimensions, Buffer const& values,
                                            Progress const& progress);

} // namespace veldraw::kernel
