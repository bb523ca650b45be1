#include "kernel/compute/LongTransform.h"

namespace veldraw::kernel {

LongTransform::LongTransform(std::int64_t length, std::int64_t longest)
    : m_length(length)
{
    if (length > longest) {
        m_table.emplace(length);
    } else {
        m_whole = FourierPlan::ofComplex(length);
    }
}

double LongTransform::bytesOfTables(std::int64_t length)
{
    return length > longestWhole ? FourierTable::bytesOf(length) : FourierPlan::bytesOfComplex(length);
}

double LongTransform::bytesOfThread(std::int64_t length)
{
    return length > longestWhole ? FourierTable::bytesOfThread(length) : 0.0;
}

void LongTransform::run(Bin* signal, Bin* bins, Progress& progress) const
{
    if (m_table) {
        transformColumns(signal, progress);
        transformRows(signal, bins, progress);
    } else {
        m_whole->run(signal, bins);
        progress.advance(effortOf(m_length));
    }
}

void LongTransform::transformColumns(Bin* signal, Progress& progress) const
{
    std::int64_t const columns = m_table->columns();
    m_table->forEachColumn(
        progress,
        [=](std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) {
            std::copy_n(signal + row * columns + first, count, values);
        },
        [=](std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) {
            m_table->turn(row, first, count, values);
            std::copy_n(values, count, signal + row * columns + first);
        });
}

void LongTransform::transformRows(Bin* signal, Bin* bins, Progress& progress) const
{
    std::int64_t const columns = m_table->columns();
    std::int64_t const rows = m_table->rows();
    m_table->forEachRow(progress, 1, [=](std::int64_t first, std::int64_t count, Bin* results) {
        for (std::int64_t row = 0; row < count; ++row) {
            m_table->transformRow(signal + (first + row) * columns, results + row * columns);
        }
        for (std::int64_t column = 0; column < columns; ++column) {
            for (std::int64_t row = 0; row < count; ++row) {
                bins[column * rows + first + row] = results[row * columns + column];
            }
        }
    });
}

} // namespace veldraw::kernel
