#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/AuxiliaryData.h"
#include "kernel/data/Blanking.h"
#include "kernel/data/Connectivity.h"
#include "kernel/data/DimensionsLoader.h"
#include "kernel/data/Field.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Strand number of a zone that belongs to no time strand.
constexpr int staticStrand = 2147483646;

/// A block of points with its cells and one field a variable of the data set.
///
/// The dimensions may not be known yet: they are all -1 then, and a loader stands by for when they are asked for in earnest.
/// Until then the zone has no points and no cells.
struct Zone
{
    Zone(std::string zoneName, ZoneType_e zoneType, std::int64_t iDim, std::int64_t jDim, std::int64_t kDim);

    bool isOrdered() const { return type == ZoneType_Ordered; }

    /// Whether the dimensions are not known yet.
    bool isDeferred() const { return dimensionsLoader != nullptr && i < 0; }

    /// Takes the dimensions that the loader has brought.
    void setDimensions(ZoneDimensions const& dimensions) noexcept;

    /// Points: i * j * k of an ordered zone, i of a finite-element zone.
    std::int64_t pointCount() const;

    /// Cells: the product of (dimension - 1, at least 1) of an ordered zone, j of a finite-element zone; 0 without
    /// points.
    std::int64_t cellCount() const;

    /// Slots that a field of this zone has in its buffer: points, or cells; ordered zones use nodal strides for both.
    std::int64_t valueCount(ValueLocation_e location) const;

    /// Number of dimensions above 1 for ordered zones; 1 for line segments, 2 for surface cells, 3 for volume cells.
    int dimensionality() const;

    /// Range of a variable's finite values in this zone, without those of hidden points and cells and of slots that no cell has.
    /// Never loads: what is known of values that are not loaded.
    /// @param variable one-based number. @return Unknown for a bad number, a passive field, or when no value is finite
    ValueRange range(int variable) const;

    /// The points or cells that are hidden, by their value slots; null when none is. They are in no plot and count in no range.
    std::shared_ptr<HiddenSlots const> hidden(ValueLocation_e location) const;

    /// @param slot zero-based; one that does not exist is not hidden
    bool isHidden(ValueLocation_e location, std::int64_t slot) const;

    /// Which values of a field of this zone count in its range.
    CountedValues countedValues(ValueLocation_e location) const;

    UniqueId id;
    std::string name; ///< UTF-8
    ZoneType_e type;
    std::int64_t i; ///< ordered: I; finite element: points
    std::int64_t j; ///< ordered: J; finite element: elements
    std::int64_t k; ///< ordered: K; finite element: faces (polygon and polyhedron zones, else 0)
    double solutionTime = 0.0;
    int strand = staticStrand;
    bool enabled = true;
    bool isScattered =
        false; ///< of an ordered zone with one dimension: its points are no curve, but stand each for itself
    std::shared_ptr<Connectivity const> connectivity; ///< null for ordered zones
    std::shared_ptr<Blanking const> blanking;         ///< null when no point and no cell is marked
    std::string
        fileFormat; ///< extension of the file that the zone came from, such as "vtp"; empty when it came from none
    AuxiliaryData auxiliaryData;
    std::shared_ptr<DimensionsLoader> dimensionsLoader;        ///< null when the dimensions are known from the start
    std::shared_ptr<std::set<UniqueId> const> wantedVariables; ///< whose values are to stay loaded here; null for none
    std::vector<Field> fields;                                 ///< one a variable, in the order of the variables
};

} // namespace veldraw::kernel
