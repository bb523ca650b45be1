#pragma once

#include "kernel/storage/ValueLoader.h"

#include <array>
#include <cstdint>
#include <vector>

namespace veldraw::app {

/// Computes one coordinate of the points of a grid that does not store a place for each of them. The range is known exactly
/// without that.
class CoordinateLoader : public kernel::ValueLoader
{
public:
    /// @param dims points along I, J and K, each 1 or more
    /// @param type of the values
    CoordinateLoader(std::array<std::int64_t, 3> const& dims, FieldDataType_e type)
        : m_dims(dims)
        , m_type(type)
    {
    }

    FieldDataType_e type() const { return m_type; }
    std::int64_t size() const { return m_dims[0] * m_dims[1] * m_dims[2]; }

protected:
    std::array<std::int64_t, 3> const& dims() const { return m_dims; }

private:
    std::array<std::int64_t, 3> m_dims;
    FieldDataType_e m_type;
};

/// Computes one coordinate of the points of an image, which stores none: first + i * steps[0] + j * steps[1] + k * steps[2]
/// with i, j and k from the start of the image.
class ImageCoordinateLoader : public CoordinateLoader
{
public:
    /// @param dims  points along I, J and K, each 1 or more
    /// @param start i, j and k of the first point
    ImageCoordinateLoader(std::array<std::int64_t, 3> const& dims, double first, std::array<double, 3> const& steps,
                          std::array<std::int64_t, 3> const& start = {});

    /// @throws ImportError when memory does not suffice; kernel::Interrupted
    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override;

private:
    double at(std::int64_t i, std::int64_t j, std::int64_t k) const;

    double m_first;
    std::array<double, 3> m_steps;
    std::array<std::int64_t, 3> m_start;
};

/// Computes one coordinate of the points of a rectilinear grid, which stores it once along its axis.
class RectilinearCoordinateLoader : public CoordinateLoader
{
public:
    /// @param dims      points along I, J and K, each 1 or more
    /// @param axis      0 to 2: the index that the coordinate goes with
    /// @param positions one for each value of that index
    /// @param type      FieldDataType_Float or FieldDataType_Double
    RectilinearCoordinateLoader(std::array<std::int64_t, 3> const& dims, int axis, std::vector<double> positions,
                                FieldDataType_e type);

    /// @throws ImportError when memory does not suffice; kernel::Interrupted
    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override;

private:
    template <typename Number>
    void fill(Number* target, kernel::Progress& progress) const;

    int m_axis;
    std::vector<double> m_positions;
};

} // namespace veldraw::app
