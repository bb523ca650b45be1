#include "dialogs/spreadsheet/OrderedZoneVarTableModel.h"

#include "dialogs/spreadsheet/FieldLocation.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

OrderedZoneVarTableModel::OrderedZoneVarTableModel(int zone, int variable, IJKPlanes_e plane, long long planeIndex,
                                                   bool alterInAllSharedZones)
    : ZoneVarTableModelAbstract(zone, toolbox::Set(variable), alterInAllSharedZones, fieldLocation(zone, variable))
    , m_plane(plane)
    , m_planeIndex(planeIndex)
{
}

OrderedZoneVarTableModel::~OrderedZoneVarTableModel() = default;

std::string OrderedZoneVarTableModel::columnName(unsigned long long column) const
{
    return dataSetAndFrameAreAvailable() ? std::to_string(column + 1) : std::string();
}

int OrderedZoneVarTableModel::variableNumber(unsigned long long) const
{
    return ZoneVarTableModelAbstract::variableNumber(1);
}

unsigned long long OrderedZoneVarTableModel::modelRowCount() const
{
    return cellCount(m_plane == IJKPlanes_I ? m_jMax : m_iMax);
}

unsigned long long OrderedZoneVarTableModel::modelColumnCount() const
{
    return cellCount(m_plane == IJKPlanes_K ? m_jMax : m_kMax);
}

long long OrderedZoneVarTableModel::fixedDimension() const
{
    switch (m_plane) {
    case IJKPlanes_I:
        return m_iMax;
    case IJKPlanes_J:
        return m_jMax;
    default:
        return m_kMax;
    }
}

long long OrderedZoneVarTableModel::fixedCoordinate() const
{
    long long const fixed = m_planeIndex - 1;
    bool const isBehindLastCell =
        m_location == ValueLocation_CellCentered && fixed != 0 && fixed == fixedDimension() - 1;
    return isBehindLastCell ? fixed - 1 : fixed;
}

long long OrderedZoneVarTableModel::valueOffset(ModelIndex const& index) const
{
    auto const row = static_cast<long long>(index.row);
    auto const column = static_cast<long long>(index.column);
    long long const fixed = fixedCoordinate();
    // Strides are those of the points for cells too.
    auto const offset = [this](long long i, long long j, long long k) { return (j + k * m_jMax) * m_iMax + i; };
    switch (m_plane) {
    case IJKPlanes_I:
        return offset(fixed, row, column);
    case IJKPlanes_J:
        return offset(row, fixed, column);
    default:
        return offset(row, column, fixed);
    }
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
