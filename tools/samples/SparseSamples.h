#pragma once

#include <cstdint>
#include <string>

namespace veldraw::samples {

/// A MetaImage of @p points floats in a row: the header at @p path (.mhd) and a sparse .raw file beside it, which takes hardly
/// any room on the disk. All values are 0 but for a few at the start, in the middle and at the end.
/// @throws std::runtime_error
void writeSparseImage(std::string const& path, std::int64_t points = 3000000000);

/// A .vti or .vts file, by the extension of @p path, of @p points points in a row with @p variables float variables v1, v2 and so
/// on, raw appended, all 0 and sparse as well, points of a .vts included. Every array stands at a multiple of eight bytes.
/// @throws std::runtime_error
void writeSparseGrid(std::string const& path, std::int64_t points, int variables);

/// A .vtu file of that kind with @p cells tetrahedra. All but the types of the cells is 0, so that the cells cannot be read.
/// @throws std::runtime_error
void writeSparseMesh(std::string const& path, std::int64_t points, std::int64_t cells, int variables);

} // namespace veldraw::samples
