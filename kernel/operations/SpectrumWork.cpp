#include "kernel/operations/SpectrumWork.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/PolarForm.h"
#include "kernel/compute/RealTransform.h"
#include "kernel/compute/SignalReader.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace veldraw::kernel {

namespace {

using Bin = RealTransform::Bin;

/// Memory that one spectrum at a time is made in.
struct WorkRoom
{
    ZeroedArray<double> signal;
    ZeroedArray<Bin> bins;
    ZeroedArray<Bin> others;
};

/// Rooms for threads, which are used again: the first writes to fresh memory take longer than much arithmetic.
class WorkRooms
{
public:
    explicit WorkRooms(RealTransform const& transform, std::int64_t length)
        : m_transform(transform)
        , m_length(static_cast<std::size_t>(length))
    {
    }

    std::unique_ptr<WorkRoom> take()
    {
        {
            std::lock_guard<std::mutex> const lock(m_mutex);
            if (!m_free.empty()) {
                std::unique_ptr<WorkRoom> room = std::move(m_free.back());
                m_free.pop_back();
                return room;
            }
        }
        return std::make_unique<WorkRoom>(WorkRoom{ZeroedArray<double>(m_length), ZeroedArray<Bin>(m_length / 2 + 1),
                                                   ZeroedArray<Bin>(m_transform.roomSize())});
    }

    void giveBack(std::unique_ptr<WorkRoom> room)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_free.push_back(std::move(room));
    }

private:
    RealTransform const& m_transform;
    std::size_t m_length;
    std::mutex m_mutex;
    std::vector<std::unique_ptr<WorkRoom>> m_free;
};

/// The power of two by which a signal is multiplied so that squares of its bins are numbers; mostly 1.
double scaleOf(double largest)
{
    bool const isUsual = largest > 0x1p-400 && largest < 0x1p400;
    return isUsual || !(largest > 0.0) ? 1.0 : std::ldexp(1.0, std::clamp(-std::ilogb(largest), -1000, 1000));
}

/// Makes spectra of signals of one length.
class SpectrumMaker
{
public:
    SpectrumMaker(std::int64_t length, SpectrumChoice const& choice, Progress& progress)
        : m_length(length)
        , m_choice(choice)
        , m_window(choice.window, length, progress)
        , m_transform(RealTransform::make(length, progress))
        , m_rooms(*m_transform, length)
    {
    }

    void make(Spectrum& spectrum, Progress& progress)
    {
        std::int64_t const bins = m_choice.binCount(m_length);
        spectrum.amplitudes = Buffer::allocate(FieldDataType_Double, bins);
        spectrum.phases = Buffer::allocate(FieldDataType_Double, bins);
        if (spectrum.values) {
            std::unique_ptr<WorkRoom> room = m_rooms.take();
            transform(spectrum, *room, progress);
            m_rooms.giveBack(std::move(room));
        }
        progress.advance(m_length);
    }

private:
    void transform(Spectrum& spectrum, WorkRoom& room, Progress const& progress) const
    {
        double* const signal = room.signal.begin();
        SignalReader reader(spectrum.values, *spectrum.axis);
        if (!reader.read(signal, progress)) {
            throw std::runtime_error(spectrum.reasonAgainstGaps);
        }
        spectrum.bridged = reader.unknownCount();
        double const scale = scaleOf(reader.largest());
        bool const isScaled = scale < 1.0 || scale > 1.0;
        for (std::int64_t first = 0; first < m_length; first += longBlock) {
            progress.check();
            std::int64_t const size = std::min(longBlock, m_length - first);
            if (isScaled) {
                std::for_each(signal + first, signal + first + size, [scale](double& value) { value *= scale; });
            }
            m_window.apply(first, size, signal + first);
        }
        m_transform->run(signal, room.bins.begin(), room.others.begin(), progress);
        write(room.bins.begin(), scale, spectrum, progress);
    }

    void write(Bin const* bins, double scale, Spectrum& spectrum, Progress const& progress) const
    {
        auto* const amplitudes = static_cast<double*>(spectrum.amplitudes->mutableData());
        auto* const phases = static_cast<double*>(spectrum.phases->mutableData());
        std::int64_t const count = m_length / 2 + 1;
        double const share = 1.0 / (static_cast<double>(m_length) * m_window.mean());
        double const factor = m_choice.includeConjugates ? share : 2.0 * share;
        double const backScale = 1.0 / scale;
        for (std::int64_t first = 0; first < count; first += longBlock) {
            progress.check();
            std::int64_t const size = std::min(longBlock, count - first);
            toPolar(bins + first, static_cast<std::size_t>(size), amplitudes + first, phases + first);
            std::for_each(amplitudes + first, amplitudes + first + size,
                          [=](double& amplitude) { amplitude = amplitude * factor * backScale; });
        }
        if (m_choice.includeConjugates) {
            writeConjugates(amplitudes, phases, progress);
        } else {
            writeLonely(bins, share, backScale, amplitudes);
        }
    }

    /// The bins that are their own conjugates, and real, are not doubled, not even on the way: it might be too much for a number.
    void writeLonely(Bin const* bins, double share, double backScale, double* amplitudes) const
    {
        amplitudes[0] = std::abs(bins[0].real()) * share * backScale;
        if (m_length % 2 == 0) {
            amplitudes[m_length / 2] = std::abs(bins[m_length / 2].real()) * share * backScale;
        }
    }

    void writeConjugates(double* amplitudes, double* phases, Progress const& progress) const
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

    static constexpr std::int64_t longBlock = 8192;

    std::int64_t m_length;
    SpectrumChoice m_choice;
    SpectrumWindow m_window;
    std::unique_ptr<RealTransform const> m_transform;
    WorkRooms m_rooms;
};

using Group = std::vector<Spectrum*>;

/// Signals of one length, for all lengths.
std::map<std::int64_t, Group> groupsOf(std::vector<Spectrum>& spectra)
{
    std::map<std::int64_t, Group> groups;
    for (Spectrum& spectrum : spectra) {
        groups[spectrum.axis->count()].push_back(&spectrum);
    }
    return groups;
}

} // namespace

std::shared_ptr<Buffer> frequenciesOf(SignalAxis const& axis, SpectrumChoice const& choice, Progress const& progress)
{
    std::int64_t const count = axis.count();
    std::shared_ptr<Buffer> frequencies = Buffer::allocate(FieldDataType_Double, choice.binCount(count));
    auto* const values = static_cast<double*>(frequencies->mutableData());
    double const period = static_cast<double>(count) * axis.spacing();
    forEachChecked(frequencies->size(), progress, [=](std::int64_t bin) {
        values[bin] = static_cast<double>(bin <= count / 2 ? bin : bin - count) / period;
    });
    return frequencies;
}

void makeSpectra(std::vector<Spectrum>& spectra, SpectrumChoice const& choice, Progress& progress)
{
    for (auto const& [length, group] : groupsOf(spectra)) {
        SpectrumMaker maker(length, choice, progress);
        Group const& signals = group;
        forEachInParallel(static_cast<std::int64_t>(signals.size()),
                          [&](std::int64_t at) { maker.make(*signals[static_cast<std::size_t>(at)], progress); });
    }
}

std::int64_t effortOf(std::vector<Spectrum> const& spectra)
{
    std::int64_t sum = 0;
    for (Spectrum const& spectrum : spectra) {
        sum += spectrum.axis->count();
    }
    return sum;
}

double bytesOf(std::vector<Spectrum> const& spectra, SpectrumChoice const& choice)
{
    double sum = 0.0;
    std::int64_t longest = 0;
    for (Spectrum const& spectrum : spectra) {
        sum +=
            2.0 * static_cast<double>(Buffer::bytesOf(FieldDataType_Double, choice.binCount(spectrum.axis->count())));
        longest = std::max(longest, spectrum.axis->count());
    }
    double const threads = std::min(static_cast<double>(spectra.size()),
                                    std::max(1.0, static_cast<double>(std::thread::hardware_concurrency())));
    return sum + threads * (RealTransform::bytesOf(longest) + 16.0 * static_cast<double>(longest));
}

} // namespace veldraw::kernel
