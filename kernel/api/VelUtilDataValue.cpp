#include "platform/vdsdkbase/VelUtilDataValue.h"

#include "kernel/api/ApiSupport.h"

using namespace veldraw::kernel;
using veldraw::kernel::api::activeField;

double VelUtilDataValueGetByZoneVar(int zone, int var, long long index)
{
    Field const* const field = activeField(zone, var);
    if (field == nullptr || field->isPassive()) {
        return 0.0;
    }
    std::shared_ptr<Buffer const> const buffer = field->group()->buffer();
    return index >= 1 && index <= buffer->size() ? buffer->value(index - 1) : 0.0;
}

int VelUtilDataValueGetLocation(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field == nullptr ? -1 : static_cast<int>(field->location());
}

int VelUtilDataValueGetShareCount(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field == nullptr ? 0 : field->shareCount();
}

int VelUtilDataValueGetType(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field == nullptr ? 0 : static_cast<int>(field->type());
}

bool VelUtilDataValueIsLoaded(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field != nullptr && field->isLoaded();
}

bool VelUtilDataValueIsMinMaxValidByZoneVar(int zone, int var)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Zone> const found = api::activeZone(zone);
        return found && found->range(var).isValid();
    });
}

bool VelUtilDataValueIsPassive(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field != nullptr && field->isPassive();
}
