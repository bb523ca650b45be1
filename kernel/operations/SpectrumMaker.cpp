#include "kernel/operations/SpectrumMaker.h"

#include "kernel/compute/PolarForm.h"
#include "kernel/compute/SignalReader.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

using Bin = RealTransform::Bin;

constexpr std::int64_t longBlock = 2048; // its bins, amplitudes and phases stay in the cache
constexpr std::int64_t binsBetweenChecks = 65536;

/// The power of two by which a signal is multiplied so that squares of its bins are numbers; mostly 1.
double scaleOf(double largest)
{
    bool const isUsual = largest > 0x1p-400 && largest < 0x1p400;
    return isUsual || !(largest > 0.0) ? 1.0 : std::ldexp(1.0, std::clamp(-std::ilogb(largest), -1000, 1000));
}

} // namespace

void Spectrum::makeRoom(SpectrumChoice const& choice)
{
    std::int64_t const bins = choice.binCount(axis->count());
    amplitudes = Buffer::allocate(FieldDataType_Double, bins);
    phases = Buffer::allocate(FieldDataType_Double, bins);
}

SpectrumMaker::SpectrumMaker(std::int64_t length, SpectrumChoice const& choice, Progress& progress)
    : m_length(length)
    , m_choice(choice)
    , m_window(choice.window, length, progress)
    , m_transform(RealTransform::make(length, progress))
    , m_rooms(length, m_transform->roomSize())
{
}

double SpectrumMaker::bytesOfTables(std::int64_t length, SpectrumChoice const& choice)
{
    return RealTransform::bytesOfTables(length) + SpectrumWindow::bytesOf(choice.window, length);
}

double SpectrumMaker::bytesOfRoom(std::int64_t length)
{
    return RealTransform::bytesOfRoom(length) + static_cast<double>(sizeof(Bin)) * static_cast<double>(length / 2 + 1);
}

void SpectrumMaker::make(Spectrum& spectrum, Progress& ofReading, Progress& ofRest)
{
    std::unique_ptr<WorkRoom> room = m_rooms.take();
    double const scale = read(spectrum, room->numbers.begin(), ofReading);
    spectrum.makeRoom(m_choice);
    Bin const* const bins = [&] {
        Progress part(ofRest, RealTransform::effortOfRun(m_length));
        return m_transform->run(room->numbers.begin(), room->others.begin(), part);
    }();
    write(bins, scale, spectrum, ofRest);
    m_rooms.giveBack(std::move(room));
}

/// @return by what the signal is multiplied beside its window, and so the bins
double SpectrumMaker::read(Spectrum& spectrum, double* signal, Progress& progress) const
{
    Progress part(progress, effortOfReading(m_length));
    double scale = 1.0;
    SignalReader reader(spectrum.values, *spectrum.axis, [&](std::int64_t first, std::int64_t count, double* values) {
        if (scale < 1.0 || scale > 1.0) {
            std::for_each(values, values + count, [&](double& value) { value *= scale; });
        }
        m_window.apply(first, count, values);
    });
    if (!reader.read(signal, part)) {
        throw std::runtime_error(spectrum.reasonAgainstGaps);
    }
    spectrum.bridged = reader.unknownCount();
    scale = scaleOf(reader.largest());
    if (scale < 1.0 || scale > 1.0) {
        reader.read(signal, part); // again: the window would have rounded numbers that are too small
    }
    return scale;
}

void SpectrumMaker::write(Bin const* bins, double scale, Spectrum& spectrum, Progress& progress) const
{
    Progress part(progress, m_length);
    auto* const amplitudes = static_cast<double*>(spectrum.amplitudes->mutableData());
    auto* const phases = static_cast<double*>(spectrum.phases->mutableData());
    std::int64_t const count = m_length / 2 + 1;
    double const share = 1.0 / (static_cast<double>(m_length) * m_window.mean());
    double const factor = m_choice.includeConjugates ? share : 2.0 * share;
    double const backScale = 1.0 / scale;
    for (std::int64_t first = 0; first < count; first += longBlock) {
        if (first % binsBetweenChecks == 0) {
            part.check();
            part.reach(static_cast<double>(first) / static_cast<double>(count));
        }
        std::int64_t const size = std::min(longBlock, count - first);
        toPolar(bins + first, static_cast<std::size_t>(size), amplitudes + first, phases + first);
        std::for_each(amplitudes + first, amplitudes + first + size,
                      [=](double& amplitude) { amplitude = amplitude * factor * backScale; });
    }
    if (m_choice.includeConjugates) {
        writeConjugates(amplitudes, phases, part);
    } else {
        writeLonely(bins, share, backScale, amplitudes);
    }
}

/// The bins that are their own conjugates, and real, are not doubled, not even on the way: it might be too much for a number.
void SpectrumMaker::writeLonely(Bin const* bins, double share, double backScale, double* amplitudes) const
{
    amplitudes[0] = std::abs(bins[0].real()) * share * backScale;
    if (m_length % 2 == 0) {
        amplitudes[m_length / 2] = std::abs(bins[m_length / 2].real()) * share * backScale;
    }
}

void SpectrumMaker::writeConjugates(double* amplitudes, double* phases, Progress const& progress) const
{
    for (std::int64_t bin = m_length / 2 + 1; bin < m_length; ++bin) {
        if (bin % longBlock == 0) {
            progress.check();
        }
        amplitudes[bin] = amplitudes[m_length - bin];
        double const phase = phases[m_length - bin];
        phases[bin] = phase < 180.0 ? 0.0 - phase : phase;
    }
}

} // namespace veldraw::kernel
