#include "dialogs/datasetinfo/AuxDataTableAdapter.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

AuxDataTableAdapter::~AuxDataTableAdapter() = default;

QVariant AuxDataTableAdapter::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical && role == Qt::AccessibleTextRole)
        return index(section, 0).data();
    return QTableModelAdapter::headerData(section, orientation, role);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
