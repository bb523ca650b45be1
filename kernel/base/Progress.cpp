#include "kernel/base/Progress.h"

#include <algorithm>

namespace veldraw::kernel {

Progress::Progress(Progress& whole, std::int64_t units)
    : m_whole(&whole)
    , m_units(units)
    , m_total(units)
{
}

Progress::~Progress()
{
    if (m_whole != nullptr) {
        m_whole->advance(m_units - ofWhole(m_done));
    }
}

void Progress::advance(std::int64_t done)
{
    std::int64_t const before = m_done.fetch_add(done);
    if (m_whole != nullptr) {
        m_whole->advance(ofWhole(before + done) - ofWhole(before));
    }
}

void Progress::reach(double fraction)
{
    double const share = fraction > 0.0 ? std::min(fraction, 1.0) : 0.0;
    auto const wanted = static_cast<std::int64_t>(share * static_cast<double>(m_total));
    advance(std::max<std::int64_t>(wanted - m_done, 0));
}

// Differences of this add up to the same, in however many steps.
std::int64_t Progress::ofWhole(std::int64_t done) const
{
    std::int64_t const total = m_total;
    double const share = total > 0 ? std::min(1.0, static_cast<double>(done) / static_cast<double>(total)) : 0.0;
    return static_cast<std::int64_t>(share * static_cast<double>(m_units));
}

bool Progress::isInterrupted() const
{
    return m_interrupted || (m_whole != nullptr && m_whole->isInterrupted());
}

double Progress::fraction() const
{
    std::int64_t const total = m_total;
    return total > 0 ? std::min(1.0, static_cast<double>(m_done) / static_cast<double>(total)) : 0;
}

void Progress::check() const
{
    if (isInterrupted()) {
        throw Interrupted();
    }
}

} // namespace veldraw::kernel
