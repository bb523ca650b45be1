#include "dialogs/spreadsheet/IJKLineZoneVarTableModel.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

IJKLineZoneVarTableModel::~IJKLineZoneVarTableModel() = default;

unsigned long long IJKLineZoneVarTableModel::modelRowCount() const
{
    switch (m_zoneOrder) {
    case ZoneOrder_I:
        return cellCount(m_iMax);
    case ZoneOrder_J:
        return cellCount(m_jMax);
    case ZoneOrder_K:
        return cellCount(m_kMax);
    default:
        return 0;
    }
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
