#pragma once

#include "dialogs/bindings/BindingList.h"
#include "dialogs/datasetinfo/DataSetPropertiesManager.h"

class QLabel;
class QString;

namespace Ui {
class DataSetInfo;
}

namespace veldraw::dialogs::data {

/// The page of the data set information window that tells of the data set as a whole.
class DataSetPage
{
public:
    /// The form has to outlive the page.
    explicit DataSetPage(Ui::DataSetInfo& ui);

private:
    using Manager = sdk::ui::propertymanager::DataSetPropertiesManager;

    void show(boost::shared_ptr<Manager::Text> const& text, QLabel* label);
    void explainUnknown(Manager::Rule const& isKnown, QString const& metric, QLabel* name, QLabel* total);

    Manager m_manager;
    sdk::ui::dialogs::propertybindings::BindingList m_bindings;
};

} // namespace veldraw::dialogs::data
