#include "kernel/style/LineMapVariableItem.h"

#include "kernel/data/DataSet.h"
#include "kernel/frames/LineMap.h"

namespace veldraw::kernel {

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
