#pragma once

#include "kernel/data/ValueBlanking.h"
#include "kernel/style/StyleItem.h"

#include <functional>
#include <memory>

namespace veldraw::kernel {

class DataSet;
class OperationPerformer;

/// A number of the value blanking of each frame: of its switch, or of a constraint, whose one-based number is the offset. It lives in the frame
/// itself and is part of a document: a write is a step of the undo history called "Value Blanking".
class ValueBlankingItem : public StyleItem
{
public:
    /// How the number is found in a constraint and put there.
    struct Access
    {
        std::function<StyleRange(DataSet const&)> range;
        std::function<double(BlankingConstraint const&, DataSet const&)> numberOf;
        std::function<void(BlankingConstraint&, DataSet const&, double)> assign;
    };

    /// @param access empty functions for the switch
    ValueBlankingItem(Pages const& pages, OperationPerformer& performer, StylePath path, Access access);

    /// The items below "ValueBlanking".
    static std::vector<std::unique_ptr<StyleItem>> all(Pages const& pages, OperationPerformer& performer);

    std::optional<StyleNumber> read(StyleAddress const& address) const override;
    std::string refusal(StyleAddress const& address, StyleNumber const& number) const override;
    SetValueReturnCode_e write(StyleAddress const& address, StyleNumber const& number) override;

private:
    bool isSwitch() const { return !m_access.numberOf; }
    bool exists(Frame const& frame, StyleAddress const& address) const;

    Pages const& m_pages;
    OperationPerformer& m_performer;
    Access m_access;
};

} // namespace veldraw::kernel
