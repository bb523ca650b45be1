#pragma once

#include "dialogs/property/StateChangeDependentRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the current frame has a data set and shows it as a field plot, in two or three dimensions.
class FieldPlotTypeDependentRelevance : public StateChangeDependentRelevance
{
public:
    FieldPlotTypeDependentRelevance();
};

} // namespace veldraw::sdk::ui::propertymanager
