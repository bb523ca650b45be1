#include "tools/samples/TableSamples.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <random>
#include <stdexcept>

namespace veldraw::samples {

namespace {

constexpr double radiansACycle = 6.28318530717958647693;

// The same numbers on every machine, unlike the distributions of the standard library.
class Noise
{
public:
    double next() { return static_cast<double>(m_engine()) / static_cast<double>(std::mt19937::max()); }

private:
    std::mt19937 m_engine{20240501U};
};

void save(std::string const& path, std::string const& text)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path);
}

// The first number with so many digits that steps of 1/256 are even.
std::string row(double a, double b, double c, double d)
{
    char text[120];
    std::snprintf(text, sizeof text, "%.9g,%.6g,%.6g,%.6g\n", a, b, c, d);
    return text;
}

} // namespace

void writeTimeSeries(std::string const& path)
{
    Noise noise;
    std::string text = "time,signal,envelope,temperature\n";
    for (int n = 0; n < 512; ++n) {
        double const time = n / 256.0;
        double const envelope = std::exp(-0.8 * time);
        double const tones = std::sin(radiansACycle * 8.0 * time) + 0.4 * std::sin(radiansACycle * 31.0 * time);
        text += row(time, envelope * tones + 0.05 * (noise.next() - 0.5), envelope, 20.0 + 2.5 * (1.0 - envelope));
    }
    save(path, text);
}

void writeScatter(std::string const& path)
{
    Noise noise;
    std::string text = "X,Y,Z,rainfall\n";
    for (int n = 0; n < 400; ++n) {
        double const x = 10.0 * noise.next();
        double const y = 10.0 * noise.next();
        double const height = 1.5 * std::sin(0.6 * x) * std::cos(0.5 * y);
        text += row(x, y, height, 600.0 + 150.0 * height + 40.0 * noise.next());
    }
    save(path, text);
}

} // namespace veldraw::samples
