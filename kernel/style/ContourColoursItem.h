#pragma once

#include "kernel/frames/ContourColours.h"
#include "kernel/style/StyleItem.h"

#include <functional>
#include <memory>

namespace veldraw::kernel {

class OperationPerformer;

/// A number of the contour's colours of each frame. It lives in the frame itself and is part of a document: a write is a step of the
/// undo history called "Contour Colours".
class ContourColoursItem : public StyleItem
{
public:
    /// How the number is found in the colours and put there.
    struct Access
    {
        StyleRange range;
        std::function<double(ContourColours const&)> numberOf;
        std::function<void(ContourColours&, double)> assign;
    };

    ContourColoursItem(Pages const& pages, OperationPerformer& performer, StylePath path, Access access);

    /// The items below "FieldContour".
    static std::vector<std::unique_ptr<StyleItem>> all(Pages const& pages, OperationPerformer& performer);

    std::optional<StyleNumber> read(StyleAddress const& address) const override;
    std::string refusal(StyleAddress const& address, StyleNumber const& number) const override;
    SetValueReturnCode_e write(StyleAddress const& address, StyleNumber const& number) override;

private:
    Pages const& m_pages;
    OperationPerformer& m_performer;
    Access m_access;
};

} // namespace veldraw::kernel
