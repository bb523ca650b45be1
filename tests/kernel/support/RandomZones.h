#pragma once

#include "tests/kernel/support/MeshData.h"

#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace veldraw::tests {

/// A zone with what a test needs to know of it without asking the kernel.
struct RandomZone
{
    using Place = std::array<double, 3>;

    std::shared_ptr<kernel::Zone> zone;       ///< its first fields are X, Y and Z
    sample::CellLists cells;                  ///< those of an ordered zone too
    std::vector<std::size_t> cellSlots;       ///< where the values of the cells stand
    std::vector<bool> isHiddenPoint;          ///< by the marks, as the kernel should understand them
    std::vector<bool> isHiddenCell;           ///< the same
    std::vector<std::vector<double>> numbers; ///< of the fields behind the coordinates, by slot

    /// The slots that have values at a location.
    std::vector<std::size_t> slots(ValueLocation_e location) const;

    /// The place of a point, or the mean of the corners of a cell, by its number among slots().
    Place place(ValueLocation_e location, std::size_t number) const;

    bool isHidden(ValueLocation_e location, std::size_t number) const
    {
        return location == ValueLocation_Nodal ? isHiddenPoint[number] : isHiddenCell[number];
    }
};

/// Makes zones of any type on a grid whose points are moved at random, so that no two distances are equal.
class RandomZones
{
public:
    explicit RandomZones(unsigned seed)
        : m_random(seed)
    {
    }

    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }
    double between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    bool happens(double probability) { return between(0.0, 1.0) < probability; }

    template <typename Choice, std::size_t Count>
    Choice const& oneOf(Choice const (&choices)[Count])
    {
        return choices[below(static_cast<int>(Count))];
    }

    ZoneType_e zoneType() { return oneOf(zoneTypes); }
    FieldDataType_e valueType() { return oneOf(valueTypes); }
    ValueLocation_e location() { return happens(0.5) ? ValueLocation_Nodal : ValueLocation_CellCentered; }

    /// A zone with coordinates and nothing else. Lines, triangles, quadrilaterals, polygons and some ordered zones are in the plane
    /// at Z = 0.
    /// @param edge number of cells along each axis, at least 2
    RandomZone make(ZoneType_e type, int edge);

    /// The places of another zone, in a zone of points.
    static RandomZone pointsOf(RandomZone const& other);

    /// Marks some points, or some cells, as hidden.
    void hideSome(RandomZone& zone);

    /// Adds a field of numbers that its type holds exactly. @param withGaps whether some of them are not finite, if the type allows it
    void addValues(RandomZone& zone, FieldDataType_e type, ValueLocation_e location, bool withGaps = false);

    static constexpr ZoneType_e zoneTypes[] = {ZoneType_Ordered,   ZoneType_FETriangle,   ZoneType_FEQuad,
                                               ZoneType_FETetra,   ZoneType_FEBrick,      ZoneType_FELineSeg,
                                               ZoneType_FEPolygon, ZoneType_FEPolyhedron, ZoneType_FEMixed};
    static constexpr FieldDataType_e valueTypes[] = {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32,
                                                     FieldDataType_Int16, FieldDataType_Byte,   FieldDataType_Bit};

private:
    static sample::CellLists cellsOf(ZoneType_e type, int edge, bool isFlat);
    void moveEachPoint(sample::CellLists& cells, bool isFlat, bool inSinglePrecision);
    double number(FieldDataType_e type);

    std::mt19937_64 m_random;
};

/// Whether a field of some type may hold @p found where the exact result is @p wanted, up to @p tolerance: rounded to the nearest whole
/// number and cut to the limits of the type, where it has such.
bool holds(double found, double wanted, FieldDataType_e type, double tolerance);

} // namespace veldraw::tests
