#pragma once

#include "dialogs/spreadsheet/ZoneAbleToShowAllVarsTableModelAbstract.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Values of an ordered zone with one dimension: rows are positions along the line.
class IJKLineZoneVarTableModel : public ZoneAbleToShowAllVarsTableModelAbstract
{
public:
    using ZoneAbleToShowAllVarsTableModelAbstract::ZoneAbleToShowAllVarsTableModelAbstract;
    ~IJKLineZoneVarTableModel() override;

    unsigned long long modelRowCount() const override;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
