#include "kernel/compute/RealTransform.h"

#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/UnitRoots.h"
#include "tests/kernel/support/LookCounter.h"
#include "tests/kernel/support/ReferenceSpectrum.h"
#include "tests/kernel/support/StepLog.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/Threads.h"

#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <thread>

namespace veldraw::tests {

using namespace kernel;

namespace {

using Numbers = std::vector<double>;
using Bins = std::vector<RealTransform::Bin>;

Numbers randomSignal(std::size_t length)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> distribution(-1.0, 1.0);
    Numbers values(length);
    std::generate(values.begin(), values.end(), [&] { return distribution(random); });
    return values;
}

Bins transformed(RealTransform const& transform, Numbers const& values, Progress& progress)
{
    std::size_t const binCount = values.size() / 2 + 1;
    ZeroedArray<double> numbers(2 * binCount);
    std::copy(values.begin(), values.end(), numbers.begin());
    ZeroedArray<RealTransform::Bin> room(transform.roomSize());
    RealTransform::Bin const* const bins = transform.run(numbers.begin(), room.begin(), progress);
    return {bins, bins + binCount};
}

/// @param longest length that is transformed as a whole
Bins transformed(Numbers const& values, std::int64_t longest = LongTransform::longestWhole)
{
    Progress progress;
    auto const transform = RealTransform::make(static_cast<std::int64_t>(values.size()), progress, longest);
    return transformed(*transform, values, progress);
}

double largest(Bins const& bins)
{
    return std::abs(*std::max_element(bins.begin(), bins.end(),
                                      [](auto const& a, auto const& b) { return std::abs(a) < std::abs(b); }));
}

/// Compares some bins with direct sums, as a part of the largest bin.
void expectSums(Numbers const& values, Bins const& bins, std::vector<std::size_t> const& which)
{
    ASSERT_EQ(bins.size(), values.size() / 2 + 1);
    std::vector<reference::LongBin> const roots = reference::roots(values.size());
    double const tolerance = 1e-12 * largest(bins);
    for (std::size_t const bin : which) {
        reference::LongBin const sum = reference::sumOfBin(values, roots, bin);
        ASSERT_NEAR(bins[bin].real(), static_cast<double>(sum.real()), tolerance) << values.size() << ", bin " << bin;
        ASSERT_NEAR(bins[bin].imag(), static_cast<double>(sum.imag()), tolerance) << values.size() << ", bin " << bin;
    }
}

void expectAllSums(Numbers const& values, Bins const& bins)
{
    std::vector<std::size_t> all(values.size() / 2 + 1);
    std::iota(all.begin(), all.end(), 0U);
    expectSums(values, bins, all);
}

void expectSomeSums(Numbers const& values, Bins const& bins)
{
    std::size_t const last = values.size() / 2;
    expectSums(values, bins, {0, 1, last / 3, last / 2 + 7, last});
}

/// The sum of the squares of a signal is that of all its bins, divided by the length.
void expectParseval(Numbers const& values, Bins const& bins)
{
    long double ofSignal = 0;
    for (double const value : values) {
        ofSignal += static_cast<long double>(value) * value;
    }
    long double ofBins = 0;
    for (std::size_t bin = 0; bin < bins.size(); ++bin) {
        bool const isLonely = bin == 0 || 2 * bin == values.size();
        ofBins += (isLonely ? 1.0L : 2.0L) * std::norm(reference::LongBin(bins[bin]));
    }
    ofBins /= static_cast<long double>(values.size());
    EXPECT_NEAR(static_cast<double>(ofBins / ofSignal), 1.0, 1e-13) << values.size();
}

} // namespace

TEST(RealTransformTest, GivesTheDirectSumsOfEveryLengthUpTo200)
{
    for (std::size_t length = 1; length <= 200; ++length) {
        Numbers const values = randomSignal(length);
        expectAllSums(values, transformed(values));
    }
}

TEST(RealTransformTest, GivesTheDirectSumsWhenEveryLengthIsCut)
{
    for (std::size_t length = 4; length <= 400; length += length < 120 ? 1 : 37) {
        Numbers const values = randomSignal(length);
        expectAllSums(values, transformed(values, 3));
    }
}

TEST(RealTransformTest, GivesTheDirectSumsOfLengthsWithLargePrimeFactors)
{
    for (std::size_t const length : {53U, 106U, 997U, 2U * 499U}) {
        Numbers const values = randomSignal(length);
        expectAllSums(values, transformed(values));
    }
}

TEST(RealTransformTest, IsExactToTwelveDigitsForAMillionValuesCutOrNot)
{
    for (std::size_t const length : {1000003U, 1U << 20U, 3U * 5 * 7 * 11 * 13 * 17}) {
        Numbers const values = randomSignal(length);
        Bins const bins = transformed(values);
        expectSomeSums(values, bins);
        expectParseval(values, bins);
        Bins const ofParts = transformed(values, 1000);
        double const tolerance = 1e-13 * largest(bins);
        for (std::size_t bin = 0; bin < bins.size(); ++bin) {
            ASSERT_LT(std::abs(ofParts[bin] - bins[bin]), tolerance) << length << ", bin " << bin;
        }
    }
}

TEST(RealTransformTest, GivesEachBinTheSameForADelta)
{
    for (std::size_t const length : {16U, 30U, 61U, 1009U}) {
        Numbers values(length);
        values[0] = 1.0;
        for (RealTransform::Bin const& bin : transformed(values)) {
            EXPECT_NEAR(bin.real(), 1.0, 1e-13);
            EXPECT_NEAR(bin.imag(), 0.0, 1e-13);
        }
    }
}

TEST(RealTransformTest, GivesRealNumbersInTheBinsThatAreTheirOwnConjugates)
{
    for (std::size_t const length : {360U, 6U * 61U, 1009U, 2U * 997U, 30000U}) {
        for (std::int64_t const longest : {std::int64_t{100}, LongTransform::longestWhole}) {
            Bins const bins = transformed(randomSignal(length), longest);
            EXPECT_EQ(bins[0].imag(), 0.0) << length;
            EXPECT_EQ(bins[length / 2].imag() == 0.0, length % 2 == 0) << length;
        }
    }
}

TEST(RealTransformTest, IsLinear)
{
    for (std::size_t const length : {360U, 1009U}) {
        Numbers const first = randomSignal(length);
        Numbers const second(first.rbegin(), first.rend());
        Numbers sum;
        for (std::size_t at = 0; at < length; ++at) {
            sum.push_back(3.0 * first[at] - 0.5 * second[at]);
        }
        Bins const ofFirst = transformed(first);
        Bins const ofSecond = transformed(second);
        Bins const ofSum = transformed(sum);
        for (std::size_t bin = 0; bin < ofSum.size(); ++bin) {
            EXPECT_LT(std::abs(ofSum[bin] - (3.0 * ofFirst[bin] - 0.5 * ofSecond[bin])), 1e-12 * largest(ofSum));
        }
    }
}

TEST(RealTransformTest, TurnsBinsWhenTheSignalIsShifted)
{
    for (std::size_t const length : {360U, 1009U}) {
        constexpr std::size_t shift = 17;
        Numbers const values = randomSignal(length);
        Numbers shifted(length);
        std::rotate_copy(values.begin(), values.begin() + shift, values.end(), shifted.begin());
        Bins const before = transformed(values);
        Bins const after = transformed(shifted);
        for (std::size_t bin = 0; bin < before.size(); ++bin) {
            double const angle = 2.0 * M_PI * static_cast<double>(bin * shift % length) / static_cast<double>(length);
            EXPECT_LT(std::abs(after[bin] - before[bin] * std::polar(1.0, angle)), 1e-12 * largest(before));
        }
    }
}

TEST(RealTransformTest, GivesTheSameBitsWithAnyNumberOfThreads)
{
    for (std::size_t const length : {60000U, 10007U}) {
        Numbers const values = randomSignal(length);
        auto const transformedOn = [&](int threads) {
            Threads const some(threads);
            return transformed(values, 100);
        };
        EXPECT_EQ(transformedOn(1), transformedOn(3)) << length;
    }
}

TEST(RealTransformTest, IsUsedBySeveralThreadsAtTheSameTimeAndMadeByThemToo)
{
    std::vector<Numbers> signals;
    std::vector<Bins> expected;
    for (std::size_t length = 100; length < 140; ++length) {
        signals.push_back(randomSignal(length));
        expected.push_back(transformed(signals.back()));
    }
    auto const work = [&] {
        for (std::size_t round = 0; round < 10; ++round) {
            for (std::size_t at = 0; at < signals.size(); ++at) {
                ASSERT_EQ(transformed(signals[at]), expected[at]);
            }
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
}

TEST(RealTransformTest, LooksForACancelAllTheTime)
{
    for (std::size_t const length : {1U << 14U, 16411U}) {
        LookCounter whole;
        auto const make = [&](Progress& progress) {
            return RealTransform::make(static_cast<std::int64_t>(length), progress, 256);
        };
        auto const transform = make(whole);
        Numbers const values = randomSignal(length);
        transformed(*transform, values, whole);
        EXPECT_GT(whole.looks(), 10) << length;
        for (std::int64_t look = 1; look <= whole.looks(); look += 1 + whole.looks() / 20) {
            LookCounter cancelled(look);
            EXPECT_THROW(transformed(*make(cancelled), values, cancelled), Interrupted) << length << ", look " << look;
        }
    }
}

TEST(RealTransformTest, LooksForACancelOfAShortTransformToo)
{
    Progress progress;
    auto const transform = RealTransform::make(1000, progress);
    Progress cancelled;
    cancelled.interrupt();
    EXPECT_THROW(transformed(*transform, randomSignal(1000), cancelled), Interrupted);
}

TEST(RealTransformTest, KnowsWhatItsRootsTakeAtMost)
{
    for (std::int64_t const count : {1000, 1 << 20, 1100009}) {
        std::int64_t const before = allocatedBytes();
        UnitRoots const roots(static_cast<std::uint64_t>(count));
        double const taken = static_cast<double>(allocatedBytes() - before);
        EXPECT_LE(taken, UnitRoots::bytesOf(count)) << count;
        EXPECT_GT(taken, UnitRoots::bytesOf(count) / 2.0) << count;
    }
}

TEST(RealTransformTest, AdvancesByItsEffortInStepsThatAreNeverLarge)
{
    // Whole; a convolution of a whole length; cut; a convolution of a cut length.
    for (std::int64_t const length : {1000, 1009, 3 << 20, 1100009}) {
        Progress ofTables;
        auto const transform = RealTransform::make(length, ofTables);
        EXPECT_EQ(ofTables.done(), RealTransform::effortOfTables(length)) << length;
        StepLog ofRun;
        ofRun.setTotal(RealTransform::effortOfRun(length));
        transformed(*transform, randomSignal(static_cast<std::size_t>(length)), ofRun);
        EXPECT_EQ(ofRun.done(), ofRun.total()) << length;
        if (length > LongTransform::longestWhole) {
            EXPECT_LT(ofRun.largestStep(), 0.15) << length;
        }
    }
}

} // namespace veldraw::tests
