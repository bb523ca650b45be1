#include "dialogs/spreadsheet/FEZoneVarTableModel.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

FEZoneVarTableModel::~FEZoneVarTableModel() = default;

// Such a zone has its points as I and its elements as J.
unsigned long long FEZoneVarTableModel::modelRowCount() const
{
    return static_cast<unsigned long long>(m_location == ValueLocation_Nodal ? m_iMax : m_jMax);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
