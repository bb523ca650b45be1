#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"

#include <functional>

namespace veldraw::kernel {

/// Number of values that are computed at a time: small enough that several blocks fit into the first-level cache.
constexpr std::int64_t blockSize = 512;

/// Reads @p count values of any type and stride, from the zero-based @p first on.
void readBlock(Buffer const& source, std::int64_t first, std::int64_t count, double* values);

/// Reads the values at @p count zero-based indices.
void gatherValues(Buffer const& source, std::uint32_t const* indices, std::size_t count, double* values);

/// Stores @p count values in a contiguous buffer of float or double.
void writeBlock(double const* values, std::int64_t first, std::int64_t count, Buffer& target);

/// Runs @p body (first, count), which writes to newly allocated memory, over all blocks of [0, count) on all cores. Checks
/// for a cancel before each block and counts the block as done afterwards.
void forEachBlock(std::int64_t count, Progress& progress, std::function<void(std::int64_t, std::int64_t)> const& body);

/// The type for values that are computed from values of @p type: a floating-point type that can hold all of these. Rotated or
/// negated whole numbers need not be whole numbers of their old type.
FieldDataType_e computedType(FieldDataType_e type);

} // namespace veldraw::kernel
