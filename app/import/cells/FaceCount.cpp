#include "app/import/cells/FaceCount.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace veldraw::app {

namespace {

template <typename Key>
std::int64_t countDifferent(std::vector<Key>& keys)
{
    std::sort(keys.begin(), keys.end());
    return std::unique(keys.begin(), keys.end()) - keys.begin();
}

// Mixes the bits of a number so that sums of mixed numbers tell sets of numbers apart (Steele, Lea and Flood 2014).
std::uint64_t mixed(std::uint64_t bits)
{
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9ULL;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebULL;
    return bits ^ (bits >> 31);
}

// The same for each order of the points, and 128 bits wide: two different faces never meet in practice.
std::pair<std::uint64_t, std::uint64_t> keyOfFace(std::int64_t const* points, std::int64_t count)
{
    std::pair<std::uint64_t, std::uint64_t> key{};
    for (std::int64_t n = 0; n < count; ++n) {
        auto const point = static_cast<std::uint64_t>(points[n]);
        key.first += mixed(point + 0x9e3779b97f4a7c15ULL);
        key.second += mixed(~point * 0xd1342543de82ef95ULL);
    }
    return key;
}

} // namespace

std::int64_t countPolygonFaces(kernel::Connectivity const& cells)
{
    std::vector<std::pair<std::int64_t, std::int64_t>> edges;
    edges.reserve(static_cast<std::size_t>(cells.indexCount));
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        std::int64_t const first = cells.offsets[cell];
        std::int64_t const last = cells.offsets[cell + 1];
        for (std::int64_t n = first; n < last; ++n)
            edges.emplace_back(std::minmax(cells.indices[n], cells.indices[n + 1 < last ? n + 1 : first]));
    }
    return countDifferent(edges);
}

std::int64_t countPolyhedronFaces(kernel::Connectivity const& cells)
{
    std::vector<std::pair<std::uint64_t, std::uint64_t>> faces;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        std::int64_t const* stream = cells.faceStream + cells.faceOffsets[cell];
        std::int64_t const count = *stream++;
        for (std::int64_t face = 0; face < count; ++face) {
            faces.push_back(keyOfFace(stream + 1, *stream));
            stream += 1 + *stream;
        }
    }
    return countDifferent(faces);
}

} // namespace veldraw::app
