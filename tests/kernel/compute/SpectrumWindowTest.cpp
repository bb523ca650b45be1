#include "kernel/compute/SpectrumWindow.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace veldraw::tests {

using namespace kernel;

namespace {

long double definition(WindowFunction_e function, std::int64_t number, std::int64_t length)
{
    long double const part = static_cast<long double>(number) / static_cast<long double>(length);
    long double const cosine = std::cos(8.0L * std::atan(1.0L) * part);
    switch (function) {
    case WindowFunction_Triangular:
        return 1.0L - std::abs(2.0L * part - 1.0L);
    case WindowFunction_Hann:
        return 0.5L - 0.5L * cosine;
    case WindowFunction_Hamming:
        return 0.54L - 0.46L * cosine;
    case WindowFunction_Rectangular:
        break;
    }
    return 1.0L;
}

constexpr WindowFunction_e functions[] = {WindowFunction_Rectangular, WindowFunction_Triangular, WindowFunction_Hann,
                                          WindowFunction_Hamming};

} // namespace

TEST(SpectrumWindowTest, MultipliesByTheFactorsOfItsDefinition)
{
    for (WindowFunction_e const function : functions) {
        for (std::int64_t length = 3; length <= 5000; length += length < 40 ? 1 : 997) {
            Progress progress;
            SpectrumWindow const window(function, length, progress);
            std::vector<double> values(static_cast<std::size_t>(length), 2.0);
            std::int64_t const cut = length / 3; // in two parts that do not end in the middle
            window.apply(0, cut, values.data());
            window.apply(cut, length - cut, values.data() + cut);
            long double sum = 0;
            for (std::int64_t number = 0; number < length; ++number) {
                long double const factor = definition(function, number, length);
                ASSERT_NEAR(values[static_cast<std::size_t>(number)], static_cast<double>(2.0L * factor), 1e-15)
                    << function << " of " << length << " at " << number;
                sum += factor;
            }
            EXPECT_NEAR(window.mean(), static_cast<double>(sum / static_cast<long double>(length)), 1e-15)
                << function << " of " << length;
        }
    }
}

} // namespace veldraw::tests
