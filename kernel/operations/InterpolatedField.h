#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/DeferredLoad.h"
#include "kernel/storage/ValueType.h"

#include <atomic>

namespace veldraw::kernel {

/// The new values of a variable in the destination zone of an interpolation. At first they are the old ones, or 0 where the
/// variable is passive.
///
/// Whole numbers are rounded to nearest and cut to the limits of their type; a bit is 1 from 0.5 on.
class InterpolatedField
{
public:
    /// Copies the old values. @param variable one-based number; @param passiveType type for values of a passive field
    /// @throws Interrupted, std::bad_alloc
    InterpolatedField(DeferredLoad const& load, Zone const& zone, int variable, FieldDataType_e passiveType,
                      Progress& progress);

    int variable() const { return m_variable; }
    ValueLocation_e location() const { return m_location; }

    /// Stores a value. Threads may store in different slots at a time.
    void set(std::int64_t slot, double value);

    /// Number of values that were cut to the limits of their type.
    std::int64_t cutCount() const { return m_cutCount; }

    bool isOfWholeNumbers() const { return kernel::isOfWholeNumbers(m_type); }

    /// The field for the zone, once all values have been stored. @throws Interrupted, std::bad_alloc
    NewField take(Progress const& progress);

private:
    int m_variable;
    ValueLocation_e m_location;
    FieldDataType_e m_type;
    std::shared_ptr<Buffer> m_values; ///< bits as bytes, since two threads must not write to the same byte
    std::atomic<std::int64_t> m_cutCount{0};
};

} // namespace veldraw::kernel
