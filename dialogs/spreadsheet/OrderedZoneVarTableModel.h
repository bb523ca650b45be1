#pragma once

#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// One variable of an ordered zone in a plane of constant I, J or K. The lower of the two free directions runs over the
/// rows: J over K, I over K, I over J.
class OrderedZoneVarTableModel : public ZoneVarTableModelAbstract
{
public:
    /// As the base; the location is the variable's own.
    /// @param variable one-based number
    /// @param plane the direction that is fixed
    /// @param planeIndex one-based; the last plane of points shows the last plane of cells, having none of its own
    OrderedZoneVarTableModel(int zone, int variable, IJKPlanes_e plane, long long planeIndex,
                             bool alterInAllSharedZones);
    ~OrderedZoneVarTableModel() override;

    /// The one-based number of the column.
    std::string columnName(unsigned long long column) const override;
    /// The one variable, whatever the column.
    int variableNumber(unsigned long long column) const override;
    long long valueOffset(ModelIndex const& index) const override;
    unsigned long long modelColumnCount() const override;
    unsigned long long modelRowCount() const override;

private:
    long long fixedDimension() const;
    long long fixedCoordinate() const;

    IJKPlanes_e const m_plane;
    long long const m_planeIndex;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
