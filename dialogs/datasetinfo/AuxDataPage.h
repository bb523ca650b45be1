#pragma once

#include "dialogs/bindings/BindingList.h"
#include "dialogs/datasetinfo/AuxDataPropertiesManager.h"
#include "dialogs/datasetinfo/AuxDataTableAdapter.h"

namespace Ui {
class DataSetInfo;
}

namespace veldraw::dialogs::data {

/// The page of the data set information window that shows auxiliary data. It begins with the kind of owner that the last page
/// ended with.
class AuxDataPage
{
public:
    /// The form has to outlive the page.
    explicit AuxDataPage(Ui::DataSetInfo& ui);
    ~AuxDataPage();
    AuxDataPage(AuxDataPage const&) = delete;
    AuxDataPage& operator=(AuxDataPage const&) = delete;

private:
    void bindOwner(Ui::DataSetInfo& ui);
    void showTable(Ui::DataSetInfo& ui);

    sdk::ui::propertymanager::AuxDataPropertiesManager m_manager;
    sdk::ui::dialogs::propertybindings::models::AuxDataTableAdapter m_adapter;
    sdk::ui::dialogs::propertybindings::BindingList m_bindings;
};

} // namespace veldraw::dialogs::data
