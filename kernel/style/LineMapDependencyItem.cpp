#include "kernel/style/LineMapDependencyItem.h"

#include "kernel/frames/LineMap.h"

namespace veldraw::kernel {

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

} // namespace veldraw::kernel
