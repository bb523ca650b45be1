#include "kernel/storage/RangeOfParts.h"

#include "kernel/base/Parallel.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

constexpr std::ptrdiff_t fewParts = 2;                    // sooner looked at than other threads are called together
constexpr std::int64_t fewValues = std::int64_t{1} << 20; // looked at in less than a millisecond

std::int64_t countOf(Buffer const& buffer, CountedValues const& counted)
{
    auto const [i, j, k] = counted.cellsOf;
    if (counted.cellsOf == std::array<std::int64_t, 3>{}) {
        return buffer.size();
    }
    return i < 1 || j < 1 || k < 1 ? 0 : std::min(buffer.size(), i * j * k);
}

} // namespace

ValueRange RangeOfParts::range(Buffer const& buffer, CountedValues const& counted)
{
    std::int64_t const count = countOf(buffer, counted);
    if (m_parts.empty() || m_count != count || m_counted != counted) {
        m_parts.assign(static_cast<std::size_t>(parallelChunkCount(count)), {});
        m_count = count;
        m_counted = counted;
    }
    lookAtUnknownParts(buffer);
    Limits all;
    for (Part const& part : m_parts) {
        all.add(part.limits.min, part.limits.max);
    }
    if (count < fewValues) {
        m_parts = {};
    }
    return all.min > all.max ? ValueRange{} : ValueRange{ValueRange::State::Exact, all.min, all.max};
}

void RangeOfParts::lookAtUnknownParts(Buffer const& buffer)
{
    auto const look = [&](std::int64_t first, std::int64_t last, std::int64_t number) {
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
