#include "kernel/operations/FourierTransform.h"

#include "kernel/operations/EnableZone.h"
#include "tests/kernel/support/FourierFixture.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/StepLog.h"
#include "tests/support/SpecialNumbers.h"
#include "tests/support/Threads.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <numeric>
#include <set>
#include <thread>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr WindowFunction_e windows[] = {WindowFunction_Rectangular, WindowFunction_Triangular, WindowFunction_Hann,
                                        WindowFunction_Hamming};

/// Holds the first thread that looks for a cancel until another one does too.
class SecondThread : public Progress
{
public:
    /// @param from how much has to be done before looks count
    explicit SecondThread(double from = 0.0)
        : m_from(from)
    {
    }

    bool isInterrupted() const override
    {
        if (fraction() < m_from) {
            return false;
        }
        std::unique_lock<std::mutex> lock(m_mutex);
        m_threads.insert(std::this_thread::get_id());
        m_changed.notify_all();
        m_hasGivenUp = m_hasGivenUp || !m_changed.wait_for(lock, std::chrono::minutes(1), [this] { return hasCome(); });
        return m_hasGivenUp;
    }

    bool hasCome() const { return m_threads.size() > 1; }

private:
    double m_from;
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    mutable std::set<std::thread::id> m_threads;
    mutable bool m_hasGivenUp = false;
};

/// Takes its time at each look from some part of the work on, and notes how much was done at the last one.
class SlowProgress : public Progress
{
public:
    explicit SlowProgress(double from)
        : m_from(from)
    {
    }

    bool isInterrupted() const override
    {
        double const done = fraction();
        if (done > m_from) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        double most = m_most;
        while (done > most && !m_most.compare_exchange_weak(most, done)) {
        }
        return false;
    }

    double most() const { return m_most; }

private:
    double m_from;
    mutable std::atomic<double> m_most{0.0};
};

class FourierTransformTest : public FourierFixture
{
protected:
    /// The value of an item of auxiliary data of a zone; empty when there is none.
    std::string note(int zone, std::string const& name) const
    {
        AuxiliaryData const& data = dataSet->zone(zone)->auxiliaryData;
        return data.item(data.indexOf(name)).value;
    }

    /// Blanks points, and so the cells beside them. @param points zero-based
    void hide(int zone, std::vector<std::int64_t> const& points)
    {
        auto const marks = Buffer::allocate(FieldDataType_Byte, dataSet->zone(zone)->pointCount());
        for (std::int64_t const point : points) {
            marks->setValue(point, Blanking::hiddenPoint);
        }
        dataSet->zone(zone)->blanking =
            std::make_shared<Blanking>(*dataSet->zone(zone), Blanking::Marks{marks, nullptr});
    }

    static Choice obeying()
    {
        Choice choice;
        choice.obeyBlanking = true;
        return choice;
    }

    /// A signal of zeros.
    static Spectrum silence(std::size_t length)
    {
        Spectrum spectrum;
        auto const count = static_cast<std::int64_t>(length);
        spectrum.axis = std::make_shared<SignalAxis>(sample::buffer(evenTimes(length)),
                                                     SignalAxis::Values{count, false, nullptr}, Progress());
        return spectrum;
    }

    /// A signal of a constant.
    static Spectrum hum(std::size_t length, double value = 1.0)
    {
        Spectrum spectrum = silence(length);
        spectrum.values = sample::buffer(Numbers(length, value));
        spectrum.reasonAgainstGaps = "gaps in " + std::to_string(length);
        return spectrum;
    }

    static double bytesOfBins(std::size_t length) { return 8.0 * static_cast<double>(length / 2 + 1); }

    /// What is taken at a time for spectra beside frequencies, amplitudes and phases. @param lengths of which none have the same frequencies
    static double bytesOfWork(std::vector<std::size_t> const& lengths, SpectrumChoice const& choice = {})
    {
        std::vector<Spectrum> spectra;
        double results = 0.0;
        std::set<std::size_t> known;
        for (std::size_t const length : lengths) {
            spectra.push_back(hum(length));
            results += (known.insert(length).second ? 3.0 : 2.0) * bytesOfBins(length);
        }
        return bytesOf(spectra, choice) - results;
    }

    /// Values at as many even steps from the first time to the last, on the lines between those there are.
    static Numbers onEvenSteps(Numbers const& times, Numbers const& values)
    {
        Numbers signal;
        Numbers since;
        for (double const moment : times) {
            since.push_back(moment - times.front());
        }
        for (std::size_t step = 0; step < times.size(); ++step) {
            double const moment = since.back() * static_cast<double>(step) / static_cast<double>(times.size() - 1);
            auto const after = std::lower_bound(since.begin() + 1, since.end() - 1, moment) - since.begin();
            auto const at = static_cast<std::size_t>(after);
            double const part = (moment - since[at - 1]) / (since[at] - since[at - 1]);
            signal.push_back((1.0 - part) * values[at - 1] + part * values[at]);
        }
        return signal;
    }

    static Numbers tone(std::size_t count, double cycles, double amplitude, double degrees)
    {
        Numbers values;
        for (std::size_t at = 0; at < count; ++at) {
            double const turns = cycles * static_cast<double>(at) / static_cast<double>(count) + degrees / 360.0;
            values.push_back(amplitude * std::cos(2.0 * M_PI * turns));
        }
        return values;
    }
};

} // namespace

TEST_F(FourierTransformTest, GivesTheDirectSumsOfEveryLengthFrom4To200WithEveryWindowAndConjugatesOrNot)
{
    for (std::size_t length = 4; length <= 200; ++length) {
        int const zone = addNoise(length);
        for (WindowFunction_e const window : windows) {
            for (bool const includeConjugates : {false, true}) {
                ASSERT_TRUE(transform({zone}, {U}, with(window, includeConjugates))) << session.lastError();
                expectSpectrum(resultZones[0], resultVariables[0], valuesOf(zone, U), 0.25,
                               {window, includeConjugates});
                ASSERT_TRUE(session.undo());
            }
        }
    }
}

TEST_F(FourierTransformTest, GivesTheDirectSumsOfMoreThanAMillionValues)
{
    for (std::size_t const length : {1100000U, 1100001U}) {
        int const zone = addNoise(length);
        ASSERT_TRUE(transform({zone})) << session.lastError();
        Numbers const signal = valuesOf(zone, U);
        Numbers const amplitudes = valuesOf(resultZones[0], resultVariables[1]);
        Numbers const phases = valuesOf(resultZones[0], resultVariables[2]);
        std::vector<reference::LongBin> const roots = reference::roots(length);
        std::size_t const last = length / 2;
        ASSERT_EQ(amplitudes.size(), last + 1);
        for (std::size_t const bin : {std::size_t{0}, std::size_t{1}, last / 3, last / 2 + 7, last - 1, last}) {
            long double const factor = bin == 0 || 2 * bin == length ? 1.0L : 2.0L;
            reference::LongBin const wanted =
                reference::sumOfBin(signal, roots, bin) * (factor / static_cast<long double>(length));
            reference::LongBin const found =
                std::polar<long double>(amplitudes[bin], phases[bin] * std::atan(1.0L) / 45.0L);
            EXPECT_LT(std::abs(found - wanted), 1e-12 * amplitudes[0]) << "bin " << bin << " of " << length;
        }
    }
}

TEST_F(FourierTransformTest, GivesNegativeBinsThatAreTheirOwnConjugatesAPhaseOfExactly180)
{
    for (std::size_t const length : {360U, 2U * 53U, 997U, 2U * 997U, 20014U}) {
        Numbers values = noise(length);
        for (std::size_t at = 0; at < length; ++at) {
            values[at] += at % 2 == 0 ? -20.0 : -10.0; // a negative mean, and negative at the highest frequency
        }
        int const zone = add(evenTimes(length), values, values);
        for (bool const includeConjugates : {false, true}) {
            ASSERT_TRUE(transform({zone}, {U}, with(WindowFunction_Hamming, includeConjugates)));
            Numbers const phases = valuesOf(resultZones[0], resultVariables[2]);
            EXPECT_EQ(phases[0], 180.0) << length;
            if (length % 2 == 0) {
                EXPECT_EQ(phases[length / 2], 180.0) << length;
            }
            EXPECT_GT(*std::min_element(phases.begin(), phases.end()), -180.0) << length;
        }
    }
}

TEST_F(FourierTransformTest, ShowsTheAmplitudeAndThePhaseOfATone)
{
    for (WindowFunction_e const window : windows) {
        int const zone = add(evenTimes(1000, 0.001), tone(1000, 50, 3.0, 30.0), tone(1000, 120, 0.25, -100.0));
        ASSERT_TRUE(transform({zone}, {U, V}, with(window)));
        Numbers const frequencies = valuesOf(resultZones[0], resultVariables[0]);
        EXPECT_NEAR(frequencies[50], 50.0, 1e-9);
        EXPECT_NEAR(valuesOf(resultZones[0], resultVariables[1])[50], 3.0, 1e-12);
        EXPECT_NEAR(valuesOf(resultZones[0], resultVariables[2])[50], 30.0, 1e-9);
        EXPECT_NEAR(valuesOf(resultZones[0], resultVariables[4])[120], 0.25, 1e-12);
        EXPECT_NEAR(valuesOf(resultZones[0], resultVariables[5])[120], -100.0, 1e-9);
    }
}

TEST_F(FourierTransformTest, NeitherDoublesTheMeanNorTheHighestFrequency)
{
    int const zone = add(evenTimes(64), Numbers(64, 7.0), tone(64, 32, 5.0, 0.0));
    ASSERT_TRUE(transform({zone}, {U, V}));
    Numbers const amplitudesOfU = valuesOf(resultZones[0], resultVariables[1]);
    Numbers const amplitudesOfV = valuesOf(resultZones[0], resultVariables[4]);
    EXPECT_NEAR(amplitudesOfU[0], 7.0, 1e-13);
    EXPECT_NEAR(amplitudesOfV[32], 5.0, 1e-13);
    ASSERT_TRUE(transform({zone}, {U, V}, with(WindowFunction_Rectangular, true)));
    EXPECT_NEAR(valuesOf(resultZones[0], resultVariables[1])[0], 7.0, 1e-13);
    EXPECT_NEAR(valuesOf(resultZones[0], resultVariables[4])[32], 5.0, 1e-13);
}

TEST_F(FourierTransformTest, SplitsATonesAmplitudeAmongTheConjugates)
{
    int const zone = add(evenTimes(100), tone(100, 10, 4.0, 25.0), Numbers(100, 0.0));
    ASSERT_TRUE(transform({zone}, {U}, with(WindowFunction_Hann, true)));
    Numbers const frequencies = valuesOf(resultZones[0], resultVariables[0]);
    Numbers const amplitudes = valuesOf(resultZones[0], resultVariables[1]);
    Numbers const phases = valuesOf(resultZones[0], resultVariables[2]);
    EXPECT_NEAR(frequencies[10], 0.4, 1e-13);
    EXPECT_NEAR(frequencies[90], -0.4, 1e-13);
    EXPECT_NEAR(amplitudes[10], 2.0, 1e-13);
    EXPECT_NEAR(amplitudes[90], 2.0, 1e-13);
    EXPECT_NEAR(phases[10], 25.0, 1e-10);
    EXPECT_NEAR(phases[90], -25.0, 1e-10);
}

TEST_F(FourierTransformTest, GivesANegativeRealBinAndItsConjugateTheSamePhase)
{
    int const zone = add(evenTimes(4), {-1.0, 0.0, 1.0, 0.0}, Numbers(4, 0.0));
    ASSERT_TRUE(transform({zone}, {U}, with(WindowFunction_Rectangular, true)));
    EXPECT_THAT(valuesOf(resultZones[0], resultVariables[2]), ElementsAre(0.0, 180.0, 0.0, 180.0));
}

TEST_F(FourierTransformTest, ShowsAToneBetweenTwoBinsInBothByTheHannWindow)
{
    // Midway between two bins the window's transform is 8 / (3 pi) of that at its middle.
    int const zone = add(evenTimes(4096), tone(4096, 100.5, 1.0, 0.0), Numbers(4096, 0.0));
    ASSERT_TRUE(transform({zone}, {U}, with(WindowFunction_Hann)));
    Numbers const amplitudes = valuesOf(resultZones[0], resultVariables[1]);
    EXPECT_NEAR(amplitudes[100], 8.0 / (3.0 * M_PI), 1e-5);
    EXPECT_NEAR(amplitudes[101], 8.0 / (3.0 * M_PI), 1e-5);
}

TEST_F(FourierTransformTest, GivesZonesAndVariablesThatFollowEachOtherInOneStep)
{
    addNoise(16);
    addNoise(16);
    std::string const before = withoutHistory();
    ASSERT_TRUE(transform({1, 2}, {U, V}));
    EXPECT_THAT(recorder.take(), ElementsAre("1 variables 4 5 6 7 8 9", "4 zones 3 4"));
    EXPECT_THAT(resultZones, ElementsAre(3, 4));
    EXPECT_THAT(resultVariables, ElementsAre(4, 5, 6, 7, 8, 9));
    EXPECT_EQ(dataSet->variable(4)->name, "Frequency of U");
    EXPECT_EQ(dataSet->variable(5)->name, "Amplitude of U");
    EXPECT_EQ(dataSet->variable(6)->name, "Phase of U in degrees");
    EXPECT_EQ(dataSet->variable(7)->name, "Frequency of V");
    Zone const& zone = *dataSet->zone(3);
    EXPECT_EQ(zone.name, "Fourier Transform of S1");
    EXPECT_EQ(zone.type, ZoneType_Ordered);
    EXPECT_EQ(zone.i, 9);
    EXPECT_EQ(zone.j * zone.k, 1);
    EXPECT_EQ(session.history().undoName(), "Discrete Fourier Transform");
    expectUndoAndRedo(before, {"5 zones 3 4", "2 variables 4 5 6 7 8 9"}, {"1 variables 4 5 6 7 8 9", "4 zones 3 4"});
}

TEST_F(FourierTransformTest, KeepsResultsPassiveInOtherZonesAndOtherVariablesInResults)
{
    addNoise(16);
    addNoise(20);
    ASSERT_TRUE(transform({1}));
    for (int variable = 1; variable <= 6; ++variable) {
        EXPECT_EQ(dataSet->field(1, variable)->isPassive(), variable > 3) << variable;
        EXPECT_EQ(dataSet->field(2, variable)->isPassive(), variable > 3) << variable;
        EXPECT_EQ(dataSet->field(3, variable)->isPassive(), variable <= 3) << variable;
    }
}

TEST_F(FourierTransformTest, SharesFrequenciesWhereTheyAreTheSame)
{
    addNoise(16);
    addNoise(16);
    addNoise(16, 0.5);
    addNoise(17);
    ASSERT_TRUE(transform({1, 2, 3, 4}, {U, V}));
    EXPECT_EQ(dataSet->field(5, 4)->group(), dataSet->field(6, 7)->group());
    EXPECT_EQ(dataSet->field(5, 4)->shareCount(), 4);
    EXPECT_EQ(dataSet->field(7, 4)->shareCount(), 2);
    EXPECT_EQ(dataSet->field(8, 4)->shareCount(), 2);
    EXPECT_EQ(dataSet->field(5, 5)->shareCount(), 1);
}

TEST_F(FourierTransformTest, ReadsEveryTypeAndStride)
{
    std::size_t const count = 1301;
    for (FieldDataType_e const type : {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32,
                                       FieldDataType_Int16, FieldDataType_Byte, FieldDataType_Bit}) {
        Numbers values = noise(count);
        std::transform(values.begin(), values.end(), values.begin(), [](double value) { return 100.0 + 50.0 * value; });
        int const zone = addNoise(count);
        setField(zone, U, values, type);
        ASSERT_TRUE(transform({zone})) << session.lastError();
        Numbers const stored = valuesOf(zone, U);
        expectSpectrum(resultZones[0], resultVariables[0], stored, 0.25);
        EXPECT_EQ(dataSet->field(resultZones[0], resultVariables[1])->type(), FieldDataType_Double);
    }
    auto const interleaved = std::make_shared<std::vector<float>>();
    for (double const value : noise(3 * count)) {
        interleaved->push_back(static_cast<float>(value));
    }
    int const zone = addNoise(count);
    field(zone, V) =
        Field(std::make_shared<ShareGroup>(Buffer::adopt(FieldDataType_Float, static_cast<std::int64_t>(count),
                                                         interleaved->data() + 1, 3, interleaved)),
              ValueLocation_Nodal);
    ASSERT_TRUE(transform({zone}, {V}));
    expectSpectrum(resultZones[0], resultVariables[0], valuesOf(zone, V), 0.25);
}

TEST_F(FourierTransformTest, ReadsLinesAlongJAndK)
{
    for (int const direction : {1, 2}) {
        int const number = addNoise(50);
        Zone& zone = *dataSet->zone(number);
        zone.i = 1;
        (direction == 1 ? zone.j : zone.k) = 50;
        ASSERT_TRUE(transform({number}));
        EXPECT_EQ(dataSet->zone(resultZones[0])->i, 26);
        expectSpectrum(resultZones[0], resultVariables[0], valuesOf(number, U), 0.25);
    }
}

TEST_F(FourierTransformTest, TurnsASignalAroundWhoseIndependentVariableFalls)
{
    Numbers times = evenTimes(2000);
    std::reverse(times.begin(), times.end());
    int const zone = add(times, noise(2000), noise(2000));
    ASSERT_TRUE(transform({zone}));
    Numbers signal = noise(2000);
    std::reverse(signal.begin(), signal.end());
    expectSpectrum(resultZones[0], resultVariables[0], signal, 0.25);
    EXPECT_EQ(note(resultZones[0], "Fourier.Resampled"), "");
}

TEST_F(FourierTransformTest, ResamplesUnevenStepsAndSaysSo)
{
    // Between these times the signal is a straight line, so that resampling does not change it.
    Numbers times = evenTimes(101, 0.1, 0.0);
    Numbers values;
    for (std::size_t at = 0; at < times.size(); ++at) {
        times[at] += at % 10 == 0 ? 0.0 : 0.03 * std::sin(static_cast<double>(at));
        values.push_back(3.0 - 2.0 * times[at]);
    }
    int const zone = add(times, values, values);
    ASSERT_TRUE(transform({zone}));
    Numbers line;
    for (double const moment : evenTimes(101, 0.1, 0.0)) {
        line.push_back(3.0 - 2.0 * moment);
    }
    expectSpectrum(resultZones[0], resultVariables[0], line, 0.1);
    EXPECT_EQ(note(resultZones[0], "Fourier.Resampled"), "to even steps, linearly");
    EXPECT_THAT(remark, HasSubstr(" The steps are not even in \"S1\": resampled linearly."));
}

TEST_F(FourierTransformTest, TakesStepsAsEvenThatDifferByTheRoundingOfTheirType)
{
    std::size_t const count = 5000;
    int const zone = addNoise(count);
    setField(zone, time, evenTimes(count, 0.001), FieldDataType_Float);
    ASSERT_TRUE(transform({zone}));
    EXPECT_EQ(note(resultZones[0], "Fourier.Resampled"), "");
    Numbers sums{0.0};
    while (sums.size() < count) {
        sums.push_back(sums.back() + 0.1);
    }
    setField(zone, time, sums);
    ASSERT_TRUE(transform({zone}));
    EXPECT_EQ(note(resultZones[0], "Fourier.Resampled"), "");
    sums[100] += 2.1e-7;
    setField(zone, time, sums);
    ASSERT_TRUE(transform({zone}));
    EXPECT_NE(note(resultZones[0], "Fourier.Resampled"), "");
}

TEST_F(FourierTransformTest, ShowsAToneOverTwoSetsOfStepsAtItsOwnFrequency)
{
    Numbers times{1e5};
    while (times.size() < 2001) {
        times.push_back(times.back() + (times.size() <= 1000 ? 0.03125 : 0.0703125));
    }
    Numbers cosine;
    for (double const moment : times) {
        cosine.push_back(std::cos(2.0 * M_PI * 2.0 * (moment - times[0])));
    }
    int const zone = add(times, cosine, cosine);
    setField(zone, time, times, FieldDataType_Float);
    ASSERT_TRUE(transform({zone}, {U}, with(WindowFunction_Hann)));
    EXPECT_NE(note(resultZones[0], "Fourier.Resampled"), "");
    Numbers const amplitudes = valuesOf(resultZones[0], resultVariables[1]);
    auto const largest = std::max_element(amplitudes.begin(), amplitudes.end());
    Numbers const frequencies = valuesOf(resultZones[0], resultVariables[0]);
    EXPECT_NEAR(frequencies[static_cast<std::size_t>(largest - amplitudes.begin())], 2.0, 0.006);
    EXPECT_GT(*largest, 0.9);
    expectSpectrum(resultZones[0], resultVariables[0], onEvenSteps(times, cosine), 101.5625 / 2000.0,
                   {WindowFunction_Hann, false});
}

TEST_F(FourierTransformTest, HoldsUnknownPlacesAtTheEndsForAsManyStepsMoreWhetherStepsAreEvenOrNot)
{
    for (bool const isUneven : {false, true}) {
        for (bool const falls : {false, true}) {
            constexpr std::size_t count = 1500;
            constexpr std::size_t begin = 40; // of the known ones
            constexpr std::size_t end = 1400;
            Numbers times = evenTimes(count);
            Numbers values = noise(count, 7);
            for (std::size_t at = begin + 1; isUneven && at + 1 < end; ++at) {
                times[at] += 0.1 * std::sin(static_cast<double>(at));
            }
            Numbers const known = onEvenSteps({times.begin() + begin, times.begin() + end},
                                              {values.begin() + begin, values.begin() + end});
            Numbers signal(begin, values[begin]);
            signal.insert(signal.end(), known.begin(), known.end());
            signal.resize(count, values[end - 1]);
            std::fill(times.begin(), times.begin() + begin, notANumber);
            std::fill(times.begin() + end, times.end(), infinity);
            if (falls) {
                std::reverse(times.begin(), times.end());
                std::reverse(values.begin(), values.end());
            }
            int const zone = add(times, values, values);
            ASSERT_TRUE(transform({zone})) << session.lastError();
            expectSpectrum(resultZones[0], resultVariables[0], signal, 0.25);
            EXPECT_EQ(note(resultZones[0], "Fourier.Values"), "1500");
            EXPECT_EQ(note(resultZones[0], "Fourier.Spacing"), "0.25");
            EXPECT_EQ(note(resultZones[0], "Fourier.Bridged"), "U: 140");
            EXPECT_EQ(note(resultZones[0], "Fourier.Resampled") != "", isUneven);
        }
    }
}

TEST_F(FourierTransformTest, BridgesValuesThatAreNoNumbers)
{
    Numbers values = noise(1500);
    Numbers bridged = values;
    values[0] = notANumber;
    bridged[0] = bridged[1];
    for (std::size_t at = 700; at < 704; ++at) {
        values[at] = at == 701 ? infinity : notANumber;
        bridged[at] = values[699] + static_cast<double>(at - 699) / 5.0 * (noise(1500)[704] - values[699]);
    }
    values[1498] = values[1499] = -infinity;
    bridged[1498] = bridged[1499] = bridged[1497];
    int const zone = add(evenTimes(1500), values, noise(1500, 2));
    ASSERT_TRUE(transform({zone}, {U, V}));
    expectSpectrum(resultZones[0], resultVariables[0], bridged, 0.25);
    expectSpectrum(resultZones[0], resultVariables[3], noise(1500, 2), 0.25);
    EXPECT_EQ(note(resultZones[0], "Fourier.Bridged"), "U: 7");
    EXPECT_THAT(remark, HasSubstr(" Hidden or no numbers, and bridged linearly: 7 values."));
}

TEST_F(FourierTransformTest, BridgesHiddenPointsWhenItIsToObeyBlanking)
{
    Numbers const values = noise(40);
    int const zone = add(evenTimes(40), values, values);
    hide(zone, {10, 39});
    ASSERT_TRUE(transform({zone}));
    expectSpectrum(resultZones[0], resultVariables[0], values, 0.25);
    Numbers bridged = values;
    bridged[10] = 0.5 * (values[9] + values[11]);
    bridged[39] = values[38];
    ASSERT_TRUE(transform({zone}, {U}, obeying()));
    expectSpectrum(resultZones[0], resultVariables[0], bridged, 0.25);
    EXPECT_EQ(note(resultZones[0], "Fourier.Bridged"), "U: 2");
}

TEST_F(FourierTransformTest, NeedsNoTimesOfHiddenPoints)
{
    Numbers times = evenTimes(40);
    Numbers const values = noise(40);
    times[0] = notANumber;
    times[20] = -1e6;
    int const zone = add(times, values, values);
    hide(zone, {20});
    ASSERT_TRUE(transform({zone}, {U}, obeying())) << session.lastError();
    Numbers bridged = values;
    bridged[0] = values[1];
    bridged[20] = 0.5 * (values[19] + values[21]);
    expectSpectrum(resultZones[0], resultVariables[0], bridged, 0.25);
}

TEST_F(FourierTransformTest, TransformsAPassiveVariableAsZeros)
{
    addNoise(30);
    field(1, U) = Field();
    ASSERT_TRUE(transform({1}, {U, V}));
    EXPECT_EQ(valuesOf(resultZones[0], resultVariables[1]), Numbers(16, 0.0));
    EXPECT_EQ(valuesOf(resultZones[0], resultVariables[2]), Numbers(16, 0.0));
    EXPECT_FALSE(dataSet->field(resultZones[0], resultVariables[1])->isPassive());
    expectSpectrum(resultZones[0], resultVariables[3], valuesOf(1, V), 0.25);
}

TEST_F(FourierTransformTest, GivesNoPhaseOfMinusZero)
{
    add(evenTimes(30), Numbers(30, 0.0), Numbers(30, 0.0));
    ASSERT_TRUE(transform({1}, {U}, with(WindowFunction_Rectangular, true)));
    for (double const phase : valuesOf(resultZones[0], resultVariables[2])) {
        EXPECT_EQ(phase, 0.0);
        EXPECT_FALSE(std::signbit(phase));
    }
}

TEST_F(FourierTransformTest, TransformsCellsOverThePlacesHalfwayBetweenPoints)
{
    Numbers times{0.0};
    while (times.size() < 21) {
        times.push_back(times.back() + (times.size() % 2 == 0 ? 0.5 : 1.5)); // their means are even
    }
    Numbers cells = noise(21);
    int const zone = addNoise(21);
    setField(zone, time, times);
    setField(zone, U, cells, FieldDataType_Double, ValueLocation_CellCentered);
    ASSERT_TRUE(transform({zone}));
    cells.pop_back(); // of no cell
    expectSpectrum(resultZones[0], resultVariables[0], cells, 1.0);
    EXPECT_EQ(note(resultZones[0], "Fourier.Values"), "20");
    EXPECT_EQ(note(resultZones[0], "Fourier.Resampled"), "");
}

TEST_F(FourierTransformTest, TransformsCellsOverAnIndependentVariableAtTheCells)
{
    int const zone = addNoise(21);
    Numbers times = evenTimes(21, 2.0);
    times.back() = notANumber; // of no cell
    Numbers cells = noise(21);
    setField(zone, time, times, FieldDataType_Double, ValueLocation_CellCentered);
    setField(zone, U, cells, FieldDataType_Double, ValueLocation_CellCentered);
    ASSERT_TRUE(transform({zone}));
    cells.pop_back();
    expectSpectrum(resultZones[0], resultVariables[0], cells, 2.0);
    expectRefusal(
        "The independent variable \"Time\" has its values at the cells of the zone \"S1\", the dependent ones "
        "have theirs at the points.",
        {zone}, {V});
}

TEST_F(FourierTransformTest, LoadsWhatIsDeferred)
{
    auto const values = std::make_shared<sample::Loader>(noise(64), FieldDataType_Double);
    auto const times = std::make_shared<sample::Loader>(evenTimes(64), FieldDataType_Double);
    auto const others = std::make_shared<sample::Loader>(noise(64), FieldDataType_Double);
    addNoise(64);
    field(1, U) = sample::Loader::field(values);
    field(1, time) = sample::Loader::field(times);
    field(1, V) = sample::Loader::field(others);
    ASSERT_TRUE(transform({1}));
    expectSpectrum(resultZones[0], resultVariables[0], noise(64), 0.25);
    EXPECT_EQ(values->loads, 1);
    EXPECT_EQ(others->loads, 0);
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.redo());
    expectSpectrum(resultZones[0], resultVariables[0], noise(64), 0.25);
}

TEST_F(FourierTransformTest, LoadsTheDimensionsOfAZone)
{
    for (std::int64_t const layers : {1, 2}) {
        int const zone = addNoise(64);
        dataSet->zone(zone)->i = dataSet->zone(zone)->j = dataSet->zone(zone)->k = -1;
        dataSet->zone(zone)->dimensionsLoader =
            std::make_shared<sample::SizeLoader>(ZoneDimensions{64 / layers, layers, 1, nullptr, nullptr});
        if (layers == 1) {
            ASSERT_TRUE(transform({zone}));
            expectSpectrum(resultZones[0], resultVariables[0], noise(64), 0.25);
        } else {
            expectRefusal("The zone \"S3\" is not an ordered zone of one dimension.", {zone});
        }
    }
}

TEST_F(FourierTransformTest, WorksOnNumbersNearTheirLimits)
{
    for (double const scale : {1e300, 1e-300, 5e-324 / 1e-16}) {
        Numbers values = noise(600);
        std::transform(values.begin(), values.end(), values.begin(), [=](double value) { return value * scale; });
        int const zone = add(evenTimes(600), values, values);
        ASSERT_TRUE(transform({zone}));
        expectSpectrum(resultZones[0], resultVariables[0], values, 0.25);
    }
}

TEST_F(FourierTransformTest, ShowsMeansAndHighestFrequenciesBeyondHalfOfTheLargestNumber)
{
    Numbers alternating;
    while (alternating.size() < 600) {
        alternating.push_back(alternating.size() % 2 == 0 ? 1.5e308 : -1.5e308);
    }
    int const zone = add(evenTimes(600), Numbers(600, -1.5e308), alternating);
    ASSERT_TRUE(transform({zone}, {U, V}));
    EXPECT_DOUBLE_EQ(valuesOf(resultZones[0], resultVariables[1]).front(), 1.5e308);
    EXPECT_DOUBLE_EQ(valuesOf(resultZones[0], resultVariables[4]).back(), 1.5e308);
}

TEST_F(FourierTransformTest, GivesTheSameBitsWithAnyNumberOfThreads)
{
    addNoise(1000);
    addNoise(997);
    for (int const threads : {1, 3}) {
        Threads const some(threads);
        ASSERT_TRUE(transform({1, 2}, {U, V}, with(WindowFunction_Hamming)));
    }
    for (int zone : {3, 4}) {
        for (int variable = 4; variable <= 9; ++variable) {
            EXPECT_EQ(valuesOf(zone, variable), valuesOf(zone + 2, variable + 6));
        }
    }
}

TEST_F(FourierTransformTest, CountsToItsEnd)
{
    addNoise(1000);
    addNoise(997);
    FourierTransform operation(*dataSet, time, {U, V}, {1, 2}, {});
    Progress progress;
    ASSERT_EQ(operation.find(session.pages()), "");
    operation.needs()->load(progress);
    operation.compute(progress);
    EXPECT_EQ(progress.fraction(), 1.0);
}

TEST_F(FourierTransformTest, CountsAllTheTimeWithinOneSpectrum)
{
    for (std::size_t const length : {std::size_t{3} << 20U, std::size_t{1100009}}) {
        int const zone = addNoise(length);
        FourierTransform operation(*dataSet, time, {U}, {zone}, with(WindowFunction_Hann));
        StepLog log;
        ASSERT_EQ(operation.find(session.pages()), "");
        Progress loading;
        operation.needs()->load(loading);
        operation.compute(log);
        EXPECT_EQ(log.fraction(), 1.0);
        EXPECT_LT(log.largestStep(), 0.1) << length;
    }
}

TEST_F(FourierTransformTest, TransformsSignalsOfSeveralLengthsAtTheSameTime)
{
    for (std::size_t const length : {100U, 101U, 102U, 103U}) {
        ASSERT_TRUE(addNoise(length));
    }
    Threads const two(2);
    ASSERT_TRUE(transform({1, 2, 3, 4}));
    for (int source = 1; source <= 4; ++source) {
        expectSpectrum(source + 4, 4, valuesOf(source, U), 0.25);
    }
    std::vector<Spectrum> spectra{hum(100), hum(101), hum(102), hum(103)};
    SecondThread progress;
    EXPECT_NO_THROW(makeSpectra(spectra, {}, progress));
    EXPECT_TRUE(progress.hasCome());
}

TEST_F(FourierTransformTest, TransformsLongSignalsOfALengthSideBySideHoweverManyOtherLengthsThereAre)
{
    Threads const two(2);
    std::vector<Spectrum> spectra{hum(100), hum(101), hum(200000), hum(100), hum(101), hum(200000)};
    SecondThread progress(0.2); // by then a thread that has the short ones alone is done
    progress.setTotal(effortOf(spectra));
    EXPECT_NO_THROW(makeSpectra(spectra, {}, progress));
    EXPECT_TRUE(progress.hasCome());
    EXPECT_EQ(progress.fraction(), 1.0);
}

TEST_F(FourierTransformTest, TransformsTheLengthsThatTakeLongestFirst)
{
    runDividedOnOneThread([] {
        Threads const two(2);
        std::vector<Spectrum> spectra;
        for (std::size_t const length : {100U, 997U, 1000U, 101U}) { // 997 is a prime number, which takes longer
            spectra.push_back(hum(length, notANumber));
        }
        for (std::string const expected : {"gaps in 997", "gaps in 1000", "gaps in 101", "gaps in 100"}) {
            Progress progress;
            try {
                makeSpectra(spectra, {}, progress);
                ADD_FAILURE() << expected;
            } catch (std::runtime_error const& reason) {
                EXPECT_EQ(reason.what(), expected);
            }
            spectra.erase(std::find_if(spectra.begin(), spectra.end(),
                                       [&](Spectrum const& each) { return each.reasonAgainstGaps == expected; }));
        }
    });
}

TEST_F(FourierTransformTest, EndsTheTransformsOfOthersWhenOneIsRefused)
{
    constexpr std::size_t length = 1100009; // a prime number
    std::vector<Spectrum> spectra{hum(length), hum(length, notANumber)};
    Threads const two(2);
    double const tables = static_cast<double>(SpectrumMaker::effortOfTables(length));
    double const all = static_cast<double>(effortOf(spectra));
    SlowProgress progress(tables / all + 0.01);
    progress.setTotal(effortOf(spectra));
    EXPECT_THROW(makeSpectra(spectra, {}, progress), std::runtime_error);
    double const ofOne = 0.5 * (all - tables) / all;
    EXPECT_LT(progress.most(), tables / all + 0.75 * ofOne) << "the first one came to its end";
}

TEST_F(FourierTransformTest, TellsTheFirstOfSeveralThatAreRefused)
{
    for (int const threads : {1, 2, 3}) {
        Threads const some(threads);
        for (int round = 0; round < 20; ++round) {
            std::vector<Spectrum> spectra{hum(5000), hum(5000, notANumber), hum(5000), hum(5000, notANumber),
                                          hum(5000)};
            spectra[1].reasonAgainstGaps = "the first";
            Progress progress;
            try {
                makeSpectra(spectra, {}, progress);
                ADD_FAILURE();
            } catch (std::runtime_error const& reason) {
                EXPECT_STREQ(reason.what(), "the first");
            }
        }
    }
}

TEST_F(FourierTransformTest, EstimatesTheArraysOfEachKindOfTransform)
{
    Threads const one(1);
    double const ofPlanner = 1e6; // and other small things
    {
        constexpr double length = 1 << 20; // the signal, then its bins, and the factors that FFTW keeps
        double const work = bytesOfWork({std::size_t{1} << 20U});
        EXPECT_GT(work, 8.0 * length + 8.0 * length);
        EXPECT_LT(work, 8.0 * length + 10.0 * length + ofPlanner);
        double const withWindow = bytesOfWork({std::size_t{1} << 20U}, {WindowFunction_Hann, false});
        EXPECT_NEAR(withWindow - work, 4.0 * length, 100.0);
    }
    {
        constexpr double length = 3 << 20; // signal and bins, and the transform of half as many complex numbers
        double const work = bytesOfWork({std::size_t{3} << 20U});
        EXPECT_GT(work, 8.0 * length + 8.0 * length);
        EXPECT_LT(work, 1.05 * (8.0 * length + 8.0 * length) + ofPlanner);
    }
    for (std::size_t const prime : {100003U, 1100009U}) { // a convolution of half as much more
        auto const length = static_cast<double>(prime);
        double const padded = 1.5 * length;
        double const work = bytesOfWork({prime});
        double const least = 8.0 * length + 16.0 * (length + padded) + 16.0 * padded;
        EXPECT_GT(work, least) << prime;
        EXPECT_LT(work, 1.05 * least + 2.0 * ofPlanner) << prime;
    }
}

TEST_F(FourierTransformTest, EstimatesTablesOfALengthOnceAndRoomForEachThread)
{
    constexpr double length = 100003.0; // a prime number
    constexpr double ofRoom = 8.0 * length + 16.0 * 1.5 * length;
    for (int const threads : {1, 2, 3}) {
        Threads const some(threads);
        double const one = bytesOfWork({100003});
        for (std::size_t const signals : {2U, 3U, 10U}) {
            double const more = bytesOfWork(std::vector<std::size_t>(signals, 100003)) - one;
            double const rooms = std::min(static_cast<double>(threads), static_cast<double>(signals)) - 1.0;
            EXPECT_GE(more, rooms * ofRoom) << threads << ' ' << signals;
            EXPECT_LE(more, 1.05 * rooms * ofRoom) << threads << ' ' << signals;
        }
    }
}

TEST_F(FourierTransformTest, EstimatesLengthsTogetherThatAreTransformedAtTheSameTime)
{
    auto const onOneThread = [&](std::size_t length) {
        Threads const one(1);
        return bytesOfWork({length});
    };
    double const small = onOneThread(50021); // all of them prime numbers
    double const middle = onOneThread(70001);
    double const large = onOneThread(100003);
    Threads const two(2);
    EXPECT_DOUBLE_EQ(bytesOfWork({100003, 50021, 70001}), large + middle) << "a thread for each of two";
    EXPECT_DOUBLE_EQ(bytesOfWork({50021, 50021, 70001, 70001, 100003, 100003}), bytesOfWork({100003, 100003}))
        << "one length after the other";
    EXPECT_DOUBLE_EQ(bytesOfWork({50021, 70001, 100003, 100003}),
                     std::max(bytesOfWork({100003, 100003}), small + middle));
    double const cut = bytesOfWork({3U << 20U}); // takes all threads
    EXPECT_DOUBLE_EQ(bytesOfWork({50021, 70001, 3U << 20U}), std::max(cut, small + middle));
    Threads const one(1);
    EXPECT_DOUBLE_EQ(bytesOfWork({100003, 50021, 70001}), large);
}

TEST_F(FourierTransformTest, EstimatesTheMemoryOfTheLengthThatTakesMostNotOfTheLongest)
{
    Threads const one(1);
    std::size_t const longest = std::size_t{1} << 20U; // without large prime factors
    EXPECT_DOUBLE_EQ(bytesOfWork({longest, 1000003}), bytesOfWork({1000003}));
}

TEST_F(FourierTransformTest, EstimatesNothingButResultsForSignalsOfZeros)
{
    EXPECT_EQ(bytesOf({silence(1000003), silence(1000003)}, {}), 5.0 * bytesOfBins(1000003));
    EXPECT_EQ(bytesOf({silence(1000003), hum(100)}, {}), bytesOf({hum(100)}, {}) + 3.0 * bytesOfBins(1000003));
    std::vector<Spectrum> spectra{silence(1000003), silence(100)};
    StepLog progress;
    progress.setTotal(effortOf(spectra));
    makeSpectra(spectra, {}, progress);
    EXPECT_EQ(progress.fraction(), 1.0);
    EXPECT_EQ(spectra[0].amplitudes->size(), 500002);
    EXPECT_EQ(spectra[1].phases->value(50), 0.0);
}

TEST_F(FourierTransformTest, IsRefusedWhereTheResultsDoNotFitIntoTheMemory)
{
    addNoise(std::size_t{1} << 21U);
    Field const shared = field(1, U);
    NumberSet dependents;
    for (int count = 0; count < 30000; ++count) { // half a terabyte of results
        dependents.insert(dataSet->addVariable(std::make_shared<Variable>("W")));
        dataSet->zone(1)->fields.back() = shared;
    }
    EXPECT_FALSE(transform({1}, dependents));
    EXPECT_EQ(session.lastError(), "Out of memory.");
    EXPECT_EQ(dataSet->zoneCount(), 1);
}

TEST_F(FourierTransformTest, SaysInTheZoneAndInTheLogHowItWasMade)
{
    addNoise(50, 0.5);
    ASSERT_TRUE(transform({1}, {U, V}, with(WindowFunction_Hamming, true)));
    EXPECT_EQ(note(2, "Fourier.SourceZone"), "S1");
    EXPECT_EQ(note(2, "Fourier.IndependentVariable"), "Time");
    EXPECT_EQ(note(2, "Fourier.DependentVariables"), "U, V");
    EXPECT_EQ(note(2, "Fourier.Window"), "Hamming");
    EXPECT_EQ(note(2, "Fourier.Conjugates"), "included");
    EXPECT_EQ(note(2, "Fourier.Values"), "50");
    EXPECT_EQ(note(2, "Fourier.Spacing"), "0.5");
    EXPECT_EQ(dataSet->zone(2)->auxiliaryData.size(), 7);
    EXPECT_THAT(remark, testing::StartsWith(
                            "Discrete Fourier Transform: \"U\", \"V\" over \"Time\" in \"S1\", window Hamming, in "));
}

TEST_F(FourierTransformTest, RefusesZonesThatCannotBeTransformed)
{
    addNoise(20);
    addNoise(3);
    int const plane = addNoise(20);
    dataSet->zone(plane)->i = 10;
    dataSet->zone(plane)->j = 2;
    int const cells = addNoise(20);
    dataSet->zone(cells)->type = ZoneType_FELineSeg;
    int const disabled = addNoise(20);
    session.perform(EnableZone(*dataSet, disabled, false));
    expectRefusal("No zones were given.", {});
    expectRefusal("There is no such zone.", {0, 1});
    expectRefusal("There is no such zone.", {1, 6});
    expectRefusal("The zone \"S2\" has fewer than 4 points.", {1, 2});
    expectRefusal("The zone \"S3\" is not an ordered zone of one dimension.", {1, plane});
    expectRefusal("The zone \"S4\" is not an ordered zone of one dimension.", {cells});
    expectRefusal("The zone \"S5\" is disabled.", {disabled});
    dataSet->setLockHolder("somebody");
    expectRefusal("The data set is locked.", {1});
}

TEST_F(FourierTransformTest, RefusesVariablesThatCannotBeTransformed)
{
    addNoise(20);
    expectRefusal("No dependent variables were given.", {1}, {});
    expectRefusal("There is no such variable.", {1}, {0});
    expectRefusal("There is no such variable.", {1}, {4});
    expectRefusal("There is no such variable.", {1}, {U}, {}, 0);
    expectRefusal("There is no such variable.", {1}, {U}, {}, 4);
    expectRefusal("The independent variable \"Time\" is among the dependent ones.", {1}, {time, U});
    setField(1, U, noise(20), FieldDataType_Double, ValueLocation_CellCentered);
    expectRefusal("The zone \"S1\" has the values of \"U\" at its cells and those of \"V\" at its points: transform "
                  "them one after the other.",
                  {1}, {U, V});
    field(1, time) = Field();
    expectRefusal("The independent variable \"Time\" is passive in the zone \"S1\": it has no values there.", {1});
}

TEST_F(FourierTransformTest, RefusesAnIndependentVariableThatIsNoAxis)
{
    addNoise(20);
    setField(1, time, Numbers(20, 4.0));
    expectRefusal("The independent variable \"Time\" is constant in the zone \"S1\".", {1});
    Numbers times = evenTimes(20);
    times[7] = times[6];
    setField(1, time, times);
    expectRefusal("The independent variable \"Time\" neither rises nor falls all the way through the zone \"S1\": look "
                  "at point 8.",
                  {1});
    times[7] = times[5] - 1.0;
    setField(1, time, times);
    expectRefusal("The independent variable \"Time\" neither rises nor falls all the way through the zone \"S1\": look "
                  "at point 8.",
                  {1});
    std::fill(times.begin(), times.begin() + 3, times[3]);
    setField(1, time, times);
    expectRefusal("The independent variable \"Time\" neither rises nor falls all the way through the zone \"S1\": look "
                  "at point 2.",
                  {1});
    setField(1, time, evenTimes(20, 1e307, -1e308));
    expectRefusal("The steps of the independent variable \"Time\" in the zone \"S1\" are too large or too small.", {1});
    setField(1, time, evenTimes(20, 1e-310, 0.0));
    expectRefusal("The steps of the independent variable \"Time\" in the zone \"S1\" are too large or too small.", {1});
    std::fill(times.begin(), times.begin() + 11, notANumber);
    setField(1, time, times);
    expectRefusal("More than half of the values of the variable \"Time\" in the zone \"S1\" are hidden or no numbers.",
                  {1});
}

TEST_F(FourierTransformTest, RefusesValuesMoreThanHalfOfWhichAreNotKnown)
{
    Numbers values = noise(20);
    std::fill(values.begin(), values.begin() + 10, notANumber);
    add(evenTimes(20), values, values);
    ASSERT_TRUE(transform({1})) << session.lastError();
    ASSERT_TRUE(session.undo());
    values[15] = notANumber;
    setField(1, U, values);
    expectRefusal("More than half of the values of the variable \"U\" in the zone \"S1\" are hidden or no numbers.",
                  {1});
    setField(1, U, noise(20));
    setField(addNoise(30), U, Numbers(30, notANumber));
    addNoise(40);
    Threads const two(2); // a thread for each of two lengths
    expectRefusal("More than half of the values of the variable \"U\" in the zone \"S2\" are hidden or no numbers.",
                  {1, 2, 3});
    std::vector<std::int64_t> points(11);
    std::iota(points.begin(), points.end(), 4);
    hide(1, points);
    expectRefusal("More than half of the values of the variable \"Time\" in the zone \"S1\" are hidden or no numbers.",
                  {1}, {U}, obeying());
}

} // namespace veldraw::tests
