#pragma once

#include <string>

namespace veldraw::samples {

/// A measurement over time with two tones and noise: time, signal, envelope and temperature. @throws std::runtime_error
void writeTimeSeries(std::string const& path);

/// Points scattered over a square: X, Y, Z and rainfall. @throws std::runtime_error
void writeScatter(std::string const& path);

} // namespace veldraw::samples
