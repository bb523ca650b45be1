#pragma once

#include "kernel/frames/PlotOption.h"
#include "kernel/style/StyleItem.h"

#include <memory>

namespace veldraw::kernel {

class OperationPerformer;

/// A plot option of each frame, as 1 or 0. It lives in the frame itself and is part of a document: a write is a
/// step of the undo history.
class PlotOptionItem : public StyleItem
{
public:
    PlotOptionItem(Pages const& pages, OperationPerformer& performer, PlotOption const& option);

    std::optional<StyleNumber> read(StyleAddress const& address) const override;
    std::string refusal(StyleAddress const& address, StyleNumber const& number) const override;
    SetValueReturnCode_e write(StyleAddress const& address, StyleNumber const& number) override;

private:
    Pages const& m_pages;
    OperationPerformer& m_performer;
    PlotOption const& m_option;
};

} // namespace veldraw::kernel
