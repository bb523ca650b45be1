#pragma once

#include "app/import/raw/RawType.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// What the text at the start of a MetaImage file (.mhd .mha) says: lines "Key = value", the last of which is
/// ElementDataFile. Keys that have no meaning here are passed over.
struct MetaImageHeader
{
    /// @throws ImportError naming the line and what is wrong in it
    static MetaImageHeader read(std::string const& path);

    std::vector<std::int64_t> dims; ///< points along each axis, one to three
    std::array<double, 3> spacing{{1.0, 1.0, 1.0}};
    std::array<double, 3> offset{{0.0, 0.0, 0.0}};                                   ///< of the first point
    std::array<double, 9> directions{{1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0}}; ///< of I, then of J, then of K
    RawType type = RawType::Float32;
    int channels = 1;
    bool bigEndian = false;
    std::optional<double> min; ///< of all values, as the writer says
    std::optional<double> max;
    std::int64_t headerSize = 0;  ///< bytes before the values in their file; -1: the values are the last of it
    std::string dataFile;         ///< "LOCAL": the values follow the header
    std::int64_t endOfHeader = 0; ///< where they do so

    std::int64_t pointCount() const;

    /// Bytes of all values.
    std::int64_t dataBytes() const { return pointCount() * channels * bytesOf(type); }
};

} // namespace veldraw::app
