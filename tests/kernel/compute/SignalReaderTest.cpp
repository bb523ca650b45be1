#include "kernel/compute/SignalReader.h"

#include "tests/kernel/support/LookCounter.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/support/SpecialNumbers.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <vector>

namespace veldraw::tests {

using namespace kernel;

namespace {

using Numbers = std::vector<double>;

/// What is known of a signal: places, rising, and values.
using Known = std::vector<std::pair<double, double>>;

/// The value on the lines through what is known, by a search for each place.
double onLines(Known const& known, double place)
{
    auto const after =
        std::find_if(known.begin(), known.end(), [=](auto const& point) { return point.first >= place; });
    if (after == known.end()) {
        return known.back().second;
    }
    if (after == known.begin()) {
        return after->second;
    }
    auto const before = after - 1;
    double const share = (place - before->first) / (after->first - before->first);
    return before->second + share * (after->second - before->second);
}

struct Case
{
    double unevenness;
    double unknown; // share of the values
    bool falls;
    bool hides;
};

} // namespace

TEST(SignalReaderTest, DrawsLinesThroughWhatIsKnownOfSeveralThousandValues)
{
    constexpr std::size_t count = 4000;
    for (Case const& each : {Case{0, 0, false, false}, Case{0, 0, true, false}, Case{0, 0.3, false, false},
                             Case{0, 0.3, true, true}, Case{0.4, 0, false, false}, Case{0.4, 0, true, false},
                             Case{0.4, 0.4, false, true}, Case{0.4, 0.4, true, false}}) {
        std::mt19937 random(5);
        std::uniform_real_distribution<double> uniform(0.0, 1.0);
        Numbers places(count);
        Numbers values(count);
        auto const hidden = std::make_shared<HiddenSlots>(static_cast<std::int64_t>(count));
        std::int64_t left = 0;
        Known known;
        for (std::size_t at = 0; at < count; ++at) {
            bool const isInside = at > 0 && at + 1 < count;
            double const place = 3.0 * (static_cast<double>(at) + (isInside ? each.unevenness * uniform(random) : 0.0));
            std::size_t const slot = each.falls ? count - 1 - at : at;
            places[slot] = 7.0 + place;
            values[slot] = uniform(random);
            if (uniform(random) < each.unknown) {
                ++left;
                if (each.hides) {
                    hidden->insert(static_cast<std::int64_t>(slot));
                } else {
                    values[slot] = notANumber;
                }
            } else {
                known.emplace_back(place, values[slot]);
            }
        }
        // Hidden places count for the spacing of uneven steps, so that the ends have to be known there.
        SignalAxis const axis(sample::buffer(places), {count, false, each.hides ? hidden : nullptr}, Progress());
        ASSERT_EQ(axis.fault(), SignalAxis::Fault::None);
        ASSERT_EQ(axis.isEven(), each.unevenness == 0);
        SignalReader reader(sample::buffer(values), axis);
        Numbers signal(count);
        ASSERT_TRUE(reader.read(signal.data(), Progress()));
        EXPECT_EQ(reader.unknownCount(), left);
        double const first = axis.isEven() || !each.hides ? 0.0 : known.front().first;
        for (std::size_t step = 0; step < count; ++step) {
            double const place = first + axis.spacing() * static_cast<double>(step);
            ASSERT_NEAR(signal[step], onLines(known, place), 1e-9) << step << ' ' << each.unevenness << each.unknown;
        }
    }
}

TEST(SignalReaderTest, TellsTheLargestMagnitude)
{
    Numbers values(1300, 0.5);
    values[700] = -8.0;
    SignalAxis const axis(sample::buffer([] {
                              Numbers places(1300);
                              std::generate(places.begin(), places.end(), [at = 0.0]() mutable { return at += 1.0; });
                              return places;
                          }()),
                          {1300, false, nullptr}, Progress());
    Numbers signal(1300);
    SignalReader whole(sample::buffer(values), axis);
    ASSERT_TRUE(whole.read(signal.data(), Progress()));
    EXPECT_EQ(whole.largest(), 8.0);
    values[1200] = infinity;
    SignalReader bridged(sample::buffer(values), axis);
    ASSERT_TRUE(bridged.read(signal.data(), Progress()));
    EXPECT_EQ(bridged.largest(), 8.0);
    EXPECT_EQ(signal[1200], 0.5);
    LookCounter counter;
    ASSERT_TRUE(bridged.read(signal.data(), counter));
    EXPECT_GE(counter.looks(), 2);
}

TEST(SignalReaderTest, LooksForACancelWhileItFillsALongGap)
{
    constexpr std::size_t count = 1000000;
    Numbers places(count);
    std::iota(places.begin(), places.end(), 0.0);
    SignalAxis const axis(sample::buffer(places), {count, false, nullptr}, Progress());
    auto const looksWithGap = [&](std::size_t first, std::size_t last) {
        Numbers values(count, 1.0);
        std::fill(values.begin() + static_cast<std::ptrdiff_t>(first),
                  values.begin() + static_cast<std::ptrdiff_t>(last), notANumber);
        SignalReader reader(sample::buffer(values), axis);
        Numbers signal(count);
        LookCounter counter;
        EXPECT_TRUE(reader.read(signal.data(), counter));
        EXPECT_EQ(signal, Numbers(count, 1.0));
        return counter.looks();
    };
    // One look for each 65536 values that are read, and one for as many that are written.
    EXPECT_GE(looksWithGap(0, 480000), 1 + 16 + 16);
    EXPECT_GE(looksWithGap(1000, 490000), 1 + 16 + 16);
    EXPECT_GE(looksWithGap(520000, count), 8 + 16 + 16);
}

} // namespace veldraw::tests
