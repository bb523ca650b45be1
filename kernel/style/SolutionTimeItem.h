#pragma once

#include "kernel/style/StyleItem.h"

#include <memory>

namespace veldraw::kernel {

struct Frame;
class OperationPerformer;
class Pages;

/// The solution time of each frame. It lives in the frame itself and is part of a document: a write is a step of the undo history.
class SolutionTimeItem : public StyleItem
{
public:
    SolutionTimeItem(Pages const& pages, OperationPerformer& performer);

    std::optional<StyleNumber> read(StyleAddress const& address) const override;
    std::string refusal(StyleAddress const& address, StyleNumber const& number) const override;
    SetValueReturnCode_e write(StyleAddress const& address, StyleNumber const& number) override;

private:
    std::shared_ptr<Frame> frameAt(StyleAddress const& address) const;

    Pages const& m_pages;
    OperationPerformer& m_performer;
};

} // namespace veldraw::kernel
