#pragma once

#include "dialogs/spreadsheet/ZoneAbleToShowAllVarsTableModelAbstract.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Values of a finite-element zone: rows are points, or elements for cell-centred values.
class FEZoneVarTableModel : public ZoneAbleToShowAllVarsTableModelAbstract
{
public:
    using ZoneAbleToShowAllVarsTableModelAbstract::ZoneAbleToShowAllVarsTableModelAbstract;
    ~FEZoneVarTableModel() override;

    unsigned long long modelRowCount() const override;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
