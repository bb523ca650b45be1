#include "dialogs/datasetinfo/AuxDataPage.h"

#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/WidgetUpdateDeferrerOnBusy.h"
#include "dialogs/datasetinfo/NamedRowsSelection.h"
#include "dialogs/widgets/TableCopyHandler.h"
#include "ui_DataSetInfoDialog.h"

#include <QHeaderView>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::NamedRowsSelection;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::WidgetUpdateDeferrerOnBusy;

namespace {

AuxDataLocation_e& lastLocation()
{
    static AuxDataLocation_e location = AuxDataLocation_Zone;
    return location;
}

} // namespace

AuxDataPage::AuxDataPage(Ui::DataSetInfo& ui)
    : m_adapter(*m_manager.auxDataTableProxy())
{
    m_manager.auxDataLocation()->setValue(lastLocation());
    bindOwner(ui);
    showTable(ui);
}

AuxDataPage::~AuxDataPage()
{
    lastLocation() = m_manager.auxDataLocation()->value();
}

void AuxDataPage::bindOwner(Ui::DataSetInfo& ui)
{
    m_bindings.add<ComboBoxPropertyBinding<AuxDataLocation_e>>(
        ui.auxDataLocationComboBox, m_manager.auxDataLocationList(), m_manager.auxDataLocation(),
        BindingInterface::ModelUpdateDeferredOnBusy);
    m_bindings.add<ComboBoxPropertyBinding<int>>(ui.zoneAuxDataSelectedZoneComboBox, m_manager.auxDataObjectList(),
                                                 m_manager.auxDataObject(),
                                                 BindingInterface::ModelUpdateDeferredOnBusy);
    m_bindings.add<RelevanceApplier>(m_manager.auxDataObjectRelevance(), ui.zoneAuxDataSelectedZoneComboBox,
                                     RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
}

void AuxDataPage::showTable(Ui::DataSetInfo& ui)
{
    QTableView* const table = ui.auxDataTableView;
    table->setModel(&m_adapter);
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->hide();
    new NamedRowsSelection(*table);
    new WidgetUpdateDeferrerOnBusy(*table);
    new veldraw::ui::TableCopyHandler(table);
}

} // namespace veldraw::dialogs::data
