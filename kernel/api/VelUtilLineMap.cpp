#include "platform/vdsdkbase/VelUtilLineMap.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/SetPlotType.h"

#include <algorithm>
#include <optional>
#include <string_view>

using namespace veldraw::kernel;
using veldraw::kernel::api::answerOr;
using veldraw::kernel::api::session;

namespace {

SetValueReturnCode_e code(bool done)
{
    return done ? SetValueReturnCode_Ok : SetValueReturnCode_Refused;
}

template <typename Alter>
SetValueReturnCode_e alterMaps(Set_s const* maps, Alter const& alter)
{
    return maps == nullptr ? SetValueReturnCode_Refused : answerOr(SetValueReturnCode_Refused, [&] {
        std::shared_ptr<Frame> const frame = session().activeFrame();
        return code(frame && session().perform(ChangeLineMaps(frame->id, maps->members, alter)));
    });
}

NumberSet allMaps(Frame const& frame)
{
    NumberSet numbers;
    for (int number = 1; number <= static_cast<int>(frame.lineMaps.size()); ++number) {
        numbers.insert(number);
    }
    return numbers;
}

/// The member of a line map that an attribute assigns; null for another attribute.
UniqueId LineMap::*assignmentOf(std::string_view attribute)
{
    if (attribute == "XAxisVar") {
        return &LineMap::xVariable;
    }
    if (attribute == "YAxisVar") {
        return &LineMap::yVariable;
    }
    return attribute == "Zone" ? &LineMap::zone : nullptr;
}

UniqueId identifierOf(DataSet const& dataSet, bool isZone, long long number)
{
    if (number < 1 || number > (isZone ? dataSet.zoneCount() : dataSet.variableCount())) {
        return 0;
    }
    return isZone ? dataSet.zone(static_cast<int>(number))->id : dataSet.variable(static_cast<int>(number))->id;
}

std::optional<std::size_t> directionOf(std::string_view attribute)
{
    for (std::size_t direction = 0; direction < 3; ++direction) {
        if (attribute.size() == 6 && attribute[0] == "IJK"[direction] && attribute.substr(1) == "Range") {
            return direction;
        }
    }
    return std::nullopt;
}

std::int64_t IndexRange::*limitOf(std::string_view subAttribute, long long value)
{
    if (subAttribute == "Max") {
        return value >= 0 ? &IndexRange::max : nullptr;
    }
    if (value < 1) {
        return nullptr;
    }
    return subAttribute == "Min" ? &IndexRange::min : (subAttribute == "Skip" ? &IndexRange::skip : nullptr);
}

/// The plot option that a layer of line plots is; null if there is no layer of this name.
PlotOption const* layerOf(std::string_view name)
{
    auto const& options = plotOptions();
    auto const found = std::find_if(options.begin(), options.end(), [name](PlotOption const& option) {
        return option.plots == PlotOption::Plots::Lines && option.value == name;
    });
    return found == options.end() ? nullptr : &*found;
}

} // namespace

bool VelUtilLineMapCreate(void)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    return frame && session().perform(CreateLineMap(frame->id));
}

bool VelUtilLineMapDelete(Set_s* lineMaps)
{
    return answerOr(false, [&] {
        std::shared_ptr<Frame> const frame = session().activeFrame();
        return frame &&
               session().perform(DeleteLineMaps(frame->id, lineMaps == nullptr ? allMaps(*frame) : lineMaps->members));
    });
}

int VelUtilLineMapGetCount(void)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    return frame ? static_cast<int>(frame->lineMaps.size()) : 0;
}

SetValueReturnCode_e VelUtilLineMapSetActive(Set_s* lineMaps, bool isActive)
{
    return alterMaps(lineMaps, [isActive](LineMap& map) { map.active = isActive; });
}

SetValueReturnCode_e VelUtilLineMapSetAssignment(char const* attribute, Set_s* lineMaps, double doubleValue,
                                                 long long intValue)
{
    static_cast<void>(doubleValue);
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    UniqueId LineMap::*const place = attribute == nullptr ? nullptr : assignmentOf(attribute);
    UniqueId const assigned =
        dataSet && place != nullptr ? identifierOf(*dataSet, place == &LineMap::zone, intValue) : 0;
    if (assigned == 0) {
        return SetValueReturnCode_Refused;
    }
    return alterMaps(lineMaps, [=](LineMap& map) { map.*place = assigned; });
}

SetValueReturnCode_e VelUtilLineMapSetIndices(char const* attribute, char const* subAttribute, Set_s* lineMaps,
                                              long long value)
{
    auto const direction = attribute == nullptr ? std::nullopt : directionOf(attribute);
    std::int64_t IndexRange::*const limit = subAttribute == nullptr ? nullptr : limitOf(subAttribute, value);
    if (!direction || limit == nullptr) {
        return SetValueReturnCode_Refused;
    }
    return alterMaps(lineMaps, [=](LineMap& map) { map.indices[*direction].*limit = value; });
}

SetValueReturnCode_e VelUtilLineMapSetName(Set_s* lineMaps, char const* name)
{
    return name == nullptr ? SetValueReturnCode_Refused
                           : alterMaps(lineMaps, [name](LineMap& map) { map.name = name; });
}

SetValueReturnCode_e VelUtilLinePlotLayerSetIsActive(char const* layer, bool isActive)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    PlotOption const* const option = layer == nullptr ? nullptr : layerOf(layer);
    if (!frame || option == nullptr) {
        return SetValueReturnCode_Refused;
    }
    if ((*frame).*option->member == isActive) {
        return SetValueReturnCode_Duplicate;
    }
    return code(session().perform(SetPlotOption(frame->id, option->member, isActive)));
}
