#include "kernel/compute/CopyValues.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/SystemMemory.h"

#include <algorithm>
#include <cstring>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t valuesBetweenLooks = 1 << 16; // a multiple of 8: no two parts share a byte of bits

void copyPart(Buffer const& source, std::int64_t first, std::int64_t count, Buffer& target)
{
    if (source.isContiguous()) {
        std::int64_t const start = Buffer::bytesOf(source.type(), first);
        std::memcpy(static_cast<char*>(target.mutableData()) + start, static_cast<char const*>(source.data()) + start,
                    static_cast<std::size_t>(Buffer::bytesOf(source.type(), count)));
        return;
    }
    for (std::int64_t at = first; at < first + count; ++at) {
        target.setBits(at, source.bits(at));
    }
}

} // namespace

std::shared_ptr<Buffer> copyValues(Buffer const& source, Progress& progress)
{
    requireMemory(static_cast<double>(source.bytes()));
    std::shared_ptr<Buffer> target = Buffer::allocate(source.type(), source.size());
    progress.setTotal(source.size());
    auto const copyChunk = [&](std::int64_t first, std::int64_t last, std::int64_t) {
        for (std::int64_t begin = first; begin < last; begin += valuesBetweenLooks) {
            progress.check();
            std::int64_t const count = std::min(valuesBetweenLooks, last - begin);
            copyPart(source, begin, count, *target);
            progress.advance(count);
        }
    };
    parallelFor(source.size(), copyChunk, grainOfFreshMemory(source.size()));
    return target;
}

} // namespace veldraw::kernel
