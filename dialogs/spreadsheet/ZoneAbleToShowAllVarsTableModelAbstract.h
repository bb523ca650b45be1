#pragma once

#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"

#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A table of a zone whose values stand in one row behind each other: a column is a variable, a row is a place. The columns
/// are all enabled variables that have the table's location.
class ZoneAbleToShowAllVarsTableModelAbstract : public ZoneVarTableModelAbstract
{
public:
    /// As the base; @p variables doesn't say which columns there are.
    ZoneAbleToShowAllVarsTableModelAbstract(int zone, toolbox::Set const& variables, bool alterInAllSharedZones,
                                            ValueLocation_e location);
    ~ZoneAbleToShowAllVarsTableModelAbstract() override;

    int variableNumber(unsigned long long column) const override;
    unsigned long long modelColumnCount() const override;

private:
    std::vector<int> m_columnVariables;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
