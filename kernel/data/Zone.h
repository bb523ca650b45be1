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

/// An array that the file of a zone names for a purpose, for instance as the vectors that a program is to show first.
struct ActiveArray
{
    std::string purpose; ///< as the file spells it: "Scalars", "Vectors" and so on
    ValueLocation_e location;
    UniqueId variable; ///< of the array's first component
};

/// A block of points with its cells, and one field for each variable of the data set.
///
/// Dimensions may be loaded on demand: as long as they are not known they are all -1, the zone has no points and no cells, and
/// dimensionsLoader can bring them. LoadDimensions has it do so.
///
/// An importer sets the members of a zone before it adds the zone to a data set. From then on only operations change them.
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

    /// Number of slots that a field of this zone has in its buffer: that of points or of cells; for ordered zones always
    /// that of points (see Field).
    std::int64_t valueCount(ValueLocation_e location) const;

    /// Number of dimensions above 1 for ordered zones; 1 for line segments, 2 for surface cells, 3 for volume cells.
    int dimensionality() const;

    /// Range of a variable's finite values in this zone, without the values of hidden points and cells and of slots without
    /// a cell. It never loads: for values that are not loaded it is what is known of their range.
    /// @param variable one-based number. @return Unknown for a bad number, a passive field, or when no value is finite
    ValueRange range(int variable) const;

    /// The value slots of hidden points or cells, which are in no plot and count in no range; null when none is hidden.
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
    bool isScattered = false; ///< the points of an ordered zone with one dimension are not joined to a curve
    std::shared_ptr<Connectivity const> connectivity; ///< null for ordered zones
    std::shared_ptr<Blanking const> blanking;         ///< null when no point and no cell is marked
    std::string
        fileFormat; ///< extension of the file that the zone came from, such as "vtp"; empty when it came from none
    std::vector<ActiveArray> activeArrays; ///< as the file names them, to be named again when the zone is saved
    AuxiliaryData auxiliaryData;
    std::shared_ptr<DimensionsLoader> dimensionsLoader; ///< null when the dimensions are known from the start
    std::shared_ptr<std::set<UniqueId> const>
        wantedVariables;       ///< variables whose values stay loaded in this zone; null for none
    std::vector<Field> fields; ///< one a variable, in the order of the variables
};

} // namespace veldraw::kernel
