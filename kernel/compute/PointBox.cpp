#include "kernel/compute/PointBox.h"

#include "kernel/base/Parallel.h"

#include <vector>

namespace veldraw::kernel {

Box boxOf(PointReader const& reader, std::uint32_t const* points, std::int64_t count, Progress const& progress)
{
    std::vector<Box> boxes(static_cast<std::size_t>(parallelChunkCount(count)));
    parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        progress.check();
        for (std::int64_t at = first; at < last; ++at) {
            Point place{};
            reader.read(points[at], place.data());
            boxes[static_cast<std::size_t>(chunk)].add(place);
        }
    });
    Box whole;
    for (Box const& box : boxes) {
        whole.add(box);
    }
    return whole;
}

} // namespace veldraw::kernel
