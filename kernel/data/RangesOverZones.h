#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/base/Progress.h"
#include "kernel/data/JoinedRange.h"
#include "kernel/events/StateChangeEvent.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace veldraw::kernel {

class DataSet;

/// The range of each variable over the enabled zones of a data set. Of very many zones the fields lie scattered in memory, so what blocks of
/// zones have in common is kept: after a change of one zone only its block is gone through again.
/// The session tells it of all events.
class RangesOverZones
{
public:
    /// @param dataSet that has this object
    explicit RangesOverZones(DataSet const& dataSet)
        : m_dataSet(dataSet)
    {
    }

    /// Never loads. On the user-interface thread, or before anybody else has the data set.
    /// @param variable one-based number; a bad one has no range. @throws std::bad_alloc
    JoinedRange of(int variable);

    /// Finds out everything that of() will need, and so the ranges of all loaded values. Those that are mapped are left alone.
    /// @throws Interrupted, std::bad_alloc
    void findAll(Progress& progress);

    /// To be told after each change, also of another data set.
    void follow(StateChangeEvent const& event) noexcept;

private:
    /// What is known of a variable in a block of zones: nothing, unless it was found after the last change of the block.
    struct Block
    {
        JoinedRange joined;
        std::int64_t change = -1; // of the block's changes the last one that was known
        std::size_t end = 0;      // the place behind its last zone
    };
    using Row = std::vector<Block>;

    std::size_t blockCount() const;
    std::size_t endOf(std::size_t block) const;
    bool findRanges(std::size_t block, int variable, Progress const& progress) const;
    Row& rowOf(int variable);
    Row* knownRowOf(int variable) noexcept;
    bool holds(Block const& block, std::size_t number) const;
    void lookAt(Block& block, std::size_t number, int variable) const;
    JoinedRange joinedOf(std::size_t first, std::size_t last, int variable) const;
    void forgetBlocksFrom(std::size_t first) noexcept;
    void forgetZones(NumberSet const& zones) noexcept;
    void forgetFields(NumberSet const& zones, NumberSet const& variables) noexcept;
    void forgetVariables(NumberSet const& variables) noexcept;

    DataSet const& m_dataSet;
    std::unordered_map<UniqueId, Row> m_rows; // by variable
    std::vector<std::int64_t> m_changes;      // of each block: how often it may have changed for all variables
};

} // namespace veldraw::kernel
