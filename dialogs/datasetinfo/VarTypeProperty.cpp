#include "dialogs/datasetinfo/VarTypeProperty.h"

#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// Null for a type that there is no text for.
char const* dataTypeText(int type)
{
    switch (type) {
    case FieldDataType_Float:
        return "Float";
    case FieldDataType_Double:
        return "Double";
    case FieldDataType_Int32:
        return "Long Integer";
    case FieldDataType_Int16:
        return "Short Integer";
    case FieldDataType_Byte:
        return "Byte";
    case FieldDataType_Bit:
        return "Bit";
    default:
        return nullptr;
    }
}

} // namespace

VarTypeProperty::VarTypeProperty(Selection const& selectedZones, Selection const& selectedVars,
                                 boost::shared_ptr<UILocalStyleProperty<std::string>> text)
    : VarPropertyAbstract(selectedZones, selectedVars)
    , m_text(std::move(text))
{
    refresh();
}

VarTypeProperty::~VarTypeProperty() = default;

void VarTypeProperty::updateInZone(int zone, int var)
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (char const* const text = dataTypeText(VelUtilDataValueGetType(zone, var)))
        m_text->setValue(text);
}

} // namespace veldraw::sdk::ui::propertymanager
