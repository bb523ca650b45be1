#include "dialogs/datasetinfo/DataSetPage.h"

#include "dialogs/bindings/LabelPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/SimpleToolTipProvider.h"
#include "dialogs/bindings/TextEditPropertyBinding.h"
#include "dialogs/datasetinfo/EditedTitle.h"
#include "dialogs/datasetinfo/NameFieldBinding.h"
#include "ui_DataSetInfoDialog.h"

#include <boost/make_shared.hpp>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::LabelPropertyBinding;
using sdk::ui::dialogs::propertybindings::NameFieldBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::SimpleToolTipProvider;
using sdk::ui::dialogs::propertybindings::TextEditPropertyBinding;
using sdk::ui::propertymanager::EditedTitle;

DataSetPage::DataSetPage(Ui::DataSetInfo& ui)
{
    m_bindings.add<NameFieldBinding>(ui.dataSetTitleLineEdit,
                                     boost::make_shared<EditedTitle>(m_manager.dataSetTitle()));
    m_bindings.add<TextEditPropertyBinding>(ui.dataFilesTextEdit, m_manager.dataFiles(), true);
    show(m_manager.numZones(), ui.numZonesLabel);
    show(m_manager.lockedBy(), ui.lockedByLabel);
    show(m_manager.numVars(), ui.numVarsLabel);
    show(m_manager.totalElements(), ui.totalElementsLabel);
    show(m_manager.totalPoints(), ui.totalPointsLabel);
    explainUnknown(m_manager.totalElementsKnown(), QStringLiteral("Total Elements"), ui.label_7, ui.totalElementsLabel);
    explainUnknown(m_manager.totalPointsKnown(), QStringLiteral("Total Points"), ui.label_9, ui.totalPointsLabel);
}

void DataSetPage::show(boost::shared_ptr<Manager::Text> const& text, QLabel* label)
{
    m_bindings.add<LabelPropertyBinding>(label, text, BindingInterface::UpdateOnIdle);
}

void DataSetPage::explainUnknown(Manager::Rule const& isKnown, QString const& metric, QLabel* name, QLabel* total)
{
    m_bindings.add<RelevanceApplier>(isKnown, name, total, RelevanceApplier::EnableDisable,
                                     BindingInterface::UpdateOnIdle);
    QString const reason =
        QStringLiteral("<html>Loading of the %1 metric for one or more zones is deferred until first used "
                       "to improve performance.</html>")
            .arg(metric, 0, QLatin1Char(' '));
    SimpleToolTipProvider::installDisabledToolTip(isKnown, {name, total}, reason);
}

} // namespace veldraw::dialogs::data
