#include "kernel/compute/SignalReader.h"

#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t stepsBetweenChecks = 65536;

/// Whole numbers in the order of magnitudes: those of infinity and of what is no number come last.
std::int64_t orderOf(double value)
{
    std::int64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits & std::numeric_limits<std::int64_t>::max(); // without the sign
}

/// The largest magnitude; no finite number if one of the values is none. Several at a time, since each waits for the one before.
double largestMagnitude(double const* values, std::int64_t count)
{
    constexpr std::int64_t lanes = 4;
    std::int64_t most[lanes] = {};
    for (std::int64_t at = 0; at < count / lanes * lanes; at += lanes) {
        for (std::int64_t lane = 0; lane < lanes; ++lane) {
            most[lane] = std::max(most[lane], orderOf(values[at + lane]));
        }
    }
    for (std::int64_t at = count / lanes * lanes; at < count; ++at) {
        most[0] = std::max(most[0], orderOf(values[at]));
    }
    std::int64_t const bits = *std::max_element(most, most + lanes);
    double largest = 0.0;
    std::memcpy(&largest, &bits, sizeof largest);
    return largest;
}

/// Fills a signal from known values that come one after the other, each further along it than the one before.
class SignalLine
{
public:
    SignalLine(double* signal, std::int64_t count, Progress const& progress)
        : m_signal(signal)
        , m_count(count)
        , m_progress(progress)
    {
    }

    /// @param steps of the spacing to where the value is. @throws Interrupted
    void add(double steps, double value)
    {
        for (; m_next < m_count && static_cast<double>(m_next) <= steps; ++m_next) {
            look();
            m_signal[m_next] = at(static_cast<double>(m_next), steps, value);
        }
        m_hasBefore = true;
        m_steps = steps;
        m_value = value;
    }

    /// @throws Interrupted
    void end()
    {
        for (; m_next < m_count; ++m_next) {
            look();
            m_signal[m_next] = m_value;
        }
    }

private:
    /// Looks for a cancel every now and then, also within long gaps.
    void look() const
    {
        if (m_next % stepsBetweenChecks == 0) {
            m_progress.check();
        }
    }

    double at(double step, double steps, double value) const
    {
        if (!m_hasBefore || !(step < steps)) {
            return value;
        }
        double const share = (step - m_steps) / (steps - m_steps);
        return (1.0 - share) * m_value + share * value; // no difference, which may be infinite
    }

    double* m_signal;
    std::int64_t m_count;
    Progress const& m_progress;
    std::int64_t m_next = 0; // the value of the signal that is to come
    bool m_hasBefore = false;
    double m_steps = 0.0; // of the value before
    double m_value = 0.0;
};

} // namespace

bool SignalReader::read(double* signal, Progress& progress)
{
    m_unknown = 0;
    m_largest = 0.0;
    std::int64_t const count = m_axis.count();
    bool const isPlain = m_axis.isEven() && m_axis.isWhole();
    if (isPlain && readAll(signal, progress)) {
        return true;
    }
    readKnown(signal, progress);
    if (2 * m_unknown > count) {
        return false;
    }
    for (std::int64_t first = 0; first < count; first += blockSize) {
        look(first, progress);
        finish(first, std::min(blockSize, count - first), signal + first);
    }
    return true;
}

/// Reads a signal of which all is known. @return false when a value turns out to be no finite number
bool SignalReader::readAll(double* signal, Progress& progress)
{
    std::int64_t const count = m_axis.count();
    for (std::int64_t first = 0; first < count; first += blockSize) {
        look(first, progress);
        std::int64_t const size = std::min(blockSize, count - first);
        std::int64_t const place = m_axis.isFalling() ? count - first - size : first;
        double* const block = signal + place;
        readBlock(*m_values, first, size, block);
        double const largest = largestMagnitude(block, size);
        if (!std::isfinite(largest)) {
            return false;
        }
        m_largest = std::max(m_largest, largest);
        if (m_axis.isFalling()) {
            std::reverse(block, block + size);
        }
        finish(place, size, block);
    }
    return true;
}

/// Reads what is known, and draws lines between that.
void SignalReader::readKnown(double* signal, Progress& progress)
{
    std::int64_t const count = m_axis.count();
    SignalLine line(signal, count, progress);
    m_largest = 0.0;
    for (std::int64_t step = 0; step < count; ++step) {
        look(step, progress);
        std::int64_t const number = m_axis.isFalling() ? count - 1 - step : step;
        double const value = m_values->value(number);
        if (std::isfinite(value) && m_axis.isKnown(number)) {
            m_largest = std::max(m_largest, std::abs(value));
            line.add(m_axis.stepsTo(number), value);
        } else {
            ++m_unknown;
        }
    }
    line.end();
}

void SignalReader::finish(std::int64_t first, std::int64_t count, double* values) const
{
    if (m_finish) {
        m_finish(first, count, values);
    }
}

/// Every now and then. @param done of the values
void SignalReader::look(std::int64_t done, Progress& progress) const
{
    if (done % stepsBetweenChecks == 0) {
        progress.check();
        progress.reach(static_cast<double>(done) / static_cast<double>(m_axis.count()));
    }
}

} // namespace veldraw::kernel
