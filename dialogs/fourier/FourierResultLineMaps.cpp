#include "dialogs/fourier/FourierResultLineMaps.h"

#include "dialogs/property/KernelText.h"
#include "platform/styleproperties/StyleValue.h"
#include "platform/vdsdkbase/VelUtilLineMap.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/FrameQueries.h"

#include <cstddef>
#include <stdexcept>

namespace veldraw::sdk::ui::propertymanager {

namespace {

using toolbox::Set;
using toolbox::StyleValue;

constexpr std::size_t variablesOfResult = 3;
constexpr long long firstPlottedPoint = 2;

SetValueReturnCode_e nameAfterZone(Set const& map, int zone)
{
    KernelText name;
    VelUtilZoneGetName(zone, name.place());
    return VelUtilLineMapSetName(map.getRef(), name.get());
}

SetValueReturnCode_e assign(char const* attribute, Set const& map, int number)
{
    return VelUtilLineMapSetAssignment(attribute, map.getRef(), 0.0, number);
}

bool addResultLineMap(int zone, int xVar, int yVar)
{
    int const count = VelUtilLineMapGetCount();
    // None is also the answer to a question that has failed, and would make another line map be altered.
    if (count == 0 && lineMapCountOfActiveFrame() != 0)
        return false;
    if (!VelUtilLineMapCreate())
        return false;
    Set const map(count + 1LL);
    return StyleValue::returnCodeOk(nameAfterZone(map, zone)) &&
           StyleValue::returnCodeOk(assign("XAxisVar", map, xVar)) &&
           StyleValue::returnCodeOk(assign("YAxisVar", map, yVar)) &&
           StyleValue::returnCodeOk(assign("Zone", map, zone)) &&
           StyleValue::returnCodeOk(VelUtilLineMapSetActive(map.getRef(), true)) &&
           StyleValue::returnCodeOk(VelUtilLineMapSetIndices("IRange", "Min", map.getRef(), firstPlottedPoint));
}

// The text of the standard library's own check differs from one library to the next.
int memberAt(Set::Members const& members, std::size_t place)
{
    if (place >= members.size())
        throw std::out_of_range("invalid vector subscript");
    return members[place];
}

} // namespace

bool addResultLineMaps(Set const& resultZones, Set const& resultVars)
{
    Set::Members const zones = resultZones.members();
    Set::Members const vars = resultVars.members();
    for (int const zone : zones)
        for (std::size_t j = 0; j < vars.size(); j += variablesOfResult)
            if (!addResultLineMap(zone, vars[j], memberAt(vars, j + 1)))
                return false;
    return true;
}

} // namespace veldraw::sdk::ui::propertymanager
