#include "dialogs/datasetinfo/VarPropertyAbstract.h"

#include "platform/vdsdkbase/VelUtilVar.h"

namespace veldraw::sdk::ui::propertymanager {

VarPropertyAbstract::VarPropertyAbstract(Selection const& selectedZones, Selection const& selectedVars)
    : ZonePropertyAbstract(selectedZones)
    , m_selectedVars(selectedVars)
{
    follow(*m_selectedVars);
}

VarPropertyAbstract::~VarPropertyAbstract() = default;

void VarPropertyAbstract::update(int zone)
{
    std::set<int> const variables = m_selectedVars->value();
    if (!variables.empty() && VelUtilVarIsEnabled(*variables.begin()))
        updateInZone(zone, *variables.begin());
}

} // namespace veldraw::sdk::ui::propertymanager
