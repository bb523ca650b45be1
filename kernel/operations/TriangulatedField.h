#pragma once

#include "kernel/operations/TriangulatedPoints.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// The values of a variable in the zone that a triangulation makes.
///
/// Values that points of zones have are taken over as they are. Those in between are rounded where the type is one of whole
/// numbers; a bit is 1 from 0.5 on.
class TriangulatedField
{
public:
    /// What the points of a zone have.
    struct Values
    {
        std::shared_ptr<Buffer const> buffer; ///< null: 0 everywhere
        bool isMixed;                         ///< of a boundary: there is nothing, so the values of the sources mix
    };

    /// @param points lives as long as the object; @param values one a part of the points
    /// @param axis 0 or 1 for the X or Y that the triangulation was made with, so that crossings have their exact places; -1
    ///        for any other variable
    TriangulatedField(TriangulatedPoints const& points, std::vector<Values> values, int axis)
        : m_points(points)
        , m_values(std::move(values))
        , m_axis(axis)
    {
    }

    /// @throws Interrupted, std::bad_alloc
    std::shared_ptr<Buffer> make(FieldDataType_e type, Progress& progress) const;

private:
    double value(TriangulatedPoints::Number point) const;
    void read(std::int64_t first, std::int64_t count, double* values) const;

    TriangulatedPoints const& m_points;
    std::vector<Values> m_values;
    int m_axis;
};

} // namespace veldraw::kernel
