#pragma once

#include <cstdint>

namespace veldraw::kernel {

/// Points in 2 or 3 dimensions, wherever they are stored.
class PointReader
{
public:
    PointReader() = default;
    virtual ~PointReader() = default;

    /// Number of coordinates: 2 or 3.
    virtual int dimensions() const = 0;

    /// Writes the coordinates of a point to @p place. May be called on several threads at a time.
    virtual void read(std::uint32_t point, double* place) const = 0;

    PointReader(PointReader const&) = delete;
    PointReader& operator=(PointReader const&) = delete;
};

} // namespace veldraw::kernel
