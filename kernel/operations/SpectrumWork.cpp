#include "kernel/operations/SpectrumWork.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/base/CommonEnd.h"

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>
#include <optional>
#include <set>

namespace veldraw::kernel {

namespace {

/// Spectra of signals of one length that are not of zeros.
struct SameLength
{
    std::int64_t length;
    std::vector<std::size_t> places; ///< among all spectra

    std::int64_t effort() const
    {
        auto const count = static_cast<std::int64_t>(places.size());
        return SpectrumMaker::effortOfTables(length) +
               count * (SpectrumMaker::effortOfReading(length) + SpectrumMaker::effortOfRest(length));
    }
};

/// What takes longest comes first, so that no thread begins with it when the others are about to end.
std::vector<SameLength> groupsOf(std::vector<Spectrum> const& spectra)
{
    std::map<std::int64_t, std::vector<std::size_t>> places;
    for (std::size_t at = 0; at < spectra.size(); ++at) {
        if (spectra[at].values) {
            places[spectra[at].axis->count()].push_back(at);
        }
    }
    std::vector<SameLength> groups;
    for (auto const& [length, placesOfLength] : places) {
        groups.push_back({length, placesOfLength});
    }
    std::stable_sort(groups.begin(), groups.end(),
                     [](SameLength const& one, SameLength const& other) { return one.effort() > other.effort(); });
    return groups;
}

/// Takes away the groups of which a thread makes all spectra while others make those of other lengths. All threads make those of a length
/// together where that keeps at least as many of them busy, or where the transform itself takes all cores.
std::vector<SameLength> splitOffThoseForOneThread(std::vector<SameLength>& groups)
{
    auto const busy = std::min(static_cast<std::size_t>(threadCount()), groups.size());
    auto const first = std::stable_partition(groups.begin(), groups.end(), [busy](SameLength const& group) {
        return group.length > LongTransform::longestWhole || group.places.size() >= busy;
    });
    std::vector<SameLength> forOneThread(first, groups.end());
    groups.erase(first, groups.end());
    return forOneThread;
}

/// Makes spectra as pieces of the work on all.
class SpectraOfLength
{
public:
    SpectraOfLength(SameLength const& group, std::vector<Spectrum>& spectra, Progress& progress, CommonEnd& end)
        : m_group(group)
        , m_spectra(spectra)
        , m_progress(progress)
        , m_end(end)
    {
    }

    void makeTables(SpectrumChoice const& choice)
    {
        m_end.join(m_group.places.front(), [&] {
            Progress part(m_end.progress(), SpectrumMaker::effortOfTables(m_group.length));
            m_maker.emplace(m_group.length, choice, part);
        });
    }

    std::int64_t count() const { return static_cast<std::int64_t>(m_group.places.size()); }

    void make(std::int64_t number)
    {
        std::size_t const place = m_group.places[static_cast<std::size_t>(number)];
        m_end.join(place, [&] { m_maker->make(m_spectra[place], m_progress, m_end.progress()); });
    }

private:
    SameLength const& m_group;
    std::vector<Spectrum>& m_spectra;
    Progress& m_progress;
    CommonEnd& m_end;
    std::optional<SpectrumMaker> m_maker;
};

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

/// Units by which the progress advances while signals are read.
std::int64_t effortOfReading(std::vector<Spectrum> const& spectra)
{
    return std::accumulate(
        spectra.begin(), spectra.end(), std::int64_t{0}, [](std::int64_t sum, Spectrum const& spectrum) {
            return sum + (spectrum.values ? SpectrumMaker::effortOfReading(spectrum.axis->count()) : 0);
        });
}

/// The most bytes that makeSpectra() takes at a time beside the results.
double bytesOfWork(std::vector<Spectrum> const& spectra, SpectrumChoice const& choice)
{
    auto const threads = static_cast<std::size_t>(threadCount());
    std::vector<SameLength> groups = groupsOf(spectra);
    std::vector<double> atTheSameTime;
    for (SameLength const& group : splitOffThoseForOneThread(groups)) {
        atTheSameTime.push_back(SpectrumMaker::bytesOfTables(group.length, choice) +
                                SpectrumMaker::bytesOfRoom(group.length) + SpectrumMaker::bytesOfThread(group.length));
    }
    std::sort(atTheSameTime.begin(), atTheSameTime.end(), std::greater<>());
    atTheSameTime.resize(std::min(threads, atTheSameTime.size()));
    double most = std::accumulate(atTheSameTime.begin(), atTheSameTime.end(), 0.0);
    for (SameLength const& group : groups) {
        auto const rooms = static_cast<double>(std::min(threads, group.places.size()));
        most = std::max(most, SpectrumMaker::bytesOfTables(group.length, choice) +
                                  rooms * SpectrumMaker::bytesOfRoom(group.length) +
                                  static_cast<double>(threads) * SpectrumMaker::bytesOfThread(group.length));
    }
    return most;
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
    std::vector<SameLength> groups = groupsOf(spectra);
    std::vector<SameLength> const forOneThread = splitOffThoseForOneThread(groups);
    CommonEnd end(progress, effortOf(spectra) - effortOfReading(spectra));
    end.tell([&] {
        for (SameLength const& group : groups) {
            SpectraOfLength work(group, spectra, progress, end);
            work.makeTables(choice);
            forEachInParallel(work.count(), [&](std::int64_t number) { work.make(number); });
        }
        forEachInParallel(static_cast<std::int64_t>(forOneThread.size()), [&](std::int64_t at) {
            SpectraOfLength work(forOneThread[static_cast<std::size_t>(at)], spectra, progress, end);
            work.makeTables(choice);
            for (std::int64_t number = 0; number < work.count(); ++number) {
                work.make(number);
            }
        });
        for (Spectrum& spectrum : spectra) {
            if (!spectrum.values) {
                end.progress().check();
                spectrum.makeRoom(choice);
            }
        }
    });
}

std::int64_t effortOf(std::vector<Spectrum> const& spectra)
{
    std::int64_t sum = 1; // for signals of zeros
    for (SameLength const& group : groupsOf(spectra)) {
        sum += group.effort();
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
    return results + bytesOfWork(spectra, choice);
}

} // namespace veldraw::kernel
