#include "app/plot/AxisTicks.h"

#include "app/plot/TickLabels.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace veldraw::app {

namespace {

// A step of 1, 2 or 5 times a power of ten.
struct RoundStep
{
    double factor = 1.0;
    int exponent = 0;

    // A quotient is the nearest double to the decimal number; a multiple of 0.1 would add its rounding error.
    double times(double n) const
    {
        double const power = std::pow(10.0, std::abs(exponent));
        if (!std::isfinite(power))
            return n * factor * std::pow(10.0, exponent);
        return exponent < 0 ? n * factor / power : n * factor * power;
    }
};

// The next one that is not smaller.
RoundStep roundStep(double step)
{
    int const exponent = static_cast<int>(std::floor(std::log10(step)));
    double const share = step / RoundStep{1.0, exponent}.times(1.0);
    constexpr double noise = 1.0 + 1e-6; // of limits that are close together
    if (share <= 1.0 * noise)
        return {1.0, exponent};
    if (share <= 2.0 * noise)
        return {2.0, exponent};
    if (share <= 5.0 * noise)
        return {5.0, exponent};
    return {1.0, exponent + 1};
}

int mostTicks(double length)
{
    constexpr double usual = 60.0;
    return std::max(1, static_cast<int>(length / usual));
}

// Whether no label touches the next one.
bool standClear(AxisTicks const& ticks, double min, double max, double length,
                std::function<double(std::string const&)> const& roomOf)
{
    double room = 0.0;
    for (std::string const& label : ticks.labels)
        room = std::max(room, roomOf(label));
    for (std::size_t n = 1; n < ticks.values.size(); ++n) {
        double const share = (0.5 * ticks.values[n] - 0.5 * ticks.values[n - 1]) / (0.5 * max - 0.5 * min);
        if (share * length < room)
            return false;
    }
    return true;
}

// Ticks at numbers, put to the places of these.
AxisTicks atLogarithms(AxisTicks ticks)
{
    for (double& value : ticks.values)
        value = std::log10(value);
    return ticks;
}

// The nearest double to the decimal number, as a power of ten that is computed may not be.
double numberOf(int factor, int exponent)
{
    std::string const text = std::to_string(factor) + "e" + std::to_string(exponent);
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// Multiples of powers of ten. @param min, max logarithms; @param step between the exponents
AxisTicks powersOfTen(double min, double max, std::vector<int> const& factors, int step)
{
    constexpr double noise = 1e-9;
    std::vector<double> numbers;
    for (int exponent = static_cast<int>(std::floor(min / step)) * step; exponent <= max + noise; exponent += step)
        for (int const factor : factors) {
            double const number = numberOf(factor, exponent);
            double const place = std::log10(number);
            if (number > 0.0 && place >= min - noise && place <= max + noise)
                numbers.push_back(number);
        }
    return atLogarithms({numbers, TickLabels::exactly(numbers)});
}

bool isWhole(double number)
{
    return std::abs(number - std::round(number)) < 1e-9;
}

// Of numbers at a distance of width, which need not be round: as many digits as tell them exactly, or three of the width.
std::vector<std::string> shortNumbers(std::vector<double> const& numbers, double width)
{
    int const exponent = static_cast<int>(std::floor(std::log10(width)));
    constexpr int most = 2;
    for (int digits = 0; digits < most; ++digits) {
        double const unit = RoundStep{1.0, exponent - digits}.times(1.0);
        auto const isMultiple = [unit](double number) {
            double const quotient = number / unit;
            return std::abs(quotient - std::round(quotient)) < 1e-6;
        };
        if (std::all_of(numbers.begin(), numbers.end(), isMultiple))
            return TickLabels::of(numbers, unit);
    }
    return TickLabels::of(numbers, RoundStep{1.0, exponent - most}.times(1.0));
}

// The powers of ten with these exponents, to four digits.
std::vector<std::string> shortPowers(std::vector<double> const& exponents)
{
    std::vector<double> numbers;
    for (double const exponent : exponents) {
        std::array<char, 32> text{};
        auto const end = std::to_chars(text.data(), text.data() + text.size(), std::pow(10.0, exponent),
                                       std::chars_format::scientific, 3)
                             .ptr;
        double number = 0.0;
        std::from_chars(text.data(), end, number);
        numbers.push_back(number);
    }
    return TickLabels::exactly(numbers);
}

} // namespace

AxisTicks AxisTicks::create(double min, double max, int count)
{
    if (!std::isfinite(min) || !std::isfinite(max) || max < min)
        return {};
    if (min == max)
        return {{min}, TickLabels::exactly({min})};
    // Computed by halves, since the full difference may overflow.
    double const step = (0.5 * max - 0.5 * min) / std::max(count, 1) * 2.0;
    double const largest = std::max(std::abs(min), std::abs(max));
    if (!(step > 0.0) || largest / step > 1e14)
        return {{min, max}, TickLabels::exactly({min, max})};
    RoundStep const round = roundStep(step);
    double const width = round.times(1.0);
    AxisTicks ticks;
    double const noise = 1e-9 + 1e-15 * largest / width;
    double const last = std::floor(max / width + noise);
    for (double n = std::ceil(min / width - noise); n <= last; n += 1.0)
        ticks.values.push_back(n == 0.0 ? 0.0 : round.times(n));
    if (ticks.values.empty())
        return create(min, max, count + 1); // the step was wider than the limits are apart
    ticks.labels = TickLabels::of(ticks.values, width);
    return ticks;
}

AxisTicks AxisTicks::along(double min, double max, double length,
                           std::function<double(std::string const&)> const& roomOf)
{
    AxisTicks ticks;
    for (int count = mostTicks(length); count >= 1; --count) {
        ticks = create(min, max, count);
        if (standClear(ticks, min, max, length, roomOf))
            break;
    }
    return ticks;
}

AxisTicks AxisTicks::logarithmicAlong(double min, double max, double length,
                                      std::function<double(std::string const&)> const& roomOf)
{
    if (!std::isfinite(min) || !std::isfinite(max) || max < min)
        return {};
    AxisTicks ticks;
    for (int count = mostTicks(length); max - min < 1.0 && count >= 2; --count) {
        ticks = atLogarithms(create(std::pow(10.0, min), std::pow(10.0, max), count));
        if (ticks.values.size() >= 2 && standClear(ticks, min, max, length, roomOf))
            return ticks;
    }
    ticks = powersOfTen(min, max, {1, 2, 5}, 1);
    for (int const step : {1, 2, 3, 5, 10, 20, 50, 100, 200}) {
        if (standClear(ticks, min, max, length, roomOf))
            break;
        ticks = powersOfTen(min, max, {1}, step);
    }
    return ticks;
}

AxisTicks AxisTicks::ofBands(double min, double max, int bands, bool isLog)
{
    double const width = (max - min) / bands;
    if (isLog && isWhole(min) && isWhole(width))
        return powersOfTen(min, max, {1}, static_cast<int>(std::lround(width)));
    AxisTicks const round = isLog ? AxisTicks() : create(min, max, bands);
    if (round.values.size() == static_cast<std::size_t>(bands) + 1 && round.values.front() == min)
        return round;
    AxisTicks borders;
    for (int n = 0; n <= bands; ++n) {
        double const share = static_cast<double>(n) / bands;
        borders.values.push_back((1.0 - share) * min + share * max);
    }
    borders.labels = isLog ? shortPowers(borders.values) : shortNumbers(borders.values, width);
    return borders;
}

} // namespace veldraw::app
