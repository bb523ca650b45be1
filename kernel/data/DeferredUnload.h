#pragma once

#include "kernel/data/ZonesAndVariables.h"

#include <set>

namespace veldraw::kernel {

/// Values that nobody wants in memory any more and that can be loaded again. Taken down first, let go of later, while
/// the data set is as it was.
class DeferredUnload
{
public:
    /// Nothing.
    DeferredUnload() = default;

    /// Takes down what is loaded of the variables that are not in @p kept in @p zones, but for what other zones share.
    /// @param zones one-based numbers that exist
    DeferredUnload(DataSet const& dataSet, NumberSet const& zones, NumberSet const& kept);

    void commit() const noexcept;

    /// The fields whose values go.
    ZonesAndVariables const& fields() const { return m_fields; }

private:
    std::set<ShareGroup*> m_groups; // not held, so that share counts stay true
    ZonesAndVariables m_fields;
};

} // namespace veldraw::kernel
