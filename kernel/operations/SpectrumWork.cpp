#include "kernel/operations/SpectrumWork.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/PolarForm.h"
#include "kernel/compute/RealTransform.h"
#include "kernel/compute/SignalReader.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <mutex>
#include <numeric>
#include <set>
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

/// A spectrum is counted as done by thirds: when its signal has been read, transformed, and written.
constexpr std::int64_t stagesOfSpectrum = 3;

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
        } else {
            progress.advance(stagesOfSpectrum * m_length);
        }
    }

private:
    void transform(Spectrum& spectrum, WorkRoom& room, Progress& progress) const
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
        progress.advance(m_length);
        m_transform->run(signal, room.bins.begin(), room.others.begin(), progress);
        progress.advance(m_length);
        write(room.bins.begin(), scale, spectrum, progress);
        progress.advance(m_length);
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

/// By length, the places of the spectra among all.
using PlacesByLength = std::map<std::int64_t, std::vector<std::size_t>>;

PlacesByLength placesByLength(std::vector<Spectrum> const& spectra)
{
    PlacesByLength groups;
    for (std::size_t at = 0; at < spectra.size(); ++at) {
        groups[spectra[at].axis->count()].push_back(at);
    }
    return groups;
}

/// Whether a thread makes all spectra of one length, while others make those of other lengths. All threads make those of a length
/// together where that keeps at least as many of them busy, or where the transform itself takes all cores.
bool isForOneThread(PlacesByLength::value_type const& group, std::size_t lengths)
{
    return group.first <= LongTransform::longestWhole && group.second.size() < lengths;
}

/// Bytes of the frequencies, which those spectra share that have the same.
double bytesOfFrequencies(std::vector<Spectrum> const& spectra, SpectrumChoice const& choice)
{
    std::set<std::pair<std::int64_t, double>> known;
    double sum = 0.0;
    for (Spectrum const& spectrum : spectra) {
        std::int64_t const count = spectrum.axis->count();
        if (known.insert({count, spectrum.axis->spacing()}).second) {
            sum += static_cast<double>(Buffer::bytesOf(FieldDataType_Double, choice.binCount(count)));
        }
    }
    return sum;
}

/// The most bytes that makeSpectra() takes at a time beside the results.
double bytesOfWork(std::vector<Spectrum> const& spectra)
{
    std::size_t const threads = std::max(1U, std::thread::hardware_concurrency());
    double most = 0.0;
    std::vector<double> atTheSameTime; // of groups that are for one thread
    PlacesByLength const groups = placesByLength(spectra);
    for (auto const& group : groups) {
        auto const length = static_cast<double>(group.first);
        double const tables = RealTransform::bytesOfTables(group.first) + 4.0 * length; // half a window
        double const room = RealTransform::bytesOfRoom(group.first) + 16.0 * length;
        if (isForOneThread(group, groups.size())) {
            atTheSameTime.push_back(tables + room);
        } else {
            most = std::max(most, tables + static_cast<double>(std::min(threads, group.second.size())) * room);
        }
    }
    std::sort(atTheSameTime.begin(), atTheSameTime.end(), std::greater<>());
    atTheSameTime.resize(std::min(threads, atTheSameTime.size()));
    return std::max(most, std::accumulate(atTheSameTime.begin(), atTheSameTime.end(), 0.0));
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
    PlacesByLength const groups = placesByLength(spectra);
    std::vector<PlacesByLength::const_pointer> forOneThread;
    for (auto const& group : groups) {
        if (isForOneThread(group, groups.size())) {
            forOneThread.push_back(&group);
        } else {
            SpectrumMaker maker(group.first, choice, progress);
            forEachInParallel(static_cast<std::int64_t>(group.second.size()), [&](std::int64_t at) {
                maker.make(spectra[group.second[static_cast<std::size_t>(at)]], progress);
            });
        }
    }
    forEachInParallel(static_cast<std::int64_t>(forOneThread.size()), [&](std::int64_t at) {
        auto const& [length, places] = *forOneThread[static_cast<std::size_t>(at)];
        SpectrumMaker maker(length, choice, progress);
        for (std::size_t const place : places) {
            maker.make(spectra[place], progress);
        }
    });
}

std::int64_t effortOf(std::vector<Spectrum> const& spectra)
{
    std::int64_t sum = 0;
    for (Spectrum const& spectrum : spectra) {
        sum += stagesOfSpectrum * spectrum.axis->count();
    }
    return sum;
}

double bytesOf(std::vector<Spectrum> const& spectra, SpectrumChoice const& choice)
{
    double results = bytesOfFrequencies(spectra, choice);
    for (Spectrum const& spectrum : spectra) {
        std::int64_t const bins = choice.binCount(spectrum.axis->count());
        results += 2.0 * static_cast<double>(Buffer::bytesOf(FieldDataType_Double, bins));
    }
    return results + bytesOfWork(spectra);
}

} // namespace veldraw::kernel
