#include "dialogs/variableops/DeleteVariablePropertiesManager.h"

#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

DeleteVariablePropertiesManager::DeleteVariablePropertiesManager()
    : m_selectedVariables(boost::make_shared<Property<std::set<int>>>())
    , m_variablesListModel(boost::make_shared<VariablesListModel>(getEnabledVarsForFrame, false))
{
}

DeleteVariablePropertiesManager::~DeleteVariablePropertiesManager() = default;

boost::shared_ptr<Property<std::set<int>>> DeleteVariablePropertiesManager::selectedVariables() const
{
    return m_selectedVariables;
}

boost::shared_ptr<DeleteVariablePropertiesManager::VariablesListModel>
DeleteVariablePropertiesManager::variablesListModel() const
{
    return m_variablesListModel;
}

void DeleteVariablePropertiesManager::deleteSelectedVariables()
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (m_selectedVariables->value().empty()) {
        VelUtilDialogErrMsg("No variables are selected");
        return;
    }
    toolbox::Set const selection(m_selectedVariables->value());
    toolbox::Set const enabledVariables = getEnabledVars();
    if (!(selection != enabledVariables)) {
        VelUtilDialogErrMsg("Cannot delete the last variable in a data set.");
        return;
    }
    velUtilActionReporter([&selection] { return static_cast<char>(VelUtilDataSetDeleteVar(selection.getRef())); },
                          "Error attempting to delete variable(s)", "Variable deletion successful");
}

} // namespace veldraw::sdk::ui::propertymanager
