#include "dialogs/property/DataSetExistsRelevance.h"

#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool mayCreateOrEndDataSet(toolbox::StateChangeEventInterface const& event)
{
    return common::isDataRelatedStateChange(event) || common::isNewActiveFrameStateChange(event);
}

} // namespace

DataSetExistsRelevance::DataSetExistsRelevance()
    : StateChangeDependentRelevance(mayCreateOrEndDataSet, currentFrameHasDataSet)
{
}

} // namespace veldraw::sdk::ui::propertymanager
