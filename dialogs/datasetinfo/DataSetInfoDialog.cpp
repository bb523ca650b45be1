#include "dialogs/datasetinfo/DataSetInfoDialog.h"

#include "dialogs/datasetinfo/AuxDataPage.h"
#include "dialogs/datasetinfo/DataSetPage.h"
#include "dialogs/datasetinfo/ZoneVarInfoPage.h"
#include "dialogs/frame/TabWidgetLaunchHelpAction.h"
#include "dialogs/frame/TabWidgetPersistence.h"
#include "ui_DataSetInfoDialog.h"

#include <boost/make_shared.hpp>

#include <map>
#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::propertymanager::DataSetPropertiesManager;
using sdk::ui::propertymanager::RelevanceInterface;

struct DataSetInfoDialog::Impl
{
    explicit Impl(DataSetInfoDialog& dialog);
    ~Impl();

    std::map<QWidget*, std::string> topicByPage() const;
    void letReadOnlyTextsLookPlain();

    Ui::DataSetInfo ui;
    std::unique_ptr<ZoneVarInfoPage> zoneVarInfo;
    std::unique_ptr<DataSetPage> dataSet;
    std::unique_ptr<AuxDataPage> auxData;
};

DataSetInfoDialog::Impl::Impl(DataSetInfoDialog& dialog)
{
    ui.setupUi(&dialog);
    dialog.addPersistentState(boost::make_shared<common::TabWidgetPersistence>(*ui.dataSetInfoTabWidget));
    letReadOnlyTextsLookPlain();
    zoneVarInfo = std::make_unique<ZoneVarInfoPage>(ui, dialog);
    dataSet = std::make_unique<DataSetPage>(ui);
    auxData = std::make_unique<AuxDataPage>(ui);
}

// The bindings end in the order of their creation.
DataSetInfoDialog::Impl::~Impl()
{
    zoneVarInfo.reset();
    dataSet.reset();
    auxData.reset();
}

std::map<QWidget*, std::string> DataSetInfoDialog::Impl::topicByPage() const
{
    return {{ui.zoneVarInfoTab, "data_set_info_zone_variable_info.html"},
            {ui.dataSetTab, "data_set_info_data_set.html"},
            {ui.auxDataTab, "data_set_info_aux_data.html"}};
}

// They can be selected and copied, which a label would not show.
void DataSetInfoDialog::Impl::letReadOnlyTextsLookPlain()
{
    for (QLineEdit* const text : ui.zoneVarInfoTab->findChildren<QLineEdit*>()) {
        if (text == ui.zoneNameLineEdit || text == ui.varNameLineEdit)
            continue;
        QPalette palette = text->palette();
        palette.setColor(QPalette::Base, Qt::transparent);
        text->setPalette(palette);
    }
}

DataSetInfoDialog* DataSetInfoDialog::s_instance = nullptr;

DataSetInfoDialog& DataSetInfoDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new DataSetInfoDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> DataSetInfoDialog::relevance()
{
    return DataSetPropertiesManager::relevance();
}

DataSetInfoDialog::DataSetInfoDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::TabWidgetLaunchHelpAction(m_impl->topicByPage(), m_impl->ui.dataSetInfoTabWidget, *this));
}

DataSetInfoDialog::~DataSetInfoDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
