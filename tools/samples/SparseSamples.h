#pragma once

#include <cstdint>
#include <string>

namespace veldraw::samples {

/// A MetaImage of @p points floats in a row: the header at @p path (.mhd) and a sparse .raw file beside it, which takes hardly
/// any room on the disk. All values are 0 but for a few at the start, in the middle and at the end.
/// @throws std::runtime_error
void writeSparseImage(std::string const& path, std::int64_t points = 3000000000);

/// A .vti file of @p points points in a row with @p variables float variables v1, v2 and so on, raw appended, all 0 and sparse as
/// well. Every array stands at a multiple of eight bytes.
/// @throws std::runtime_error
void writeSparseGrid(std::string const& path, std::int64_t points, int variables);

} // namespace veldraw::samples
