#include "kernel/style/PlotOptionItem.h"

#include "kernel/frames/Pages.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/style/StyleRange.h"

namespace veldraw::kernel {

PlotOptionItem::PlotOptionItem(Pages const& pages, OperationPerformer& performer, PlotOption const& option)
    : StyleItem(option.path())
    , m_pages(pages)
    , m_performer(performer)
    , m_option(option)
{
}

std::optional<StyleNumber> PlotOptionItem::read(StyleAddress const& address) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    if (!frame || address.hasOffsets()) {
        return std::nullopt;
    }
    return StyleNumber::ofWhole((*frame).*m_option.member ? 1 : 0);
}

std::string PlotOptionItem::refusal(StyleAddress const& address, StyleNumber const& number) const
{
    if (!frameAt(m_pages, address)) {
        return "There is no such frame for " + textOf(path()) + ".";
    }
    if (address.hasOffsets()) {
        return textOf(path()) + " exists once in a frame and takes no offset.";
    }
    return refusalBy(StyleRange::onOff(), number);
}

SetValueReturnCode_e PlotOptionItem::write(StyleAddress const& address, StyleNumber const& number)
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    bool const on = number.whole != 0;
    if ((*frame).*m_option.member == on) {
        return SetValueReturnCode_Duplicate;
    }
    bool const isDone = m_performer.perform(SetPlotOption(frame->id, m_option.member, on));
    return isDone ? SetValueReturnCode_Ok : SetValueReturnCode_Refused;
}

} // namespace veldraw::kernel
