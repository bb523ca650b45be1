#include "kernel/style/StyleItem.h"

#include "kernel/frames/Pages.h"
#include "kernel/style/StyleRange.h"

namespace veldraw::kernel {

std::string textOf(StylePath const& path)
{
    std::string text;
    for (std::string const& name : path) {
        if (!text.empty()) {
            text += ", ";
        }
        text += name;
    }
    return text;
}

std::shared_ptr<Frame> frameAt(Pages const& pages, StyleAddress const& address)
{
    return address.frame == 0 ? pages.activeFrame() : pages.frame(address.frame);
}

std::string StyleItem::refusalBy(StyleRange const& range, StyleNumber const& number) const
{
    if (range.contains(number)) {
        return {};
    }
    return "The value " + range.textOfNumber(number) + " is not allowed for " + textOf(m_path) + ": it must be " +
           range.text() + ".";
}

} // namespace veldraw::kernel
