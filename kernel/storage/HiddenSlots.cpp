#include "kernel/storage/HiddenSlots.h"

#include <algorithm>
#include <bitset>

namespace veldraw::kernel {

HiddenSlots::HiddenSlots(std::int64_t size)
    : m_size(std::max<std::int64_t>(size, 0))
    , m_words(word(m_size + wordSize - 1))
{
}

std::int64_t HiddenSlots::find(bool hidden, std::int64_t first, std::int64_t last) const
{
    std::uint64_t const noneWanted = hidden ? 0 : ~std::uint64_t{0};
    std::int64_t slot = first;
    while (slot < last) {
        bool const isWholeWord = slot % wordSize == 0 && slot + wordSize <= std::min(last, m_size);
        if (isWholeWord && m_words[word(slot)] == noneWanted) {
            slot += wordSize;
        } else if (contains(slot) == hidden) {
            return slot;
        } else {
            ++slot;
        }
    }
    return last;
}

std::int64_t HiddenSlots::count() const
{
    std::size_t sum = 0;
    for (std::uint64_t const each : m_words) {
        sum += std::bitset<wordSize>(each).count();
    }
    return static_cast<std::int64_t>(sum);
}

} // namespace veldraw::kernel
