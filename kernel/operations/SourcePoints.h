#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/PointReader.h"
#include "kernel/data/ValuePlaces.h"

#include <vector>

namespace veldraw::kernel {

/// The places at which zones have values of some variables, numbered through all zones, with these values.
class SourcePoints : public PointReader
{
public:
    /// @param dimensions 2 or 3
    explicit SourcePoints(int dimensions)
        : m_dimensions(dimensions)
    {
    }

    /// Adds a zone. @param values one buffer a variable
    /// @throws std::runtime_error when there are more points than numbers for them
    void add(ValuePlaces places, std::vector<std::shared_ptr<Buffer const>> values);

    /// Number of points that there may be: of all slots.
    std::int64_t size() const { return m_end; }

    /// Sets the factor for all coordinates; 1 at first.
    void setScale(double scale) { m_scale = scale; }

    int dimensions() const override { return m_dimensions; }
    void read(std::uint32_t point, double* place) const override;

    /// Copies the values of a variable at @p count points.
    void gather(std::size_t variable, std::uint32_t const* points, std::size_t count, double* values) const;

    struct Selection
    {
        std::vector<std::uint32_t> points; ///< in ascending order
        std::int64_t leftOut = 0;
        double largest = 0.0; ///< of the coordinates of the selected points, without signs
    };

    /// The points with a place, those apart that are hidden unless @p withHidden. Coordinates beyond 1e280 are no place, as
    /// those that are not finite. @throws Interrupted
    Selection select(bool withHidden, Progress const& progress) const;

private:
    struct Part
    {
        ValuePlaces places;
        std::vector<std::shared_ptr<Buffer const>> values;
        std::uint32_t first;
    };

    Part const& partOf(std::uint32_t point) const;

    /// What is found in a chunk of all slots.
    struct Chunk
    {
        std::int64_t first = 0;
        std::int64_t count = 0; ///< of the selected points
        std::int64_t leftOut = 0;
        double largest = 0.0;
    };

    Chunk selectChunk(std::int64_t first, std::int64_t last, bool withHidden, std::uint32_t* points) const;

    int m_dimensions;
    double m_scale = 1.0;
    std::vector<Part> m_parts;
    std::uint32_t m_end = 0;
};

} // namespace veldraw::kernel
