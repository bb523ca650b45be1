#pragma once

#include "app/plot/FieldLook.h"
#include "kernel/frames/Frame.h"

#include <QStringList>

#include <vector>

namespace veldraw::app {

/// What the options of a frame make of the colours of its field plot.
class ContourFlood
{
public:
    /// Sets the parts of @p look that tell of the contour; they stay as they are where there is nothing to be shown.
    /// @param zones one-based numbers of those that are shown
    static void set(FieldLook& look, kernel::Frame const& frame, std::vector<int> const& zones);

    /// What a reader of the picture has to know of its colours, a short sentence each.
    static QStringList remarks(FieldLook const& look);
};

} // namespace veldraw::app
