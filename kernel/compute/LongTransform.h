#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/FourierPlan.h"
#include "kernel/compute/FourierTable.h"

#include <optional>

namespace veldraw::kernel {

/// Transforms complex signals of any length without large prime factors, on all cores, and can be cancelled on the way.
///
/// A long one is laid out as a FourierTable.
class LongTransform
{
public:
    using Bin = FourierPlan::Bin;

    /// A transform up to this length takes some ten milliseconds and is not cut.
    static constexpr std::int64_t longestWhole = std::int64_t{1} << 20;

    /// @param longest length that is transformed as a whole
    /// @throws std::bad_alloc
    explicit LongTransform(std::int64_t length, std::int64_t longest = longestWhole);

    /// Bytes of the tables, and of what run() takes for each thread.
    static double bytesOfTables(std::int64_t length);
    static double bytesOfThread(std::int64_t length);

    /// Units by which run() advances the progress: one is about the time that it takes to read a value.
    static std::int64_t effortOf(std::int64_t length) { return 2 * FourierTable::effortOfLine * length; }

    std::int64_t length() const { return m_length; }

    /// @param signal of the length, is lost; @param bins are no part of it. @throws Interrupted, std::bad_alloc
    void run(Bin* signal, Bin* bins, Progress& progress) const;

private:
    void transformColumns(Bin* signal, Progress& progress) const;
    void transformRows(Bin* signal, Bin* bins, Progress& progress) const;

    std::int64_t m_length;
    std::shared_ptr<FourierPlan const> m_whole; // or
    std::optional<FourierTable> m_table;
};

} // namespace veldraw::kernel
