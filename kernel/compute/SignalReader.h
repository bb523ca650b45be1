#pragma once

#include "kernel/compute/SignalAxis.h"

#include <functional>

namespace veldraw::kernel {

/// Brings values of a variable into the even steps of a signal, from the lowest place to the highest.
///
/// Where nothing is known of a value, because it is hidden, no finite number or at a place that is not known, it lies on the line
/// between those beside it; before the first and after the last of the known ones it is as these. Steps that are not even
/// are made so on the same lines.
class SignalReader
{
public:
    /// What is done to @p count values of the signal, from the zero-based @p first on, when they are complete.
    using Finish = std::function<void(std::int64_t first, std::int64_t count, double* values)>;

    /// @param values of at least as many numbers as the axis has, without a fault
    /// @param finish called for each value once, while it is at hand
    SignalReader(std::shared_ptr<Buffer const> values, SignalAxis const& axis, Finish finish = {})
        : m_values(std::move(values))
        , m_axis(axis)
        , m_finish(std::move(finish))
    {
    }

    /// Writes the signal, as many values as the axis has, and advances the progress to its end. @throws Interrupted
    /// @return false when more than half of the values are not known; the signal is not finished then
    bool read(double* signal, Progress& progress);

    std::int64_t unknownCount() const { return m_unknown; } ///< of the values that were read
    double largest() const { return m_largest; } ///< magnitude of the values that were read, before they were finished

private:
    bool readAll(double* signal, Progress& progress);
    void readKnown(double* signal, Progress& progress);
    void finish(std::int64_t first, std::int64_t count, double* values) const;
    void look(std::int64_t done, Progress& progress) const;

    std::shared_ptr<Buffer const> m_values;
    SignalAxis const& m_axis;
    Finish m_finish;
    std::int64_t m_unknown = 0;
    double m_largest = 0.0;
};

} // namespace veldraw::kernel
