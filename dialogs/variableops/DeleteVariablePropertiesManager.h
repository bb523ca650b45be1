#pragma once

#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/property/Property.h"

#include <boost/shared_ptr.hpp>

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// The logic of deleting variables: which are offered, which are selected, and the deletion itself.
class DeleteVariablePropertiesManager
{
public:
    using VariablesListModel = dialogs::propertybindings::models::EnabledVariablesListModel;

    DeleteVariablePropertiesManager();
    virtual ~DeleteVariablePropertiesManager();
    DeleteVariablePropertiesManager(DeleteVariablePropertiesManager const&) = delete;
    DeleteVariablePropertiesManager& operator=(DeleteVariablePropertiesManager const&) = delete;

    /// Numbers of the variables to delete, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> selectedVariables() const;
    /// The enabled variables of the current frame's data set.
    boost::shared_ptr<VariablesListModel> variablesListModel() const;

    /// Deletes the selected variables and tells the user the outcome. Refuses, with a message and without a kernel call,
    /// an empty selection and one of all enabled variables. The selection is not cleared here.
    void deleteSelectedVariables();

private:
    boost::shared_ptr<Property<std::set<int>>> m_selectedVariables;
    boost::shared_ptr<VariablesListModel> m_variablesListModel;
};

} // namespace veldraw::sdk::ui::propertymanager
