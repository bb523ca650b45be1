#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace veldraw::kernel {

/// Which points, or which cells, of a zone are hidden: a bit for each value slot.
class HiddenSlots
{
public:
    /// None of @p size slots is hidden. @throws std::bad_alloc
    explicit HiddenSlots(std::int64_t size);

    /// @param slot zero-based; one that does not exist is not hidden
    bool contains(std::int64_t slot) const
    {
        return slot >= 0 && slot < m_size && ((m_words[word(slot)] >> bit(slot)) & 1U) != 0;
    }

    /// @param slot that exists
    void insert(std::int64_t slot) { m_words[word(slot)] |= std::uint64_t{1} << bit(slot); }

    /// The first slot in [first, last) whose state is @p hidden; @p last when there is none. Slots that do not exist are
    /// not hidden.
    std::int64_t find(bool hidden, std::int64_t first, std::int64_t last) const;

    std::int64_t size() const { return m_size; }
    std::int64_t count() const; ///< number of hidden slots

private:
    static constexpr std::int64_t wordSize = 64;

    static std::size_t word(std::int64_t slot) { return static_cast<std::size_t>(slot / wordSize); }
    static unsigned bit(std::int64_t slot) { return static_cast<unsigned>(slot % wordSize); }

    std::int64_t m_size;
    std::vector<std::uint64_t> m_words;
};

/// Which values of a buffer count in a range.
struct CountedValues
{
    /// Point dimensions of the ordered zone whose cells have the values, where slots without a cell do not count; else zeros.
    std::array<std::int64_t, 3> cellsOf{};

    /// More slots that do not count; null for none.
    std::shared_ptr<HiddenSlots const> hidden;

    bool areAll() const { return !hidden && cellsOf == std::array<std::int64_t, 3>{}; }
    bool leaveOut(std::int64_t slot) const { return hidden && hidden->contains(slot); }
};

inline bool operator==(CountedValues const& left, CountedValues const& right)
{
    return left.cellsOf == right.cellsOf && left.hidden == right.hidden;
}

inline bool operator!=(CountedValues const& left, CountedValues const& right)
{
    return !(left == right);
}

} // namespace veldraw::kernel
