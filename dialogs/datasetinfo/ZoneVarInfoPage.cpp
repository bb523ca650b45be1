#include "dialogs/datasetinfo/ZoneVarInfoPage.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/LabelPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/SimpleToolTipProvider.h"
#include "dialogs/datasetinfo/NameDelegate.h"
#include "dialogs/datasetinfo/NameFieldBinding.h"
#include "dialogs/datasetinfo/NoItemSelectedRelevance.h"
#include "dialogs/datasetinfo/StoredSelections.h"
#include "dialogs/datasetinfo/TimeStrandDecorator.h"
#include "dialogs/datasetinfo/TransientZoneRelevance.h"
#include "dialogs/datasetinfo/ZoneDimensionText.h"
#include "dialogs/datasetinfo/ZoneKDimensionRelevance.h"
#include "dialogs/datasetinfo/ZoneMetricDeferredRelevance.h"
#include "dialogs/datasetinfo/ZoneVarInfoPropertiesManager.h"
#include "dialogs/models/EnforcedSelectionListPropertyDecorator.h"
#include "dialogs/property/InvertingRelevance.h"
#include "dialogs/property/PreMappedDecorator.h"
#include "dialogs/variableops/LoadVariablesDialog.h"
#include "ui_DataSetInfoDialog.h"

#include <QItemSelectionModel>
#include <QRegularExpression>

#include <boost/make_shared.hpp>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::LabelPropertyBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::dialogs::propertybindings::NameDelegate;
using sdk::ui::dialogs::propertybindings::NameFieldBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::SimpleToolTipProvider;
using sdk::ui::dialogs::propertybindings::TextFieldPropertyBinding;
using sdk::ui::propertymanager::EditedName;
using sdk::ui::propertymanager::InvertingRelevance;
using sdk::ui::propertymanager::NamedThings;
using sdk::ui::propertymanager::NoItemSelectedRelevance;
using sdk::ui::propertymanager::RelevanceInterface;
using sdk::ui::propertymanager::TimeStrandDecorator;
using sdk::ui::propertymanager::TransientZoneRelevance;
using sdk::ui::propertymanager::UIStylePropertyAbstract;
using sdk::ui::propertymanager::ZoneDimensionText;
using sdk::ui::propertymanager::ZoneKDimensionRelevance;
using sdk::ui::propertymanager::ZoneMetricDeferredRelevance;
using sdk::ui::propertymanager::ZoneVarInfoPropertiesManager;

namespace {

// The status as it is told to the user.
boost::shared_ptr<PropertyAbstract<std::string>>
statusText(boost::shared_ptr<UIStylePropertyAbstract<VarStatus_e>> const& status)
{
    return boost::make_shared<PreMappedDecorator<VarStatus_e>>(status, PreMappedDecorator<VarStatus_e>::Items{
                                                                           {VarStatus_Passive, "Passive"},
                                                                           {VarStatus_Custom, "Custom"},
                                                                           {VarStatus_Map, "Map"},
                                                                           {VarStatus_Loaded, "Loaded"},
                                                                           {VarStatus_NotLoaded, "Not Loaded"},
                                                                       });
}

QString deferredMetricTip(QLabel const& label)
{
    QString const metric = label.text().trimmed().remove(QRegularExpression(QStringLiteral(":$")));
    return QStringLiteral("<html>Loading of the %1 metric is deferred until first used to improve performance.</html>")
        .arg(metric);
}

// The arrow keys go on from the selected row, also after the list has become another one.
void makeSelectedRowCurrent(QListView& view)
{
    QItemSelectionModel& rows = *view.selectionModel();
    QModelIndexList const selected = rows.selectedIndexes();
    if (selected.size() == 1 && rows.currentIndex() != selected.front())
        rows.setCurrentIndex(selected.front(), QItemSelectionModel::NoUpdate);
}

} // namespace

struct ZoneVarInfoPage::Impl
{
    Impl(Ui::DataSetInfo& form, QWidget& owner);

    void bindLists();
    void bindList(QListView& view, NamedThings::List const& list,
                  boost::shared_ptr<UIStylePropertyAbstract<std::set<int>>> const& selection,
                  NamedThings const& things);
    void bindZone();
    void bindDimensions();
    void bindVariable();
    void bindRanges();
    void bindLabel(QLabel& label, boost::shared_ptr<PropertyAbstract<std::string> const> const& text);
    void bindText(QLineEdit& field, boost::shared_ptr<PropertyAbstract<std::string>> const& text);
    void applyRelevances();
    void enableWhile(boost::shared_ptr<RelevanceInterface const> const& rule, std::vector<QObject*> const& widgets);
    void disableWhile(boost::shared_ptr<RelevanceInterface const> const& rule, std::vector<QObject*> const& widgets);
    void explainDeferredDimensions();
    void loadVariables();
    std::vector<QObject*> zoneRows() const;
    std::vector<QObject*> variableRows() const;

    struct DimensionRow
    {
        QLabel* label;
        QLineEdit* field;
    };

    Ui::DataSetInfo& ui;
    QWidget& dialog;
    std::array<DimensionRow, 3> const dimensionRows;
    ZoneVarInfoPropertiesManager manager;
    StoredSelections selections;
    BindingList bindings;
};

ZoneVarInfoPage::Impl::Impl(Ui::DataSetInfo& form, QWidget& owner)
    : ui(form)
    , dialog(owner)
    , dimensionRows{{{ui.zoneIDimensionLabel, ui.zoneIDimensionLineEdit},
                     {ui.zoneJDimensionLabel, ui.zoneJDimensionLineEdit},
                     {ui.zoneKDimensionLabel, ui.zoneKDimensionLineEdit}}}
    , selections(manager)
{
    bindLists();
    bindZone();
    bindDimensions();
    bindVariable();
    bindRanges();
    bindings.add<ButtonBinding>(*ui.loadVariablesPushButton, [this] { loadVariables(); });
    applyRelevances();
    explainDeferredDimensions();
}

void ZoneVarInfoPage::Impl::bindLists()
{
    bindList(*ui.selectedZonesList, manager.zoneListModel(), manager.selectedZones(),
             NamedThings::zones(manager.zoneListModel()));
    bindList(*ui.selectedVarsList, manager.variableListModel(), manager.selectedVars(),
             NamedThings::variables(manager.variableListModel()));
}

void ZoneVarInfoPage::Impl::bindList(QListView& view, NamedThings::List const& list,
                                     boost::shared_ptr<UIStylePropertyAbstract<std::set<int>>> const& selection,
                                     NamedThings const& things)
{
    auto* const delegate = new NameDelegate(view, things);
    view.setItemDelegate(delegate);
    // Undeferred, so that the view shows what becomes of an empty selection.
    auto binding = std::make_unique<ListViewPropertyBinding>(
        &view, list, boost::make_shared<EnforcedSelectionListPropertyDecorator<int>>(selection, list),
        BindingInterface::ModelUpdateUndeferred);
    binding->setSelectionMode(QAbstractItemView::SingleSelection);
    bindings.adopt(std::move(binding));
    delegate->follow(*view.model());
    QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, &view,
                     [&view] { makeSelectedRowCurrent(view); });
    makeSelectedRowCurrent(view);
}

void ZoneVarInfoPage::Impl::bindLabel(QLabel& label, boost::shared_ptr<PropertyAbstract<std::string> const> const& text)
{
    bindings.add<LabelPropertyBinding>(&label, text, BindingInterface::UpdateOnIdle);
}

// The start of a long text stays in view.
void ZoneVarInfoPage::Impl::bindText(QLineEdit& field, boost::shared_ptr<PropertyAbstract<std::string>> const& text)
{
    auto binding = std::make_unique<TextFieldPropertyBinding<std::string>>(&field, text);
    binding->setDisplayMode(0);
    bindings.adopt(std::move(binding));
}

void ZoneVarInfoPage::Impl::bindZone()
{
    bindings.add<NameFieldBinding>(
        ui.zoneNameLineEdit,
        boost::make_shared<EditedName>(manager.zoneName(), NamedThings::zones(manager.zoneListModel())));
    bindLabel(*ui.zoneTypeLabel, manager.zoneTypeLabel());
    bindText(*ui.zoneTypeLineEdit, manager.zoneType());
    bindLabel(*ui.zoneSolutionTimeLabel, manager.solutionTimeLabel());
    bindings.add<TextFieldPropertyBinding<double>>(ui.zoneSolutionTimeLineEdit, manager.zoneTime().solutionTime());
    bindLabel(*ui.zoneStrandIDLabel, manager.timeStrandLabel());
    bindText(*ui.zoneStrandIDLineEdit, boost::make_shared<TimeStrandDecorator>(manager.zoneTime().strand()));
}

void ZoneVarInfoPage::Impl::bindDimensions()
{
    for (std::size_t place = 0; place < dimensionRows.size(); ++place) {
        bindLabel(*dimensionRows[place].label, manager.zoneDimensionLabels().label(place));
        bindText(*dimensionRows[place].field,
                 boost::make_shared<ZoneDimensionText>(manager.zoneDimensions().dimension(place),
                                                       manager.zoneDimensionLabels().label(place)));
    }
}

void ZoneVarInfoPage::Impl::bindVariable()
{
    bindings.add<NameFieldBinding>(
        ui.varNameLineEdit,
        boost::make_shared<EditedName>(manager.varName(), NamedThings::variables(manager.variableListModel())));
    bindLabel(*ui.varTypeLabel, manager.varTypeLabel());
    bindText(*ui.varTypeLineEdit, manager.varType());
    bindLabel(*ui.varLocationLabel, manager.varLocationLabel());
    bindText(*ui.varLocationLineEdit, manager.varLocation());
    bindText(*ui.varStatusLineEdit, statusText(manager.varStatus()));
}

void ZoneVarInfoPage::Impl::bindRanges()
{
    bindLabel(*ui.varSelectedRangeLabel, manager.selectedRangeTitle());
    bindLabel(*ui.varSelectedMinLabel, manager.selectedMinLabel());
    bindText(*ui.varSelectedMinLineEdit, manager.selectedMinText());
    bindLabel(*ui.varSelectedMaxLabel, manager.selectedMaxLabel());
    bindText(*ui.varSelectedMaxLineEdit, manager.selectedMaxText());
    bindLabel(*ui.varActiveLabel, manager.activeRangeTitle());
    bindLabel(*ui.varActiveMinLabel, manager.activeMinLabel());
    bindText(*ui.varActiveMinLineEdit, manager.activeMinText());
    bindLabel(*ui.varActiveMaxLabel, manager.activeMaxLabel());
    bindText(*ui.varActiveMaxLineEdit, manager.activeMaxText());
}

void ZoneVarInfoPage::Impl::enableWhile(boost::shared_ptr<RelevanceInterface const> const& rule,
                                        std::vector<QObject*> const& widgets)
{
    bindings.add<RelevanceApplier>(rule, widgets, RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
}

void ZoneVarInfoPage::Impl::disableWhile(boost::shared_ptr<RelevanceInterface const> const& rule,
                                         std::vector<QObject*> const& widgets)
{
    enableWhile(boost::make_shared<InvertingRelevance>(rule), widgets);
}

std::vector<QObject*> ZoneVarInfoPage::Impl::zoneRows() const
{
    return {ui.zoneNameLabel,         ui.zoneNameLineEdit,        ui.zoneTypeLabel,       ui.zoneTypeLineEdit,
            ui.zoneIDimensionLabel,   ui.zoneIDimensionLineEdit,  ui.zoneJDimensionLabel, ui.zoneJDimensionLineEdit,
            ui.zoneKDimensionLabel,   ui.zoneKDimensionLineEdit,  ui.zoneStrandIDLabel,   ui.zoneStrandIDLineEdit,
            ui.zoneSolutionTimeLabel, ui.zoneSolutionTimeLineEdit};
}

std::vector<QObject*> ZoneVarInfoPage::Impl::variableRows() const
{
    return {ui.varNameLabel,          ui.varNameLineEdit,        ui.varTypeLabel,        ui.varTypeLineEdit,
            ui.varLocationLabel,      ui.varLocationLineEdit,    ui.varStatusLabel,      ui.varStatusLineEdit,
            ui.varSelectedRangeLabel, ui.varSelectedMinLabel,    ui.varSelectedMaxLabel, ui.varSelectedMinLineEdit,
            ui.varActiveLabel,        ui.varSelectedMaxLineEdit, ui.varActiveMinLabel,   ui.varActiveMaxLabel,
            ui.varActiveMinLineEdit,  ui.varActiveMaxLineEdit};
}

// What is told of a variable is told of it in a zone.
void ZoneVarInfoPage::Impl::applyRelevances()
{
    auto const noZone = boost::make_shared<NoItemSelectedRelevance>(manager.selectedZones());
    disableWhile(noZone, zoneRows());
    disableWhile(noZone, variableRows());
    disableWhile(boost::make_shared<NoItemSelectedRelevance>(manager.selectedVars()), variableRows());
    enableWhile(boost::make_shared<ZoneKDimensionRelevance>(manager.selectedZones()),
                {ui.zoneKDimensionLabel, ui.zoneKDimensionLineEdit});
    enableWhile(boost::make_shared<TransientZoneRelevance>(manager.selectedZones()),
                {ui.zoneSolutionTimeLabel, ui.zoneSolutionTimeLineEdit, ui.zoneStrandIDLabel, ui.zoneStrandIDLineEdit});
}

void ZoneVarInfoPage::Impl::explainDeferredDimensions()
{
    for (std::size_t place = 0; place < dimensionRows.size(); ++place) {
        QLabel* const label = dimensionRows[place].label;
        std::vector<QObject*> const row{label, dimensionRows[place].field};
        auto const isKnown = boost::make_shared<InvertingRelevance>(
            boost::make_shared<ZoneMetricDeferredRelevance>(manager.selectedZones(), place));
        enableWhile(isKnown, row);
        SimpleToolTipProvider::installDynamicDisabledToolTip(isKnown, row,
                                                             [label] { return deferredMetricTip(*label); });
    }
}

// In the dialog's own parent: a load dialog that is made here serves the whole application.
void ZoneVarInfoPage::Impl::loadVariables()
{
    std::set<int> const zones = manager.selectedZones()->value();
    QWidget& parent = dialog.parentWidget() ? *dialog.parentWidget() : dialog;
    LoadVariablesDialog::getInstance(parent, zones.empty() ? 1 : *zones.begin()).launch();
}

ZoneVarInfoPage::ZoneVarInfoPage(Ui::DataSetInfo& ui, QWidget& dialog)
    : m_impl(std::make_unique<Impl>(ui, dialog))
{
}

ZoneVarInfoPage::~ZoneVarInfoPage() = default;

} // namespace veldraw::dialogs::data
