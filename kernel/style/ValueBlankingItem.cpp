#include "kernel/style/ValueBlankingItem.h"

#include "kernel/frames/Pages.h"
#include "kernel/operations/SetValueBlanking.h"

#include <limits>

namespace veldraw::kernel {

namespace {

using ConstraintAccess = ValueBlankingItem::Access;

ConstraintAccess onOff(bool BlankingConstraint::*member)
{
    return {
        [](DataSet const&) { return StyleRange::onOff(); },
        [member](BlankingConstraint const& constraint, DataSet const&) { return constraint.*member ? 1.0 : 0.0; },
        [member](BlankingConstraint& constraint, DataSet const&, double number) { constraint.*member = number > 0.0; }};
}

ConstraintAccess limitOfConstraint()
{
    constexpr double most = std::numeric_limits<double>::max();
    return {[](DataSet const&) { return StyleRange::from(-most, most); },
            [](BlankingConstraint const& constraint, DataSet const&) { return constraint.limit; },
            [](BlankingConstraint& constraint, DataSet const&, double number) { constraint.limit = number; }};
}

ConstraintAccess variableOfConstraint()
{
    return {[](DataSet const& dataSet) { return StyleRange::whole(1, dataSet.variableCount()); },
            [](BlankingConstraint const& constraint, DataSet const& dataSet) {
                return static_cast<double>(dataSet.variableNumber(constraint.variable));
            },
            [](BlankingConstraint& constraint, DataSet const& dataSet, double number) {
                constraint.variable = dataSet.variable(static_cast<int>(number))->id;
            }};
}

} // namespace

ValueBlankingItem::ValueBlankingItem(Pages const& pages, OperationPerformer& performer, StylePath path, Access access)
    : StyleItem(std::move(path))
    , m_pages(pages)
    , m_performer(performer)
    , m_access(std::move(access))
{
}

std::vector<std::unique_ptr<StyleItem>> ValueBlankingItem::all(Pages const& pages, OperationPerformer& performer)
{
    std::vector<std::unique_ptr<StyleItem>> items;
    auto const add = [&](StylePath path, Access access) {
        items.push_back(std::make_unique<ValueBlankingItem>(pages, performer, std::move(path), std::move(access)));
    };
    add({"ValueBlanking", "Include"}, {});
    add({"ValueBlanking", "Constraint", "Include"}, onOff(&BlankingConstraint::isActive));
    add({"ValueBlanking", "Constraint", "Above"}, onOff(&BlankingConstraint::isAbove));
    add({"ValueBlanking", "Constraint", "Limit"}, limitOfConstraint());
    add({"ValueBlanking", "Constraint", "Var"}, variableOfConstraint());
    return items;
}

bool ValueBlankingItem::exists(Frame const& frame, StyleAddress const& address) const
{
    if (isSwitch()) {
        return !address.hasOffsets();
    }
    auto const count = static_cast<long long>(frame.valueBlanking.constraints.size());
    return frame.dataSet && address.offset1 >= 1 && address.offset1 <= count &&
           address.offset2 == StyleAddress::noOffset;
}

std::optional<StyleNumber> ValueBlankingItem::read(StyleAddress const& address) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    if (!frame || !exists(*frame, address)) {
        return std::nullopt;
    }
    ValueBlanking const& blanking = frame->valueBlanking;
    if (isSwitch()) {
        return StyleNumber::ofReal(blanking.isOn ? 1.0 : 0.0);
    }
    auto const at = static_cast<std::size_t>(address.offset1 - 1);
    return StyleNumber::ofReal(m_access.numberOf(blanking.constraints[at], *frame->dataSet));
}

std::string ValueBlankingItem::refusal(StyleAddress const& address, StyleNumber const& number) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    if (!frame) {
        return "There is no such frame for " + textOf(path()) + ".";
    }
    if (exists(*frame, address)) {
        return refusalBy(isSwitch() ? StyleRange::onOff() : m_access.range(*frame->dataSet), number);
    }
    return isSwitch() ? textOf(path()) + " exists once in a frame and takes no offset."
                      : textOf(path()) + " takes the number of a constraint from 1 to " +
                            std::to_string(frame->valueBlanking.constraints.size()) + " as its one offset; " +
                            std::to_string(address.offset1) + " is none.";
}

SetValueReturnCode_e ValueBlankingItem::write(StyleAddress const& address, StyleNumber const& number)
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    ValueBlanking blanking = frame->valueBlanking;
    if (isSwitch()) {
        blanking.isOn = number.real > 0.0;
    } else {
        auto const at = static_cast<std::size_t>(address.offset1 - 1);
        m_access.assign(blanking.constraints[at], *frame->dataSet, number.real);
    }
    if (blanking == frame->valueBlanking) {
        return SetValueReturnCode_Duplicate;
    }
    bool const isDone = m_performer.perform(SetValueBlanking(frame->id, std::move(blanking), path()));
    return isDone ? SetValueReturnCode_Ok : SetValueReturnCode_Refused;
}

} // namespace veldraw::kernel
