#pragma once

#include "kernel/frames/Cut.h"
#include "kernel/style/StyleItem.h"

#include <functional>
#include <memory>

namespace veldraw::kernel {

class DataSet;
class OperationPerformer;

/// A number of each cut of each frame. It lives in the cut itself; the first offset is the one-based number of the cut. A write
/// is a step of the undo history called "Slice".
class CutStyleItem : public StyleItem
{
public:
    /// How the number is found in a cut and put there. The data set is that of the frame, null when it shows none.
    struct Access
    {
        std::function<std::optional<StyleRange>(DataSet const*)> range; ///< nothing when no number can be written
        std::function<double(Cut const&, DataSet const*)> numberOf;
        std::function<void(Cut&, DataSet const*, double)> assign;
    };

    CutStyleItem(Pages const& pages, OperationPerformer& performer, StylePath path, Access access);

    /// The items below "Cut".
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
