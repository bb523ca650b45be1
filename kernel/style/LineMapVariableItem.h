#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/style/LineMapStyleItem.h"

namespace veldraw::kernel {

/// The number of the variable on one axis of a line map; 0 when the variable is not there any more.
class LineMapVariableItem : public LineMapStyleItem
{
public:
    LineMapVariableItem(Access const& access, StylePath path, UniqueId LineMap::*variable);

protected:
    long long numberOf(LineMap const& map, DataSet const* dataSet) const override;
    std::optional<StyleRange> range(DataSet const* dataSet) const override;
    void assign(LineMap& map, DataSet const* dataSet, long long number) const override;

private:
    UniqueId LineMap::*m_variable;
};

} // namespace veldraw::kernel
