#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/StateChangeDependentRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the current frame has a data set and shows it as a field plot, in two or three dimensions.
class VDSDKDIALOGS_DATA_QT_API FieldPlotTypeDependentRelevance : public StateChangeDependentRelevance
{
public:
    FieldPlotTypeDependentRelevance();
};

} // namespace veldraw::sdk::ui::propertymanager
