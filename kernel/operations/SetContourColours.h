#pragma once

#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Chooses the colours of the contour of a frame. Step "Contour Colours"; event 7 with a path below "FieldContour".
///
/// Refused: limits that are not finite or not in order, a number of levels or a colour map that there is not.
class SetContourColours : public FrameOperation
{
public:
    /// @param style the style value that differs
    SetContourColours(UniqueId frame, ContourColours const& colours,
                      std::vector<std::string> style = {"FieldContour", "Colors"})
        : FrameOperation(frame)
        , m_colours(colours)
        , m_style(std::move(style))
    {
    }

    std::string name() const override { return "Contour Colours"; }
    CommandText command() const override;
    std::string reasonAgainst() const override { return m_colours.refusal(); }
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    ContourColours m_colours;
    std::vector<std::string> m_style;
};

} // namespace veldraw::kernel
