#include "dialogs/datasetinfo/VarNameProperty.h"

#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/Names.h"

namespace veldraw::sdk::ui::propertymanager {

VarNameProperty::VarNameProperty(Selection const& selectedZones, Selection const& selectedVars)
    : VarPropertyAbstract(selectedZones, selectedVars)
{
    refresh();
}

VarNameProperty::~VarNameProperty() = default;

void VarNameProperty::updateInZone(int, int var)
{
    long long const frame = VelUtilFrameGetUniqueID();
    m_name.id->setValue(VelUtilVarGetUniqueIDForFrame(frame, var));
    m_name.text->setValue(variableNameForFrame(frame, var));
}

} // namespace veldraw::sdk::ui::propertymanager
