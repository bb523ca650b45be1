#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/CheckButtonPropertyBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/LabelPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/SpinBoxLgIndexPropertyBinding.h"
#include "dialogs/bindings/WidgetUpdateDeferrerOnBusy.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/spreadsheet/ColumnFitter.h"
#include "dialogs/spreadsheet/CornerButtonEventFilter.h"
#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"
#include "dialogs/spreadsheet/EditedCell.h"
#include "dialogs/spreadsheet/EnterKeyTableNavigator.h"
#include "dialogs/spreadsheet/GoToRowAction.h"
#include "dialogs/spreadsheet/LongTableKeyNavigator.h"
#include "dialogs/spreadsheet/LongTableMouseSelector.h"
#include "dialogs/spreadsheet/SelectionText.h"
#include "dialogs/spreadsheet/ShownTableValues.h"
#include "dialogs/spreadsheet/TableWindow.h"
#include "dialogs/spreadsheet/WindowScrollBar.h"
#include "dialogs/spreadsheet/ZoneVarTableItemDelegate.h"
#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"
#include "dialogs/variableops/LoadVariablesDialog.h"
#include "dialogs/widgets/TableCopyHandler.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "ui_DataSpreadsheetDialog.h"

#include <QHeaderView>
#include <QMenu>
#include <QStackedLayout>

#include <boost/pointer_cast.hpp>

#include <string>
#include <vector>

namespace veldraw::sdk::ui::dialogs {

using propertybindings::BindingInterface;
using propertybindings::BindingList;
using propertybindings::ButtonBinding;
using propertybindings::CheckButtonPropertyBinding;
using propertybindings::ComboBoxPropertyBinding;
using propertybindings::LabelPropertyBinding;
using propertybindings::RelevanceApplier;
using propertybindings::SpinBoxLgIndexPropertyBinding;
using propertybindings::WidgetUpdateDeferrerOnBusy;
using propertybindings::models::EditedCell;
using propertybindings::models::QTableModelAdapter;
using propertybindings::models::ZoneVarTableItemDelegate;
using propertybindings::models::ZoneVarTableModelAbstract;
using propertymanager::ColumnFitter;
using propertymanager::CornerButtonEventFilter;
using propertymanager::DataSpreadsheetPropertiesManager;
using propertymanager::EnterKeyTableNavigator;
using propertymanager::GoToRowAction;
using propertymanager::LongTableKeyNavigator;
using propertymanager::LongTableMouseSelector;
using propertymanager::RelevanceInterface;
using propertymanager::SelectionText;
using propertymanager::ShownTableValues;
using propertymanager::TableWindow;
using propertymanager::WindowScrollBar;

namespace {

constexpr int columnWidth = 75;
constexpr int rowsAtFirst = 24;
constexpr int columnsAtFirst = 10;
constexpr int highestIndex = 2147483646;

} // namespace

struct DataSpreadsheetDialog::Impl
{
    using Manager = DataSpreadsheetPropertiesManager;
    using Rule = Manager::Rule;

    explicit Impl(DataSpreadsheetDialog& owner);
    ~Impl();

    void setUpForm();
    void setUpTable();
    void makeLongTablesReachable();
    void finishEditUnlessIn(Manager::TableModel const& next);
    void bindChoices();
    template <typename T, typename L>
    void bindCombo(QComboBox* comboBox, boost::shared_ptr<Property<T>> const& choice, L const& list);
    void bindIndex();
    void bindCorner(QAbstractButton* corner);
    void bindPrecision();
    void bindLoadButton();
    void applyRules();
    void apply(Rule const& rule, std::vector<QObject*> const& widgets, RelevanceApplier::Manifestation manifestation);

    Ui::DataSpreadsheetDialog ui;
    Manager manager;
    BindingList bindings;
    std::vector<std::unique_ptr<RelevanceApplier>> appliers;
    QTableModelAdapter adapter;
    veldraw::ui::TableCopyHandler* copyHandler = nullptr; // these belong to the table
    CornerButtonEventFilter* corner = nullptr;
    GoToRowAction* goToRow = nullptr;
    SignalConnectionCollection connections;
    DataSpreadsheetDialog& dialog;
};

DataSpreadsheetDialog::Impl::Impl(DataSpreadsheetDialog& owner)
    : manager(owner)
    , adapter(*manager.tableModelProxy())
    , dialog(owner)
{
    setUpForm();
    setUpTable();
    bindChoices();
    applyRules();
}

DataSpreadsheetDialog::Impl::~Impl()
{
    // Bindings and rules end in the order of their creation, while the manager and the widgets are still there.
    bindings.clear();
    for (std::unique_ptr<RelevanceApplier>& applier : appliers)
        applier.reset();
    // The table goes before its model: the event filters of the table rely on the model.
    delete ui.dataSpreadsheet_Array_TableView;
}

void DataSpreadsheetDialog::Impl::setUpForm()
{
    ui.setupUi(&dialog);
    // The rules show and hide the pages; in this mode also a page that is not the current one fills its place.
    if (auto* const pages = qobject_cast<QStackedLayout*>(ui.dataSpreadsheet_VariableSelection_Marker->layout()))
        pages->setStackingMode(QStackedLayout::StackAll);
}

void DataSpreadsheetDialog::Impl::setUpTable()
{
    auto* const table = ui.dataSpreadsheet_Array_TableView;
    copyHandler = new veldraw::ui::TableCopyHandler(table);
    table->setItemDelegate(new ZoneVarTableItemDelegate(manager, table));
    table->setModel(&adapter);
    table->setContextMenuPolicy(Qt::CustomContextMenu);
    // A number that is too long for its cell is cut at its end; with word wrap it would be broken at its point.
    table->setWordWrap(false);
    makeLongTablesReachable();
    new EnterKeyTableNavigator(*table);
    new WidgetUpdateDeferrerOnBusy(*table);
    table->verticalHeader()->setDefaultSectionSize(table->verticalHeader()->sectionSizeHint(0));
    table->horizontalHeader()->setDefaultSectionSize(columnWidth);
    new ColumnFitter(*table, [this] { return manager.tableModel(); });
    table->setPreferredNumberOfRows(rowsAtFirst);
    table->setPreferredNumberOfColumns(columnsAtFirst);
    ui.dataSpreadsheet_Index_SpinBox->setRange(1, highestIndex);
    corner = new CornerButtonEventFilter(*table, manager.cornerLabel());
    auto* const shownValues = new ShownTableValues(*table);
    shownValues->follow(*manager.tableModel());
    manager.setBeforeTableChanges([this, shownValues](Manager::TableModel const& next) {
        finishEditUnlessIn(next);
        shownValues->follow(next);
    });
}

void DataSpreadsheetDialog::Impl::makeLongTablesReachable()
{
    auto* const table = ui.dataSpreadsheet_Array_TableView;
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
    auto* const window = new TableWindow(*table, adapter);
    new LongTableKeyNavigator(*window, *table);
    new LongTableMouseSelector(*window, *table);
    new WindowScrollBar(Qt::Vertical, *window, *table);
    new WindowScrollBar(Qt::Horizontal, *window, *table);
    SelectionText::giveTo(*copyHandler, *window, [this](TableWindow::Cell const& cell) {
        auto const values = boost::dynamic_pointer_cast<ZoneVarTableModelAbstract>(manager.tableModel());
        return values ? values->shortestStr(cell) : manager.tableModelProxy()->getStr(cell);
    });
    goToRow = new GoToRowAction(*window, *table);
    table->addAction(goToRow);
}

// An edit belongs to the value that it was begun on. The editor stays open if the next table has that value in the same cell.
void DataSpreadsheetDialog::Impl::finishEditUnlessIn(Manager::TableModel const& next)
{
    auto* const table = ui.dataSpreadsheet_Array_TableView;
    QWidget const* const editor = table->openEditor();
    EditedCell const* const edited = editor ? EditedCell::of(*editor) : nullptr;
    bool const isOfSameSize = next.rowCount() == adapter.totalRows() && next.columnCount() == adapter.totalColumns();
    if (edited && !(isOfSameSize && edited->isAt(edited->cell(), next)))
        table->finishEdit();
}

void DataSpreadsheetDialog::Impl::bindChoices()
{
    bindCombo(ui.dataSpreadsheet_Zone_ComboBox, Manager::spreadsheetZone(), manager.zoneListModel());
    bindCombo(ui.dataSpreadsheet_Variable_ComboBox, Manager::spreadsheetVariable(), manager.variableListModel());
    bindCombo(ui.dataSpreadsheet_Plane_ComboBox, Manager::spreadsheetPlane(), manager.planeListModel());
    bindings.add<CheckButtonPropertyBinding>(ui.dataSpreadsheet_AlterSharedZones_CheckBox,
                                             Manager::spreadsheetAlterShared(), false);
    bindIndex();
    bindCorner(corner->cornerButton());
    bindCombo(ui.dataSpreadsheet_Format_ComboBox, Manager::spreadsheetFormat(), manager.formatListModel());
    bindCombo(ui.dataSpreadsheet_ValueLocation_ComboBox, Manager::spreadsheetValueLocation(),
              manager.valueLocationListModel());
    bindPrecision();
    bindLoadButton();
}

template <typename T, typename L>
void DataSpreadsheetDialog::Impl::bindCombo(QComboBox* comboBox, boost::shared_ptr<Property<T>> const& choice,
                                            L const& list)
{
    bindings.add<ComboBoxPropertyBinding<T>>(comboBox, list, choice, BindingInterface::ModelUpdateDeferredOnBusy);
}

void DataSpreadsheetDialog::Impl::bindIndex()
{
    bindings.add<SpinBoxLgIndexPropertyBinding>(ui.dataSpreadsheet_Index_SpinBox, manager.indexProperty(),
                                                manager.indexCalculator());
}

void DataSpreadsheetDialog::Impl::bindCorner(QAbstractButton* button)
{
    bindings.add<LabelPropertyBinding>(button, manager.cornerLabel(), BindingInterface::UpdateOnIdle);
}

void DataSpreadsheetDialog::Impl::bindPrecision()
{
    bindings.add<SpinBoxLgIndexPropertyBinding>(ui.dataSpreadsheet_Precision_SpinBox, Manager::spreadsheetPrecision(),
                                                boost::shared_ptr<propertymanager::SpinBoxIncDecCalculatorBase>());
}

void DataSpreadsheetDialog::Impl::bindLoadButton()
{
    bindings.add<ButtonBinding>(*ui.dataSpreadsheet_LoadVariables_PushButton, [this] {
        using veldraw::dialogs::data::LoadVariablesDialog;
        LoadVariablesDialog::getInstance(manager.owner(), Manager::spreadsheetZone()->value()).launch();
    });
}

void DataSpreadsheetDialog::Impl::applyRules()
{
    auto const enable = RelevanceApplier::EnableDisable;
    auto const show = RelevanceApplier::ShowHide;
    apply(manager.alterRelevance(), {ui.dataSpreadsheet_AlterSharedZones_CheckBox}, enable);
    apply(manager.planeIndexRelevance(),
          {ui.dataSpreadsheet_Plane_Label, ui.dataSpreadsheet_Plane_ComboBox, ui.dataSpreadsheet_Index_Label,
           ui.dataSpreadsheet_Index_SpinBox},
          enable);
    apply(manager.variableRelevance(), {ui.dataSpreadsheet_Variable_ComboBox, ui.dataSpreadsheet_Variable_Label},
          enable);
    apply(manager.valueLocationRelevance(),
          {ui.dataSpreadsheet_ValueLocation_ComboBox, ui.dataSpreadsheet_ValueLocation_Label}, enable);
    apply(manager.precisionRelevance(), {ui.dataSpreadsheet_Precision_Label, ui.dataSpreadsheet_Precision_SpinBox},
          enable);
    apply(manager.variableRelevance(), {ui.dataSpreadsheet_Variable_Outline}, show);
    apply(manager.valueLocationRelevance(), {ui.dataSpreadsheet_ValueLocation_Outline}, show);
}

void DataSpreadsheetDialog::Impl::apply(Rule const& rule, std::vector<QObject*> const& widgets,
                                        RelevanceApplier::Manifestation manifestation)
{
    appliers.push_back(
        std::make_unique<RelevanceApplier>(rule, widgets, manifestation, BindingInterface::UpdateOnIdle));
}

DataSpreadsheetDialog* DataSpreadsheetDialog::s_instance = nullptr;

DataSpreadsheetDialog& DataSpreadsheetDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new DataSpreadsheetDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> DataSpreadsheetDialog::relevance()
{
    return DataSpreadsheetPropertiesManager::dataSetExists();
}

DataSpreadsheetDialog::DataSpreadsheetDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new veldraw::dialogs::common::LaunchHelpAction(std::string("spreadsheet.html"), *this));
    connect(m_impl->ui.dataSpreadsheet_Array_TableView, SIGNAL(customContextMenuRequested(QPoint const&)), this,
            SLOT(createContextMenu(QPoint const&)));
}

DataSpreadsheetDialog::~DataSpreadsheetDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

void DataSpreadsheetDialog::createContextMenu(QPoint const& pos)
{
    auto* const table = m_impl->ui.dataSpreadsheet_Array_TableView;
    QMenu menu(table);
    QAction* const copy = menu.addAction(QStringLiteral("Copy"));
    copy->setShortcut(QKeySequence::Copy);
    connect(copy, &QAction::triggered, m_impl->copyHandler, &veldraw::ui::TableCopyHandler::copyToClipboard);
    menu.addAction(m_impl->goToRow);
    menu.exec(table->viewport()->mapToGlobal(pos));
}

} // namespace veldraw::sdk::ui::dialogs
