#pragma once

#include "app/plot/CutLevels.h"
#include "app/plot/FieldLook.h"
#include "app/plot/FieldValues.h"
#include "kernel/data/DataSet.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace veldraw::app {

/// Numbers that tell quickly whether two geometries are built from the same data.
struct GeometryKey
{
    ZoneType_e type = ZoneType_Ordered;
    std::array<std::int64_t, 3> dimensions{};
    bool isScattered = false;
    std::shared_ptr<kernel::Connectivity const> cells;
    std::shared_ptr<kernel::Blanking const> blanking;
    std::array<kernel::UniqueId, 3>
        coordinates{}; ///< revisions of the values; 0 passive or unused, negative not loaded
    PlotSpace space;
    bool inSpace = false;
    std::optional<kernel::Cut> cut; ///< what is drawn is a cut through the zone, not its outer parts
    kernel::UniqueId levels = 0;    ///< revision of the values of an iso-surface

    bool hasSameCells(GeometryKey const& other) const; ///< so that shapes are the same
    bool hasSameCut(GeometryKey const& other) const;
    bool hasSamePlaces(GeometryKey const& other) const; ///< the same points of the data, wherever in the scene
    bool operator==(GeometryKey const& other) const;
    bool operator!=(GeometryKey const& other) const { return !(*this == other); }
};

/// The data from which the geometry of one zone is computed. It may be read on any thread: as long as it is held, an edit
/// goes to a copy of the values.
class ZoneSource
{
public:
    /// @param number one-based, of a zone that exists
    /// @param cut to be drawn of the zone; null for the zone itself
    ZoneSource(kernel::DataSet const& dataSet, int number, FieldLook const& look, kernel::Cut const* cut = nullptr);

    GeometryKey const& key() const { return m_key; }

    /// The zone without its fields.
    kernel::Zone const& zone() const { return *m_zone; }

    /// Sides of the cut, where one is drawn.
    CutLevels const& levels() const { return m_levels; }

    /// Where a zero-based point lies in the scene; not finite when it has no place.
    std::array<double, 3> scenePosition(std::int64_t point) const;

private:
    GeometryKey m_key;
    std::shared_ptr<kernel::Zone const> m_zone;
    std::array<FieldValues, 3> m_positions;
    std::array<bool, 3> m_isUsed;
    CutLevels m_levels;
};

/// The key alone, without a hold on anything but the cells.
GeometryKey geometryKeyOf(kernel::DataSet const& dataSet, int number, FieldLook const& look,
                          kernel::Cut const* cut = nullptr);

/// Stands for the values of a field: its revision, 0 without values, -1 while they are not loaded.
kernel::UniqueId revisionOf(kernel::Field const* field);

} // namespace veldraw::app
