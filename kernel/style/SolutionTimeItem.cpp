#include "kernel/style/SolutionTimeItem.h"

#include "kernel/frames/Pages.h"
#include "kernel/operations/SetSolutionTime.h"

#include <limits>

namespace veldraw::kernel {

SolutionTimeItem::SolutionTimeItem(Pages const& pages, OperationPerformer& performer)
    : StyleItem({"SolutionTime"})
    , m_pages(pages)
    , m_performer(performer)
{
}

std::shared_ptr<Frame> SolutionTimeItem::frameAt(StyleAddress const& address) const
{
    return address.frame == 0 ? m_pages.activeFrame() : m_pages.frame(address.frame);
}

std::optional<StyleNumber> SolutionTimeItem::read(StyleAddress const& address) const
{
    std::shared_ptr<Frame> const frame = frameAt(address);
    return !frame || address.hasOffsets() ? std::nullopt : std::optional(StyleNumber::ofReal(frame->solutionTime));
}

std::string SolutionTimeItem::refusal(StyleAddress const& address, StyleNumber const& number) const
{
    if (!frameAt(address)) {
        return "There is no such frame for " + textOf(path()) + ".";
    }
    if (address.hasOffsets()) {
        return textOf(path()) + " exists once in a frame and takes no offset.";
    }
    constexpr double most = std::numeric_limits<double>::max();
    return refusalBy(StyleRange::from(-most, most), number);
}

SetValueReturnCode_e SolutionTimeItem::write(StyleAddress const& address, StyleNumber const& number)
{
    std::shared_ptr<Frame> const frame = frameAt(address);
    if (!(frame->solutionTime < number.real) && !(frame->solutionTime > number.real)) {
        return SetValueReturnCode_Duplicate;
    }
    bool const isDone = m_performer.perform(SetSolutionTime(frame->id, number.real));
    return isDone ? SetValueReturnCode_Ok : SetValueReturnCode_Refused;
}

} // namespace veldraw::kernel
