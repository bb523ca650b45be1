#include "kernel/compute/LongTransform.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/ZeroedArray.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t linesAtOnce = 16; // neighbours in memory are moved together
constexpr std::int64_t mostTasks = 16;

/// The largest divisor up to the square root.
std::int64_t squarestDivisor(std::int64_t number)
{
    auto divisor = static_cast<std::int64_t>(std::sqrt(static_cast<double>(number)));
    while (number % divisor != 0) {
        --divisor;
    }
    return divisor;
}

/// Calls @p body with (first, count, room) for all @p lines, some at once, on all cores.
/// @param roomLength numbers of room for each of those lines
/// @param effort by which the progress advances with each line
template <typename Body>
void forLines(std::int64_t lines, std::int64_t roomLength, std::int64_t effort, Progress& progress, Body const& body)
{
    std::int64_t const groups = (lines + linesAtOnce - 1) / linesAtOnce;
    std::int64_t const tasks = std::min(groups, mostTasks); // fresh memory takes time, so that a task has many groups
    forEachInParallel(tasks, [&](std::int64_t task) {
        ZeroedArray<LongTransform::Bin> room(static_cast<std::size_t>(linesAtOnce * roomLength));
        for (std::int64_t group = task; group < groups; group += tasks) {
            progress.check();
            std::int64_t const first = group * linesAtOnce;
            std::int64_t const count = std::min(linesAtOnce, lines - first);
            body(first, count, room.begin());
            progress.advance(count * effort);
        }
    });
}

} // namespace

LongTransform::LongTransform(std::int64_t length, std::int64_t longest)
    : m_length(length)
    , m_rows(length)
{
    if (length > longest) {
        m_columns = squarestDivisor(length);
        m_rows = length / m_columns;
        m_planOfRow = FourierPlan::ofComplex(m_columns);
        m_roots.emplace(static_cast<std::uint64_t>(length));
    }
    m_planOfColumn = FourierPlan::ofComplex(m_rows);
}

double LongTransform::bytesOfTables(std::int64_t length)
{
    if (length <= longestWhole) {
        return FourierPlan::bytesOfComplex(length);
    }
    std::int64_t const columns = squarestDivisor(length);
    return FourierPlan::bytesOfComplex(columns) + FourierPlan::bytesOfComplex(length / columns) +
           UnitRoots::bytesOf(length);
}

double LongTransform::bytesOfThread(std::int64_t length)
{
    if (length <= longestWhole) {
        return 0.0;
    }
    std::int64_t const rows = length / squarestDivisor(length);
    return static_cast<double>(sizeof(Bin)) * static_cast<double>(linesAtOnce * 2 * rows);
}

void LongTransform::run(Bin* signal, Bin* bins, Progress& progress) const
{
    progress.check();
    if (m_columns == 1) {
        m_planOfColumn->run(signal, bins);
        progress.advance(effortOf(m_length));
        return;
    }
    transformColumns(signal, progress);
    transformRows(signal, bins, progress);
}

void LongTransform::transformColumns(Bin* signal, Progress& progress) const
{
    forLines(m_columns, 2 * m_rows, effortOfLine * m_rows, progress,
             [&](std::int64_t first, std::int64_t count, Bin* columns) {
                 Bin* const results = columns + linesAtOnce * m_rows;
                 for (std::int64_t row = 0; row < m_rows; ++row) {
                     for (std::int64_t column = 0; column < count; ++column) {
                         columns[column * m_rows + row] = signal[row * m_columns + first + column];
                     }
                 }
                 for (std::int64_t column = 0; column < count; ++column) {
                     m_planOfColumn->run(columns + column * m_rows, results + column * m_rows);
                 }
                 for (std::int64_t row = 0; row < m_rows; ++row) {
                     for (std::int64_t column = 0; column < count; ++column) {
                         Bin const root = m_roots->at(static_cast<std::uint64_t>(row * (first + column)));
                         signal[row * m_columns + first + column] = product(results[column * m_rows + row], root);
                     }
                 }
             });
}

void LongTransform::transformRows(Bin* signal, Bin* bins, Progress& progress) const
{
    forLines(m_rows, m_columns, effortOfLine * m_columns, progress,
             [&](std::int64_t first, std::int64_t count, Bin* rows) {
                 for (std::int64_t row = 0; row < count; ++row) {
                     m_planOfRow->run(signal + (first + row) * m_columns, rows + row * m_columns);
                 }
                 for (std::int64_t column = 0; column < m_columns; ++column) {
                     for (std::int64_t row = 0; row < count; ++row) {
                         bins[column * m_rows + first + row] = rows[row * m_columns + column];
                     }
                 }
             });
}

} // namespace veldraw::kernel
