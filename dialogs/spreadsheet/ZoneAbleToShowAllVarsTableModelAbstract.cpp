#include "dialogs/spreadsheet/ZoneAbleToShowAllVarsTableModelAbstract.h"

#include "dialogs/spreadsheet/FieldLocation.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

ZoneAbleToShowAllVarsTableModelAbstract::ZoneAbleToShowAllVarsTableModelAbstract(int zone,
                                                                                 toolbox::Set const& variables,
                                                                                 bool alterInAllSharedZones,
                                                                                 ValueLocation_e location)
    : ZoneVarTableModelAbstract(zone, variables, alterInAllSharedZones, location)
{
    for (int const variable : getEnabledVars().members()) {
        if (fieldLocation(zone, variable) == location)
            m_columnVariables.push_back(variable);
    }
}

ZoneAbleToShowAllVarsTableModelAbstract::~ZoneAbleToShowAllVarsTableModelAbstract() = default;

int ZoneAbleToShowAllVarsTableModelAbstract::variableNumber(unsigned long long column) const
{
    return m_columnVariables.at(column - 1);
}

unsigned long long ZoneAbleToShowAllVarsTableModelAbstract::modelColumnCount() const
{
    return m_columnVariables.size();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
