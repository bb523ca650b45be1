#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/style/StyleItem.h"
#include "kernel/style/StyleRange.h"

#include <memory>

namespace veldraw::kernel {

struct LineMap;
class DataSet;
class OperationPerformer;

/// A setting of each line map of each frame. It lives in the line map itself; the first offset is the one-based number
/// of the map. Line maps are part of a document: a write is a step of the undo history called "Line Map".
class LineMapStyleItem : public StyleItem
{
public:
    /// What an item uses to find and change line maps.
    struct Access
    {
        Pages const& pages;
        OperationPerformer& performer;
    };

    LineMapStyleItem(Access const& access, StylePath path);

    std::optional<StyleNumber> read(StyleAddress const& address) const override;
    std::string refusal(StyleAddress const& address, StyleNumber const& number) const override;
    SetValueReturnCode_e write(StyleAddress const& address, StyleNumber const& number) override;

protected:
    /// @param dataSet of the frame that has the map; null when it shows none
    virtual long long numberOf(LineMap const& map, DataSet const* dataSet) const = 0;

    /// The numbers that can be written; nothing when there are none, as without variables. @param dataSet may be null
    virtual std::optional<StyleRange> range(DataSet const* dataSet) const = 0;

    virtual void assign(LineMap& map, DataSet const* dataSet, long long number) const = 0;

private:
    LineMap const* mapAt(Frame const& frame, StyleAddress const& address) const;

    Access m_access;
};

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

/// The number of the variable on one axis of a line map; 0 when the variable has been deleted.
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
