#include "kernel/style/LineMapStyleItem.h"

#include "kernel/data/DataSet.h"
#include "kernel/frames/LineMap.h"
#include "kernel/frames/Pages.h"
#include "kernel/operations/LineMapOperation.h"

namespace veldraw::kernel {

LineMapStyleItem::LineMapStyleItem(Access const& access, StylePath path)
    : StyleItem(std::move(path))
    , m_access(access)
{
}

LineMap const* LineMapStyleItem::mapAt(Frame const& frame, StyleAddress const& address) const
{
    bool const exists = address.offset1 >= 1 && address.offset1 <= static_cast<long long>(frame.lineMaps.size());
    if (!exists || address.offset2 != StyleAddress::noOffset) {
        return nullptr;
    }
    return &frame.lineMaps[static_cast<std::size_t>(address.offset1 - 1)];
}

std::optional<StyleNumber> LineMapStyleItem::read(StyleAddress const& address) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_access.pages, address);
    LineMap const* const map = frame ? mapAt(*frame, address) : nullptr;
    if (map == nullptr) {
        return std::nullopt;
    }
    return StyleNumber::ofWhole(numberOf(*map, frame->dataSet.get()));
}

std::string LineMapStyleItem::refusal(StyleAddress const& address, StyleNumber const& number) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_access.pages, address);
    if (!frame) {
        return "There is no such frame for " + textOf(path()) + ".";
    }
    if (mapAt(*frame, address) == nullptr) {
        return textOf(path()) + " takes the number of a line map from 1 to " + std::to_string(frame->lineMaps.size()) +
               " as its one offset; " + std::to_string(address.offset1) + " is none.";
    }
    std::optional<StyleRange> const allowed = range(frame->dataSet.get());
    return allowed ? refusalBy(*allowed, number) : "The frame has no variables for " + textOf(path()) + ".";
}

SetValueReturnCode_e LineMapStyleItem::write(StyleAddress const& address, StyleNumber const& number)
{
    std::shared_ptr<Frame> const frame = frameAt(m_access.pages, address);
    DataSet const* const dataSet = frame->dataSet.get();
    if (numberOf(*mapAt(*frame, address), dataSet) == number.whole) {
        return SetValueReturnCode_Duplicate;
    }
    bool const isWritten = m_access.performer.perform(ChangeLineMaps(
        frame->id, {static_cast<int>(address.offset1)}, [&](LineMap& map) { assign(map, dataSet, number.whole); },
        path()));
    return isWritten ? SetValueReturnCode_Ok : SetValueReturnCode_Refused;
}

long long LineMapDependencyItem::numberOf(LineMap const& map, DataSet const*) const
{
    return map.xDependsOnY ? 1 : 0;
}

std::optional<StyleRange> LineMapDependencyItem::range(DataSet const*) const
{
    return StyleRange::onOff();
}

void LineMapDependencyItem::assign(LineMap& map, DataSet const*, long long number) const
{
    map.xDependsOnY = number != 0;
}

LineMapVariableItem::LineMapVariableItem(Access const& access, StylePath path, UniqueId LineMap::*variable)
    : LineMapStyleItem(access, std::move(path))
    , m_variable(variable)
{
}

long long LineMapVariableItem::numberOf(LineMap const& map, DataSet const* dataSet) const
{
    return dataSet == nullptr ? 0 : dataSet->variableNumber(map.*m_variable);
}

std::optional<StyleRange> LineMapVariableItem::range(DataSet const* dataSet) const
{
    if (dataSet == nullptr || dataSet->variableCount() == 0) {
        return std::nullopt;
    }
    return StyleRange::whole(1, dataSet->variableCount());
}

void LineMapVariableItem::assign(LineMap& map, DataSet const* dataSet, long long number) const
{
    map.*m_variable = dataSet->variable(static_cast<int>(number))->id;
}

} // namespace veldraw::kernel
