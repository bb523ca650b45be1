#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/StateChangeDependentRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the current frame has a data set.
class VDSDKDIALOGS_DATA_QT_API DataSetExistsRelevance : public StateChangeDependentRelevance
{
public:
    DataSetExistsRelevance();
};

} // namespace veldraw::sdk::ui::propertymanager
