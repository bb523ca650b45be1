#pragma once

#include "dialogs/property/StateChangeDependentRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the current frame has a data set and shows it as a line plot.
class LinePlotTypeDependentRelevance : public StateChangeDependentRelevance
{
public:
    LinePlotTypeDependentRelevance();
};

} // namespace veldraw::sdk::ui::propertymanager
