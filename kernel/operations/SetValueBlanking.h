#pragma once

#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Chooses which cells a frame leaves out by their values. Step "Value Blanking"; event 7 with a path below "ValueBlanking". Values that the
/// active constraints are about are loaded in the zones in sight.
///
/// Refused: a frame without a data set, a variable that there is not, a limit that is not finite, more constraints than there may be.
class SetValueBlanking : public FrameOperation
{
public:
    /// @param style the style value that differs
    SetValueBlanking(UniqueId frame, ValueBlanking blanking,
                     std::vector<std::string> style = {"ValueBlanking", "Constraints"})
        : FrameOperation(frame)
        , m_blanking(std::move(blanking))
        , m_style(std::move(style))
    {
    }

    std::string name() const override { return "Value Blanking"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    bool isLong() const override;
    std::shared_ptr<DeferredLoad> needs() override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    std::shared_ptr<DeferredLoad> values() const;

    ValueBlanking m_blanking;
    std::vector<std::string> m_style;
};

} // namespace veldraw::kernel
