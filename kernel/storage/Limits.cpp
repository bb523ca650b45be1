#include "kernel/storage/Limits.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace veldraw::kernel {

namespace {

/// Limits of the values first ... last - 1; kept in the values' own type, which the compiler can work on side by side.
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

/// Limits of the values that no slot hides, run by run.
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

/// Limits of the slots first ... last - 1 that belong to a cell, row by row.
void addCells(Buffer const& buffer, CountedValues const& counted, std::int64_t first, std::int64_t last, Limits& limits)
{
    auto const [iDim, jDim, kDim] = counted.cellsOf;
    for (std::int64_t row = first / iDim; row * iDim < last; ++row) {
        bool const unusedJ = jDim > 1 && row % jDim == jDim - 1;
        bool const unusedK = kDim > 1 && row / jDim == kDim - 1;
        if (unusedJ || unusedK) {
            continue;
        }
        std::int64_t const rowEnd = row * iDim + std::max<std::int64_t>(iDim - 1, 1);
        addVisible(buffer, counted.hidden.get(), std::max(first, row * iDim), std::min(last, rowEnd), limits);
    }
}

} // namespace

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

} // namespace veldraw::kernel
