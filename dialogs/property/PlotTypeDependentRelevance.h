#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/StateChangeDependentRelevance.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the current frame has exactly one plot type, with a data set or without.
class VDSDKDIALOGS_DATA_QT_API PlotTypeDependentRelevance : public StateChangeDependentRelevance
{
public:
    explicit PlotTypeDependentRelevance(PlotType_e plotType);
};

} // namespace veldraw::sdk::ui::propertymanager
