#pragma once

#include "kernel/compute/SignalAxis.h"

namespace veldraw::kernel {

/// Brings values of a variable into the even steps of a signal, from the lowest place to the highest.
///
/// Where nothing is known of a value, because it is hidden, no finite number or at a place that is not known, it lies on the line
/// between those beside it; before the first and after the last of the known ones it is as these. Steps that are not even
/// are made so on the same lines.
class SignalReader
{
public:
    /// @param values of at least as many numbers as the axis has, without a fault
    SignalReader(std::shared_ptr<Buffer const> values, SignalAxis const& axis)
        : m_values(std::move(values))
        , m_axis(axis)
    {
    }

    /// Writes the signal, as many values as the axis has. @throws Interrupted
    /// @return false when more than half of the values are not known
    bool read(double* signal, Progress const& progress);

    std::int64_t unknownCount() const { return m_unknown; } ///< of the values that were read
    double largest() const { return m_largest; }            ///< magnitude of the values that were read

private:
    bool readAll(double* signal, Progress const& progress);
    void readKnown(double* signal, Progress const& progress);

    std::shared_ptr<Buffer const> m_values;
    SignalAxis const& m_axis;
    std::int64_t m_unknown = 0;
    double m_largest = 0.0;
};

} // namespace veldraw::kernel
