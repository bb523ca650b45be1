#pragma once

#include "dialogs/property/StateChangeDependentRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the current frame has a data set.
class DataSetExistsRelevance : public StateChangeDependentRelevance
{
public:
    DataSetExistsRelevance();
};

} // namespace veldraw::sdk::ui::propertymanager
