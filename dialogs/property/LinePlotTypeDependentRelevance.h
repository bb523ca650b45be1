#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/StateChangeDependentRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the current frame has a data set and shows it as a line plot.
class VDSDKDIALOGS_DATA_QT_API LinePlotTypeDependentRelevance : public StateChangeDependentRelevance
{
public:
    LinePlotTypeDependentRelevance();
};

} // namespace veldraw::sdk::ui::propertymanager
