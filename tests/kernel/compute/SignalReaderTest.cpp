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
        std::vector<std::size_t> steps; // at which something is known
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
                steps.push_back(at);
            }
        }
        SignalAxis const axis(sample::buffer(places), {count, false, each.hides ? hidden : nullptr}, Progress());
        ASSERT_EQ(axis.fault(), SignalAxis::Fault::None);
        ASSERT_EQ(axis.isEven(), each.unevenness == 0);
        SignalReader reader(sample::buffer(values), axis);
        Numbers signal(count);
        Progress progress;
        ASSERT_TRUE(reader.read(signal.data(), progress));
        EXPECT_EQ(reader.unknownCount(), left);
        // Where only values are not known, the places at the ends are.
        std::size_t const begin = each.hides ? steps.front() : 0;
        std::size_t const end = each.hides ? steps.back() : count - 1;
        double const first = each.hides ? known.front().first : 0.0;
        double const last = each.hides ? known.back().first : 3.0 * static_cast<double>(count - 1);
        double const spacing = (last - first) / static_cast<double>(end - begin);
        EXPECT_NEAR(axis.spacing(), spacing, 1e-12);
        for (std::size_t step = 0; step < count; ++step) {
            double const place = first + spacing * (static_cast<double>(step) - static_cast<double>(begin));
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
    Progress progress;
    ASSERT_TRUE(whole.read(signal.data(), progress));
    EXPECT_EQ(whole.largest(), 8.0);
    values[1200] = infinity;
    SignalReader bridged(sample::buffer(values), axis);
    ASSERT_TRUE(bridged.read(signal.data(), progress));
    EXPECT_EQ(bridged.largest(), 8.0);
    EXPECT_EQ(signal[1200], 0.5);
    LookCounter counter;
    ASSERT_TRUE(bridged.read(signal.data(), counter));
    EXPECT_GE(counter.looks(), 2);
}

TEST(SignalReaderTest, FinishesEachValueOnceWithItsPlaceInTheSignal)
{
    constexpr std::size_t count = 3000;
    Numbers places(count);
    std::iota(places.begin(), places.end(), 0.0);
    for (bool const falls : {false, true}) {
        for (bool const hasGap : {false, true}) {
            Numbers values(count);
            std::iota(values.begin(), values.end(), 100.0);
            values[2900] = hasGap ? notANumber : values[2900];
            Numbers signal(count);
            SignalAxis const axis(sample::buffer(falls ? Numbers(places.rbegin(), places.rend()) : places),
                                  {count, false, nullptr}, Progress());
            SignalReader reader(sample::buffer(values), axis,
                                [](std::int64_t first, std::int64_t number, double* part) {
                                    for (std::int64_t at = 0; at < number; ++at) {
                                        part[at] = 2.0 * part[at] + 1e6 * static_cast<double>(first + at);
                                    }
                                });
            Progress progress;
            progress.setTotal(count);
            ASSERT_TRUE(reader.read(signal.data(), progress));
            for (std::size_t step = 0; step < count; ++step) {
                double const value = 100.0 + static_cast<double>(falls ? count - 1 - step : step);
                ASSERT_EQ(signal[step], 2.0 * value + 1e6 * static_cast<double>(step)) << falls << hasGap;
            }
            EXPECT_EQ(reader.largest(), 3099.0) << "as it was read";
        }
    }
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
