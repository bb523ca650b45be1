#include "app/plot/TickLabels.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace veldraw::app {

namespace {

constexpr int mostDigits = 17;
constexpr std::size_t comfortable = 6; // characters that nobody minds

int exponentOf(double value)
{
    return static_cast<int>(std::floor(std::log10(value) + 1e-9));
}

std::string withDecimals(double value, int decimals)
{
    char text[400]; // the largest number has 309 digits before the point
    auto const end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
    return {text, end};
}

// 1e+06 becomes 1e6.
std::string withPlainExponent(std::string text)
{
    std::size_t const mark = text.find('e');
    if (mark == std::string::npos)
        return text;
    std::string exponent = text.substr(mark + 1);
    std::string const sign = exponent[0] == '-' ? "-" : "";
    exponent.erase(0, std::min(exponent.find_first_not_of("+-0"), exponent.size() - 1));
    return text.substr(0, mark) + "e" + sign + exponent;
}

// By the fewest digits that read back as the same number. What came as single precision needs no more digits than that.
std::string shortest(double value, std::chars_format style)
{
    char text[400];
    auto const write = [&](auto number) { return std::to_chars(text, text + sizeof text, number, style).ptr; };
    auto const single = static_cast<float>(value);
    if (value == 0.0)
        return "0"; // a zero may have a sign
    bool const isSingle = std::isfinite(single) && static_cast<double>(single) == value;
    return {text, isSingle ? write(single) : write(value)};
}

std::size_t widest(std::vector<std::string> const& labels)
{
    std::size_t most = 0;
    for (std::string const& label : labels)
        most = std::max(most, label.size() - (label[0] == '-' ? 1 : 0));
    return most;
}

std::vector<std::string> asTheyAre(std::vector<double> const& values, double step)
{
    int const decimals = std::max(0, -exponentOf(step));
    std::vector<std::string> labels;
    for (double const value : values)
        labels.push_back(withDecimals(value, decimals));
    return labels;
}

std::vector<std::string> asMultiples(std::vector<double> const& values, double step, int exponent)
{
    int const decimals = std::max(0, exponent - exponentOf(step));
    // In two steps, as a power of ten below 1e-308 is none.
    double const half = std::pow(10.0, exponent / 2);
    double const rest = std::pow(10.0, exponent - exponent / 2);
    std::string const power = "e" + std::to_string(exponent);
    std::vector<std::string> labels;
    for (double const value : values)
        labels.push_back(value == 0.0 ? "0" : withDecimals(value / half / rest, decimals) + power);
    return labels;
}

} // namespace

std::vector<std::string> TickLabels::of(std::vector<double> const& values, double step)
{
    double largest = 0.0;
    for (double const value : values)
        largest = std::max(largest, std::abs(value));
    if (!(largest > 0.0))
        return std::vector<std::string>(values.size(), "0");
    int const exponent = exponentOf(largest);
    std::vector<std::string> multiples = asMultiples(values, step, exponent);
    if (std::abs(exponent) > mostDigits)
        return multiples;
    std::vector<std::string> plain = asTheyAre(values, step);
    bool const isPlain = widest(plain) <= std::max(comfortable, widest(multiples));
    return isPlain ? plain : multiples;
}

std::vector<std::string> TickLabels::exactly(std::vector<double> const& values)
{
    std::vector<std::string> plain;
    std::vector<std::string> scientific;
    for (double const value : values) {
        plain.push_back(shortest(value, std::chars_format::fixed));
        scientific.push_back(value == 0.0 ? "0" : withPlainExponent(shortest(value, std::chars_format::scientific)));
    }
    return widest(plain) <= comfortable || widest(plain) < widest(scientific) ? plain : scientific;
}

} // namespace veldraw::app
