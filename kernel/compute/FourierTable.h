#pragma once

#include "kernel/base/Parallel.h"
#include "kernel/base/Progress.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/FourierPlan.h"
#include "kernel/compute/UnitRoots.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>

namespace veldraw::kernel {

/// A complex signal laid out row by row in a table, so that its transform is made of short ones, of columns and of rows, with a factor
/// for each number in between (Gentleman and Sande 1966, "Fast Fourier transforms for fun and profit"):
///
///     table.forEachColumn(progress, [&](row, first, count, values) { ... }, [&](row, first, count, values) { ... });
///     table.forEachRow(progress, 1, [&](first, count, room) { ... });
///
/// Both run on all cores and can be cancelled. Number n of the signal stands in row n / columns; what the columns give for a row k,
/// times the factors, is transformed by rows to the bins k, k + rows, k + 2 rows and so on.
class FourierTable
{
public:
    using Bin = FourierPlan::Bin;

    /// Units by which each transform of columns or of rows advances the progress for each number.
    static constexpr std::int64_t effortOfLine = 4;

    /// As near to a square as @p length lets it be. @throws std::bad_alloc
    explicit FourierTable(std::int64_t length);

    /// Bytes of the tables, and of what a pass takes for each thread.
    static double bytesOf(std::int64_t length);
    static double bytesOfThread(std::int64_t length);

    std::int64_t columns() const { return m_columns; }
    std::int64_t rows() const { return m_rows; }

    /// Transforms each column, some neighbours at once. Both functions get (row, first column, count of columns, their values in that row).
    /// @param load writes the values; @param store takes what they have become. @throws Interrupted, std::bad_alloc
    template <typename Load, typename Store>
    void forEachColumn(Progress& progress, Load const& load, Store const& store) const;

    /// Calls @p body with (first row, count of rows, room for as many numbers as they have). @param transforms that it makes of each row
    /// @throws Interrupted, std::bad_alloc
    template <typename Body>
    void forEachRow(Progress& progress, std::int64_t transforms, Body const& body) const;

    void transformRow(Bin* values, Bin* bins) const { m_planOfRow->run(values, bins); }

    /// Multiplies values of a row by the factors between columns and rows.
    void turn(std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) const;

private:
    static constexpr std::int64_t linesAtOnce = 16; // neighbours in memory are moved together

    static std::int64_t columnsOf(std::int64_t length);

    /// A distance between columns by which they do not all fall into the same lines of the cache.
    static std::int64_t strideFor(std::int64_t rows) { return (rows + 7) / 8 * 8 + 4; }

    template <typename Body>
    static void forLines(std::int64_t lines, std::int64_t effort, std::int64_t roomLength, Progress& progress,
                         Body const& body);

    std::int64_t m_columns;
    std::int64_t m_rows;
    std::shared_ptr<FourierPlan const> m_planOfColumn;
    std::shared_ptr<FourierPlan const> m_planOfRow;
    UnitRoots m_roots;
    ZeroedArray<Bin> m_steps; // of each row: the factors of its first columns
};

/// Calls @p body with (first, count, room) for all @p lines, some at once, on all cores.
/// @param effort by which the progress advances with each line; @param roomLength numbers of room for them
template <typename Body>
void FourierTable::forLines(std::int64_t lines, std::int64_t effort, std::int64_t roomLength, Progress& progress,
                            Body const& body)
{
    std::int64_t const groups = (lines + linesAtOnce - 1) / linesAtOnce;
    std::atomic<std::int64_t> next{0};
    forEachInParallel(std::min(groups, threadCount()), [&](std::int64_t) {
        ZeroedArray<Bin> room; // of each thread, since fresh memory takes time
        for (std::int64_t group = next++; group < groups; group = next++) {
            progress.check();
            if (room.isEmpty()) {
                room = ZeroedArray<Bin>(static_cast<std::size_t>(roomLength));
            }
            std::int64_t const first = group * linesAtOnce;
            std::int64_t const count = std::min(linesAtOnce, lines - first);
            body(first, count, room.begin());
            progress.advance(count * effort);
        }
    });
}

template <typename Load, typename Store>
void FourierTable::forEachColumn(Progress& progress, Load const& load, Store const& store) const
{
    std::int64_t const length = m_rows;
    std::int64_t const stride = strideFor(length);
    forLines(m_columns, length * effortOfLine, 2 * linesAtOnce * stride, progress,
             [&](std::int64_t first, std::int64_t count, Bin* columns) {
                 Bin* const results = columns + linesAtOnce * stride;
                 std::array<Bin, linesAtOnce> values;
                 for (std::int64_t row = 0; row < length; ++row) {
                     load(row, first, count, values.data());
                     for (std::int64_t column = 0; column < count; ++column) {
                         columns[column * stride + row] = values[static_cast<std::size_t>(column)];
                     }
                 }
                 for (std::int64_t column = 0; column < count; ++column) {
                     m_planOfColumn->run(columns + column * stride, results + column * stride);
                 }
                 for (std::int64_t row = 0; row < length; ++row) {
                     for (std::int64_t column = 0; column < count; ++column) {
                         values[static_cast<std::size_t>(column)] = results[column * stride + row];
                     }
                     store(row, first, count, values.data());
                 }
             });
}

template <typename Body>
void FourierTable::forEachRow(Progress& progress, std::int64_t transforms, Body const& body) const
{
    forLines(m_rows, transforms * m_columns * effortOfLine, linesAtOnce * m_columns, progress,
             [&](std::int64_t first, std::int64_t count, Bin* room) { body(first, count, room); });
}

} // namespace veldraw::kernel
