#include "dialogs/datasetinfo/VarStatusProperty.h"

#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool isVarStatus(int number)
{
    return number >= VarStatus_NotLoaded && number <= VarStatus_Loaded;
}

} // namespace

VarStatusProperty::VarStatusProperty(Selection const& selectedZones, Selection const& selectedVars,
                                     boost::shared_ptr<UILocalStyleProperty<VarStatus_e>> status)
    : VarPropertyAbstract(selectedZones, selectedVars)
    , m_status(std::move(status))
{
    refresh();
}

VarStatusProperty::~VarStatusProperty() = default;

void VarStatusProperty::updateInZone(int zone, int var)
{
    AppLock const lock(AppLock::RecordAsUsual);
    int const status = VelUtilVarGetStatus(zone, var);
    if (isVarStatus(status))
        m_status->setValue(static_cast<VarStatus_e>(status));
}

} // namespace veldraw::sdk::ui::propertymanager
