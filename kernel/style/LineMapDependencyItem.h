#pragma once

#include "kernel/style/LineMapStyleItem.h"

namespace veldraw::kernel {

/// Which variable of a line map is the function of the other: 0 for y = f(x), 1 for x = f(y).
class LineMapDependencyItem : public LineMapStyleItem
{
public:
    using LineMapStyleItem::LineMapStyleItem;

protected:
    long long numberOf(LineMap const& map, DataSet const* dataSet) const override;
    std::optional<StyleRange> range(DataSet const* dataSet) const override;
    void assign(LineMap& map, DataSet const* dataSet, long long number) const override;
};

} // namespace veldraw::kernel
