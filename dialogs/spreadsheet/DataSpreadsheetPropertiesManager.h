#pragma once

#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/models/TableModelProxy.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/IJKSpinBoxIncDecCalculator.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/PropertyProxy.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"

#include <boost/shared_ptr.hpp>

#include <functional>
#include <memory>
#include <string>

namespace veldraw::dialogs::common {
class QtDialogAbstract;
}

namespace veldraw::sdk::ui::propertymanager {

/// The logic of the data spreadsheet: what the user has chosen, kept valid against the data set; the table for it; and
/// which controls apply. It reads and writes no value itself.
///
/// The choices belong to the library, so that they outlive every dialog. Each change of one of them makes another table,
/// at once; changes of the kernel's structure do so at the next idle moment.
class DataSpreadsheetPropertiesManager
{
public:
    using Owner = veldraw::dialogs::common::QtDialogAbstract;
    using ZonesListModel = dialogs::propertybindings::models::ZoneListModel;
    using VariablesListModel = dialogs::propertybindings::models::EnabledVariablesListModel;
    template <typename T>
    using ChoiceListModel = dialogs::propertybindings::models::PremappedListModel<T>;
    using TableModel = dialogs::propertybindings::models::TableModelInterface;
    using TableModelProxy = dialogs::propertybindings::models::TableModelProxy;
    using Rule = boost::shared_ptr<RelevanceInterface const>;

    // ---- shared by all managers ------------------------------------------------------------------------------------
    /// One-based numbers.
    static boost::shared_ptr<Property<int>> spreadsheetZone();
    static boost::shared_ptr<Property<int>> spreadsheetVariable();
    /// The fixed direction of an ordered zone, and a one-based index for each direction.
    static boost::shared_ptr<Property<IJKPlanes_e>> spreadsheetPlane();
    static boost::shared_ptr<Property<long long>> spreadsheetIIndex();
    static boost::shared_ptr<Property<long long>> spreadsheetJIndex();
    static boost::shared_ptr<Property<long long>> spreadsheetKIndex();
    /// Whether an edit reaches the zones that share the values, too.
    static boost::shared_ptr<Property<bool>> spreadsheetAlterShared();
    /// How cells are shown, and with how many digits.
    static boost::shared_ptr<Property<NumberFormat_e>> spreadsheetFormat();
    static boost::shared_ptr<Property<long long>> spreadsheetPrecision();
    /// Which values a zone of mixed locations shows.
    static boost::shared_ptr<Property<ValueLocation_e>> spreadsheetValueLocation();
    /// True while there is a data set. Always the same rule.
    static Rule dataSetExists();

    /// @param owner the dialog that this belongs to
    /// @throws IOException, InterruptedException when the zone's dimensions cannot be had
    explicit DataSpreadsheetPropertiesManager(Owner& owner);
    virtual ~DataSpreadsheetPropertiesManager();
    DataSpreadsheetPropertiesManager(DataSpreadsheetPropertiesManager const&) = delete;
    DataSpreadsheetPropertiesManager& operator=(DataSpreadsheetPropertiesManager const&) = delete;

    /// Brings the choices in line with the data set and makes the table for them.
    /// @throws IOException, InterruptedException when the zone's dimensions cannot be had; the old table stays, and changes
    ///         of the choices aren't followed until the data set has changed
    void update();

    /// Has something done before another table, or the same one in another state, takes the place of the shown one.
    /// @param action gets the table that will be shown
    void setBeforeTableChanges(std::function<void(TableModel const& next)> const& action)
    {
        m_beforeTableChanges = action;
    }

    // ---- each manager's own ----------------------------------------------------------------------------------------
    Owner& owner() const { return m_owner; }
    boost::shared_ptr<ZonesListModel> zoneListModel() const { return m_zoneListModel; }
    boost::shared_ptr<VariablesListModel> variableListModel() const { return m_variableListModel; }
    boost::shared_ptr<ChoiceListModel<IJKPlanes_e>> planeListModel() const { return m_planeListModel; }
    /// What a view shows; lives as long as the manager.
    boost::shared_ptr<TableModelProxy> tableModelProxy() const { return m_tableModelProxy; }
    /// The table that the proxy stands for at the moment.
    boost::shared_ptr<TableModel> tableModel() const { return m_tableModel; }
    boost::shared_ptr<ChoiceListModel<NumberFormat_e>> formatListModel() const { return m_formatListModel; }
    boost::shared_ptr<ChoiceListModel<ValueLocation_e>> valueLocationListModel() const
    {
        return m_valueLocationListModel;
    }
    /// Steps the index.
    boost::shared_ptr<IJKSpinBoxIncDecCalculator> indexCalculator() const { return m_indexCalculator; }
    /// The index of the current plane's direction.
    boost::shared_ptr<PropertyProxy<long long>> indexProperty() const { return m_indexProperty; }
    /// What rows and columns are, for the corner between their names.
    boost::shared_ptr<Property<std::string>> cornerLabel() const { return m_cornerLabel; }

    Rule alterRelevance() const { return m_alterRelevance; }
    Rule planeIndexRelevance() const { return m_planeIndexRelevance; }
    Rule variableRelevance() const { return m_variableRelevance; }
    Rule precisionRelevance() const { return m_precisionRelevance; }
    Rule valueLocationRelevance() const { return m_valueLocationRelevance; }
    Rule lineOrFiniteElementRelevance() const { return m_lineOrFiniteElementRelevance; }

private:
    void makeListModels();
    void connectToChoices();
    void bringInLine();
    void pointIndexAtPlane();
    void show(boost::shared_ptr<TableModel> const& model);
    /// Only while there are a zone and a variable to show.
    boost::shared_ptr<TableModel> makeTableModel() const;

    Owner& m_owner;
    // In this order; released in the reverse one.
    boost::shared_ptr<ZonesListModel> m_zoneListModel;
    boost::shared_ptr<VariablesListModel> m_variableListModel;
    boost::shared_ptr<ChoiceListModel<IJKPlanes_e>> m_planeListModel;
    boost::shared_ptr<TableModelProxy> m_tableModelProxy;
    boost::shared_ptr<TableModel> m_tableModel;
    boost::shared_ptr<ChoiceListModel<NumberFormat_e>> m_formatListModel;
    boost::shared_ptr<ChoiceListModel<ValueLocation_e>> m_valueLocationListModel;
    boost::shared_ptr<IJKSpinBoxIncDecCalculator> m_indexCalculator;
    boost::shared_ptr<PropertyProxy<long long>> m_indexProperty;
    boost::shared_ptr<Property<std::string>> m_cornerLabel;
    Rule m_alterRelevance;
    Rule m_planeIndexRelevance;
    Rule m_variableRelevance;
    Rule m_precisionRelevance;
    Rule m_valueLocationRelevance;
    Rule m_lineOrFiniteElementRelevance;
    std::function<void(TableModel const& next)> m_beforeTableChanges; // empty: nobody asked
    std::unique_ptr<common::OnIdleAfterStateChangeActionPerformer> m_updatePerformer;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
