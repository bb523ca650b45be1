#include "app/plot/ZoneSource.h"

#include <limits>

namespace veldraw::app {

bool GeometryKey::hasSameCells(GeometryKey const& other) const
{
    return type == other.type && dimensions == other.dimensions && isScattered == other.isScattered &&
           cells == other.cells && blanking == other.blanking && hasSameCut(other);
}

// Where a surface goes through the cells depends on the coordinates.
bool GeometryKey::hasSameCut(GeometryKey const& other) const
{
    if (!cut || !other.cut)
        return !cut && !other.cut;
    return cut->hasSamePlace(*other.cut) && levels == other.levels &&
           (cut->isOfIndex() || cut->kind == kernel::CutKind::IsoSurface || coordinates == other.coordinates);
}

bool GeometryKey::hasSamePlaces(GeometryKey const& other) const
{
    return hasSameCells(other) && coordinates == other.coordinates && inSpace == other.inSpace;
}

bool GeometryKey::operator==(GeometryKey const& other) const
{
    return hasSamePlaces(other) && space == other.space;
}

kernel::UniqueId revisionOf(kernel::Field const* field)
{
    if (!field || field->isPassive())
        return 0;
    return field->isLoaded() ? field->group()->revision() : -1;
}

GeometryKey geometryKeyOf(kernel::DataSet const& dataSet, int number, FieldLook const& look, kernel::Cut const* cut)
{
    kernel::Zone const& zone = *dataSet.zones()[static_cast<std::size_t>(number - 1)];
    GeometryKey key;
    key.type = zone.type;
    key.dimensions = {zone.i, zone.j, zone.k};
    key.isScattered = zone.isScattered;
    key.cells = zone.connectivity;
    auto const blanking = look.blankings.find(number);
    key.blanking = blanking == look.blankings.end() ? zone.blanking : blanking->second;
    for (std::size_t axis = 0; axis < look.axes.size(); ++axis)
        key.coordinates[axis] = revisionOf(dataSet.field(number, look.axes[axis]));
    key.space = look.space;
    key.inSpace = look.inSpace;
    if (cut) {
        key.cut = *cut;
        if (cut->kind == kernel::CutKind::IsoSurface)
            key.levels = revisionOf(dataSet.field(number, dataSet.variableNumber(cut->variable)));
    }
    return key;
}

ZoneSource::ZoneSource(kernel::DataSet const& dataSet, int number, FieldLook const& look, kernel::Cut const* cut)
    : m_key(geometryKeyOf(dataSet, number, look, cut))
    , m_positions{FieldValues(dataSet.field(number, look.axes[0])), FieldValues(dataSet.field(number, look.axes[1])),
                  FieldValues(dataSet.field(number, look.axes[2]))}
    , m_isUsed{look.axes[0] > 0, look.axes[1] > 0, look.axes[2] > 0}
    , m_levels(cut ? CutLevels(dataSet, number, look.axes, *cut) : CutLevels())
{
    auto const zone = std::make_shared<kernel::Zone>(std::string(), m_key.type, m_key.dimensions[0],
                                                     m_key.dimensions[1], m_key.dimensions[2]);
    zone->isScattered = m_key.isScattered;
    zone->connectivity = m_key.cells;
    zone->blanking = m_key.blanking;
    m_zone = zone;
}

std::array<double, 3> ZoneSource::scenePosition(std::int64_t point) const
{
    std::array<double, 3> scene{};
    if (m_zone->isHidden(ValueLocation_Nodal, point)) {
        scene.fill(std::numeric_limits<double>::quiet_NaN());
        return scene;
    }
    for (int axis = 0; axis < 3; ++axis)
        if (m_isUsed[static_cast<std::size_t>(axis)])
            scene[static_cast<std::size_t>(axis)] =
                m_key.space.toScene(axis, m_positions[static_cast<std::size_t>(axis)].at(point));
    return scene;
}

} // namespace veldraw::app
