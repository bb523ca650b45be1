#include "kernel/storage/RangeOfParts.h"

#include "kernel/base/Parallel.h"
#include "kernel/storage/CellSlots.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace veldraw::kernel {

namespace {

/// Adds the values first ... last - 1. They are compared in their own type, for which the compiler uses vector instructions.
template <typename Element>
void addRun(Element const* values, std::int64_t stride, std::int64_t first, std::int64_t last, Limits& limits)
{
    using Bounds = std::numeric_limits<Element>;
    Element low = Bounds::has_infinity ? Bounds::infinity() : Bounds::max();
    Element high = Bounds::has_infinity ? -Bounds::infinity() : Bounds::lowest();
    for (std::int64_t index = first; index < last; ++index) {
        Element const value = values[index * stride];
        if constexpr (std::is_floating_point_v<Element>) {
            bool const finite = std::abs(value) <= Bounds::max();
            low = finite && value < low ? value : low;
            high = finite && value > high ? value : high;
        } else {
            low = std::min(low, value);
            high = std::max(high, value);
        }
    }
    if (low <= high) {
        limits.add(static_cast<double>(low), static_cast<double>(high));
    }
}

void addBits(Buffer const& buffer, std::int64_t first, std::int64_t last, Limits& limits)
{
    for (std::int64_t index = first; index < last; ++index) {
        double const value = buffer.value(index);
        limits.add(value, value);
    }
}

void addValues(Buffer const& buffer, std::int64_t first, std::int64_t last, Limits& limits)
{
    switch (buffer.type()) {
    case FieldDataType_Float:
        return addRun(static_cast<float const*>(buffer.data()), buffer.stride(), first, last, limits);
    case FieldDataType_Double:
        return addRun(static_cast<double const*>(buffer.data()), buffer.stride(), first, last, limits);
    case FieldDataType_Int32:
        return addRun(static_cast<std::int32_t const*>(buffer.data()), buffer.stride(), first, last, limits);
    case FieldDataType_Int16:
        return addRun(static_cast<std::int16_t const*>(buffer.data()), buffer.stride(), first, last, limits);
    case FieldDataType_Byte:
        return addRun(static_cast<unsigned char const*>(buffer.data()), buffer.stride(), first, last, limits);
    case FieldDataType_Bit:
        return addBits(buffer, first, last, limits);
    }
}

/// Adds the values in slots that are not hidden, run by run.
void addVisible(Buffer const& buffer, HiddenSlots const* hidden, std::int64_t first, std::int64_t last, Limits& limits)
{
    if (hidden == nullptr) {
        addValues(buffer, first, last, limits);
        return;
    }
    for (std::int64_t start = hidden->find(false, first, last); start < last;) {
        std::int64_t const end = hidden->find(true, start, last);
        addValues(buffer, start, end, limits);
        start = hidden->find(false, end, last);
    }
}

/// Adds the values in slots that belong to a cell, row by row.
void addCells(Buffer const& buffer, CountedValues const& counted, std::int64_t first, std::int64_t last, Limits& limits)
{
    auto const [iDim, jDim, kDim] = counted.cellsOf;
    for (std::int64_t row = first / iDim; row * iDim < last; ++row) {
        if (!hasCell(row * iDim, iDim, jDim, kDim)) {
            continue;
        }
        std::int64_t const rowEnd = row * iDim + cellsAlong(iDim);
        addVisible(buffer, counted.hidden.get(), std::max(first, row * iDim), std::min(last, rowEnd), limits);
    }
}

/// Limits of those of the finite values first ... last - 1 of @p buffer that count.
Limits limitsOf(Buffer const& buffer, CountedValues const& counted, std::int64_t first, std::int64_t last)
{
    Limits limits;
    if (counted.cellsOf == std::array<std::int64_t, 3>{}) {
        addVisible(buffer, counted.hidden.get(), first, last, limits);
    } else {
        addCells(buffer, counted, first, last, limits);
    }
    return limits;
}

constexpr std::ptrdiff_t fewParts = 2;                    // read faster than other threads can be started
constexpr std::int64_t fewValues = std::int64_t{1} << 20; // read in less than a millisecond

std::int64_t countOf(Buffer const& buffer, CountedValues const& counted)
{
    auto const [i, j, k] = counted.cellsOf;
    if (counted.cellsOf == std::array<std::int64_t, 3>{}) {
        return buffer.size();
    }
    return i < 1 || j < 1 || k < 1 ? 0 : std::min(buffer.size(), i * j * k);
}

} // namespace

ValueRange RangeOfParts::range(Buffer const& buffer, CountedValues const& counted, Progress const* progress)
{
    std::int64_t const count = countOf(buffer, counted);
    if (m_parts.empty() || m_count != count || m_counted != counted) {
        m_parts.assign(static_cast<std::size_t>(parallelChunkCount(count)), {});
        m_count = count;
        m_counted = counted;
    }
    lookAtUnknownParts(buffer, progress);
    Limits all;
    for (Part const& part : m_parts) {
        all.add(part.limits.min, part.limits.max);
    }
    if (count < fewValues) {
        m_parts = {};
    }
    return all.min > all.max ? ValueRange{} : ValueRange{ValueRange::State::Exact, all.min, all.max};
}

void RangeOfParts::lookAtUnknownParts(Buffer const& buffer, Progress const* progress)
{
    auto const look = [&](std::int64_t first, std::int64_t last, std::int64_t number) {
        if (progress != nullptr) {
            progress->check();
        }
        Part& part = m_parts[static_cast<std::size_t>(number)];
        if (!part.isKnown) {
            part = {limitsOf(buffer, m_counted, first, last), true};
        }
    };
    auto const unknown = std::count_if(m_parts.begin(), m_parts.end(), [](Part const& part) { return !part.isKnown; });
    if (unknown > fewParts) {
        parallelFor(m_count, look);
        return;
    }
    std::int64_t const size = parallelChunkSize(m_count);
    for (std::int64_t first = 0; first < m_count; first += size) {
        look(first, std::min(first + size, m_count), first / size);
    }
}

void RangeOfParts::follow(std::int64_t index, double before, double after, CountedValues const& counted) noexcept
{
    if (m_parts.empty() || index >= m_count || (m_counted == counted && counted.leaveOut(index))) {
        return;
    }
    Part& part = m_parts[static_cast<std::size_t>(index / parallelChunkSize(m_count))];
    bool const mayBeOther = !m_counted.areAll() && m_counted != counted;
    bool const wasLimit = std::isfinite(before) && (before <= part.limits.min || before >= part.limits.max);
    part.isKnown = part.isKnown && !mayBeOther && !wasLimit;
    if (std::isfinite(after)) {
        part.limits.add(after, after);
    }
}

} // namespace veldraw::kernel
