#include "kernel/mesh/FirstNeighbors.h"

#include "kernel/compute/WideLanes.h"

#include <cstddef>

namespace veldraw::kernel {

namespace {

constexpr std::size_t few = 16;

using Lanes = std::uint32_t __attribute__((vector_size(few * sizeof(std::uint32_t))));

/// Compares each with all others side by side, which takes less than to sort them: a processor would guess every other step of that wrong.
/// @param count at most few
VELDRAW_WIDE_LANES("avx512f", "avx2")
FirstNeighbors keepFirstsOfFew(std::uint32_t* begin, std::size_t count) noexcept
{
    Lanes neighbors{};
    Lanes numbers{};
    for (std::size_t at = 0; at < few; ++at) {
        neighbors[at] = at < count ? begin[at] : 0;
        numbers[at] = static_cast<std::uint32_t>(at);
    }
    Lanes times{};
    Lanes timesBefore{};
    for (std::size_t at = 0; at < count; ++at) {
        Lanes const same = neighbors == begin[at] ? Lanes{} + 1 : Lanes{};
        times += same;
        timesBefore += numbers > static_cast<std::uint32_t>(at) ? same : Lanes{};
    }
    FirstNeighbors kept{begin, false};
    for (std::size_t at = 0; at < count; ++at) {
        *kept.end = neighbors[at];
        kept.end += timesBefore[at] == 0 ? 1 : 0;
        kept.isAnyLonely |= times[at] == 1;
    }
    return kept;
}

} // namespace

FirstNeighbors keepFirsts(std::uint32_t* begin, std::uint32_t* end, Watch& watch)
{
    watch.count(end - begin);
    if (end - begin <= static_cast<std::ptrdiff_t>(few)) {
        return keepFirstsOfFew(begin, static_cast<std::size_t>(end - begin));
    }
    sortWatched(begin, end, watch);
    FirstNeighbors kept{begin, false};
    for (std::uint32_t const* at = begin; at < end;) {
        std::uint32_t const* next = at + 1;
        while (next < end && *next == *at) {
            ++next;
        }
        watch.count(next - at);
        kept.isAnyLonely |= next - at == 1;
        *kept.end++ = *at;
        at = next;
    }
    return kept;
}

} // namespace veldraw::kernel
