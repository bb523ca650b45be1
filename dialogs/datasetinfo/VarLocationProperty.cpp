#include "dialogs/datasetinfo/VarLocationProperty.h"

#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// Null for a location that there is no text for.
char const* locationText(int location)
{
    if (location == ValueLocation_CellCentered)
        return "Cell Centered";
    return location == ValueLocation_Nodal ? "Nodal" : nullptr;
}

} // namespace

VarLocationProperty::VarLocationProperty(Selection const& selectedZones, Selection const& selectedVars,
                                         boost::shared_ptr<UILocalStyleProperty<std::string>> text)
    : VarPropertyAbstract(selectedZones, selectedVars)
    , m_text(std::move(text))
{
    refresh();
}

VarLocationProperty::~VarLocationProperty() = default;

void VarLocationProperty::updateInZone(int zone, int var)
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (char const* const text = locationText(VelUtilDataValueGetLocation(zone, var)))
        m_text->setValue(text);
}

} // namespace veldraw::sdk::ui::propertymanager
