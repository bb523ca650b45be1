#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"

#include <functional>

namespace veldraw::kernel {

/// Number of values that are worked on at a time: small enough that several blocks fit into the nearest cache.
constexpr std::int64_t blockSize = 512;

/// Reads @p count values of any type and stride, from the zero-based @p first on.
void readBlock(Buffer const& source, std::int64_t first, std::int64_t count, double* values);

/// Stores @p count values in a contiguous buffer of float or double.
void writeBlock(double const* values, std::int64_t first, std::int64_t count, Buffer& target);

/// Runs @p body (first, count), which fills fresh memory, over all blocks of [0, count) on all cores, counts them as done,
/// and looks at the cancel before each.
void forEachBlock(std::int64_t count, Progress& progress, std::function<void(std::int64_t, std::int64_t)> const& body);

/// The type that computed values of a field have: a floating one that holds what the field held. Whole numbers that are
/// turned or change sign are no whole numbers of their type any more.
FieldDataType_e computedType(FieldDataType_e type);

} // namespace veldraw::kernel
