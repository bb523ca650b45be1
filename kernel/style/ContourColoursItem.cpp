#include "kernel/style/ContourColoursItem.h"

#include "kernel/frames/Pages.h"
#include "kernel/operations/SetContourColours.h"

#include <limits>

namespace veldraw::kernel {

namespace {

using ColoursAccess = ContourColoursItem::Access;

/// A whole number of a member.
template <typename Member>
ColoursAccess wholeNumber(Member ContourColours::*member, StyleRange range)
{
    return {range, [member](ContourColours const& colours) { return static_cast<double>(colours.*member); },
            [member](ContourColours& colours, double number) { colours.*member = static_cast<Member>(number); }};
}

ColoursAccess limit(double ContourColours::*member)
{
    constexpr double most = std::numeric_limits<double>::max();
    return {StyleRange::from(-most, most), [member](ContourColours const& colours) { return colours.*member; },
            [member](ContourColours& colours, double number) { colours.*member = number; }};
}

} // namespace

ContourColoursItem::ContourColoursItem(Pages const& pages, OperationPerformer& performer, StylePath path, Access access)
    : StyleItem(std::move(path))
    , m_pages(pages)
    , m_performer(performer)
    , m_access(std::move(access))
{
}

std::vector<std::unique_ptr<StyleItem>> ContourColoursItem::all(Pages const& pages, OperationPerformer& performer)
{
    std::vector<std::unique_ptr<StyleItem>> items;
    auto const add = [&](char const* name, ColoursAccess access) {
        items.push_back(
            std::make_unique<ContourColoursItem>(pages, performer, StylePath{"FieldContour", name}, std::move(access)));
    };
    add("FixedRange", {StyleRange::onOff(), [](ContourColours const& colours) { return colours.isFixed ? 1.0 : 0.0; },
                       [](ContourColours& colours, double number) { colours.isFixed = number > 0.0; }});
    add("Min", limit(&ContourColours::min));
    add("Max", limit(&ContourColours::max));
    add("Levels", wholeNumber(&ContourColours::levels, StyleRange::whole(0, ContourColours::mostLevels)));
    add("ColorMap", wholeNumber(&ContourColours::map, StyleRange::whole(0, colourMapCount - 1)));
    return items;
}

std::optional<StyleNumber> ContourColoursItem::read(StyleAddress const& address) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    if (!frame || address.hasOffsets()) {
        return std::nullopt;
    }
    return StyleNumber::ofReal(m_access.numberOf(frame->contourColours));
}

std::string ContourColoursItem::refusal(StyleAddress const& address, StyleNumber const& number) const
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    if (!frame) {
        return "There is no such frame for " + textOf(path()) + ".";
    }
    if (address.hasOffsets()) {
        return textOf(path()) + " exists once in a frame and takes no offset.";
    }
    return refusalBy(m_access.range, number);
}

SetValueReturnCode_e ContourColoursItem::write(StyleAddress const& address, StyleNumber const& number)
{
    std::shared_ptr<Frame> const frame = frameAt(m_pages, address);
    ContourColours colours = frame->contourColours;
    m_access.assign(colours, number.real);
    if (colours == frame->contourColours) {
        return SetValueReturnCode_Duplicate;
    }
    bool const isDone = m_performer.perform(SetContourColours(frame->id, colours, path()));
    return isDone ? SetValueReturnCode_Ok : SetValueReturnCode_Refused;
}

} // namespace veldraw::kernel
