#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"

#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/property/AllowAnyValueValidator.h"
#include "dialogs/property/DataSetExistsRelevance.h"
#include "dialogs/property/FormattingPrecisionValidator.h"
#include "dialogs/spreadsheet/FEZoneVarTableModel.h"
#include "dialogs/spreadsheet/FieldLocation.h"
#include "dialogs/spreadsheet/IJKLineZoneVarTableModel.h"
#include "dialogs/spreadsheet/OrderedZoneVarTableModel.h"
#include "dialogs/spreadsheet/SpreadsheetRules.h"
#include "dialogs/spreadsheet/SpreadsheetZone.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

using namespace dialogs::propertybindings::models;

namespace {

// A table without rows and columns, shown while there is no zone or no variable.
class EmptyTableModel : public TableModelAbstract
{
public:
    unsigned long long columnCount() const override { return 0; }
    unsigned long long rowCount() const override { return 0; }
    std::string columnName(unsigned long long) const override { return std::string(); }
    std::string rowName(unsigned long long) const override { return std::string(); }
    std::string getStr(ModelIndex const&) const override { return std::string(); }
};

// The choices live as long as the library: each new dialog shows the last ones.
auto const theZone = boost::make_shared<Property<int>>(1);
auto const theVariable = boost::make_shared<Property<int>>(1);
auto const thePlane = boost::make_shared<Property<IJKPlanes_e>>(IJKPlanes_K);
auto const theIIndex = boost::make_shared<Property<long long>>(1);
auto const theJIndex = boost::make_shared<Property<long long>>(1);
auto const theKIndex = boost::make_shared<Property<long long>>(1);
auto const theAlterShared = boost::make_shared<Property<bool>>(false);
auto const theFormat = boost::make_shared<Property<NumberFormat_e>>(NumberFormat_BestFloat);
auto const thePrecision =
    boost::make_shared<Property<long long>>(3, boost::make_shared<FormattingPrecisionValidator>());
auto const theValueLocation = boost::make_shared<Property<ValueLocation_e>>(ValueLocation_Nodal);

bool hasDataSet()
{
    return DataSpreadsheetPropertiesManager::dataSetExists()->isRelevant();
}

// @return whether there is anything to select
bool correctSelection(Property<int>& choice, Set const& members)
{
    if (!members.isEmpty() && !members.isMember(choice.value()))
        choice.setValue(members.members().front());
    return !members.isEmpty();
}

// @return whether there are a zone and a variable to show
bool correctSelections()
{
    bool const hasZone = correctSelection(*theZone, getEnabledZones());
    bool const hasVariable = correctSelection(*theVariable, getEnabledVars());
    return hasZone && hasVariable;
}

void clampIndices()
{
    PlaneLimits limits;
    if (!planeLimits(theZone->value(), theVariable->value(), limits))
        return;
    auto const clamp = [](Property<long long>& index, long long limit) {
        index.setValue(std::max(1ll, std::min(index.value(), limit)));
    };
    clamp(*theIIndex, limits.i);
    clamp(*theJIndex, limits.j);
    clamp(*theKIndex, limits.k);
}

boost::shared_ptr<Property<long long>> indexOfPlane()
{
    switch (thePlane->value()) {
    case IJKPlanes_I:
        return theIIndex;
    case IJKPlanes_J:
        return theJIndex;
    default:
        return theKIndex;
    }
}

ValueLocation_e shownLocation(int zone, int variable, bool isMixed)
{
    return isMixed ? theValueLocation->value() : fieldLocation(zone, variable);
}

Set variablesAt(ValueLocation_e location, int zone, Set const& enabled)
{
    Set variables;
    for (int const variable : enabled.members()) {
        if (fieldLocation(zone, variable) == location)
            variables.add(variable);
    }
    return variables;
}

} // namespace

boost::shared_ptr<Property<int>> DataSpreadsheetPropertiesManager::spreadsheetZone()
{
    return theZone;
}

boost::shared_ptr<Property<int>> DataSpreadsheetPropertiesManager::spreadsheetVariable()
{
    return theVariable;
}

boost::shared_ptr<Property<IJKPlanes_e>> DataSpreadsheetPropertiesManager::spreadsheetPlane()
{
    return thePlane;
}

boost::shared_ptr<Property<long long>> DataSpreadsheetPropertiesManager::spreadsheetIIndex()
{
    return theIIndex;
}

boost::shared_ptr<Property<long long>> DataSpreadsheetPropertiesManager::spreadsheetJIndex()
{
    return theJIndex;
}

boost::shared_ptr<Property<long long>> DataSpreadsheetPropertiesManager::spreadsheetKIndex()
{
    return theKIndex;
}

boost::shared_ptr<Property<bool>> DataSpreadsheetPropertiesManager::spreadsheetAlterShared()
{
    return theAlterShared;
}

boost::shared_ptr<Property<NumberFormat_e>> DataSpreadsheetPropertiesManager::spreadsheetFormat()
{
    return theFormat;
}

boost::shared_ptr<Property<long long>> DataSpreadsheetPropertiesManager::spreadsheetPrecision()
{
    return thePrecision;
}

boost::shared_ptr<Property<ValueLocation_e>> DataSpreadsheetPropertiesManager::spreadsheetValueLocation()
{
    return theValueLocation;
}

DataSpreadsheetPropertiesManager::Rule DataSpreadsheetPropertiesManager::dataSetExists()
{
    static Rule const rule = boost::make_shared<DataSetExistsRelevance>();
    return rule;
}

DataSpreadsheetPropertiesManager::DataSpreadsheetPropertiesManager(Owner& owner)
    : m_owner(owner)
    , m_indexProperty(boost::make_shared<PropertyProxy<long long>>(
          indexOfPlane(), boost::make_shared<AllowAnyValueValidator<long long>>()))
    , m_cornerLabel(boost::make_shared<Property<std::string>>())
{
    m_updatePerformer = std::make_unique<common::OnIdleAfterStateChangeActionPerformer>([this] { update(); },
                                                                                        common::engineStateChanged);
    bool const hasValues = correctSelections();
    m_alterRelevance = spreadsheet::alterRule();
    m_planeIndexRelevance = spreadsheet::planeIndexRule();
    m_variableRelevance = spreadsheet::variableRule();
    m_precisionRelevance = spreadsheet::precisionRule();
    m_valueLocationRelevance = spreadsheet::valueLocationRule();
    m_lineOrFiniteElementRelevance = spreadsheet::lineOrFiniteElementRule();
    makeListModels();
    m_tableModel = hasValues ? makeTableModel() : boost::make_shared<EmptyTableModel>();
    m_tableModelProxy = boost::make_shared<TableModelProxy>(m_tableModel);
    connectToChoices();
    m_indexCalculator = boost::make_shared<IJKSpinBoxIncDecCalculator>(thePlane, theZone, theVariable);
    update();
}

DataSpreadsheetPropertiesManager::~DataSpreadsheetPropertiesManager() = default;

void DataSpreadsheetPropertiesManager::makeListModels()
{
    m_zoneListModel = boost::make_shared<ZonesListModel>(getEnabledZonesForFrame, false);
    m_variableListModel = boost::make_shared<VariablesListModel>(getEnabledVarsForFrame, false);
    m_planeListModel = boost::make_shared<ChoiceListModel<IJKPlanes_e>>(ijkPlanesLabels);
    m_formatListModel = boost::make_shared<ChoiceListModel<NumberFormat_e>>(numberFormatLabels);
    m_valueLocationListModel = boost::make_shared<ChoiceListModel<ValueLocation_e>>(valueLocationLabels);
}

void DataSpreadsheetPropertiesManager::connectToChoices()
{
    auto const follow = [this](auto const& choice) {
        m_connections.add(choice.connectValueChanged([this](auto const&) { update(); }));
    };
    follow(*theZone);
    follow(*theVariable);
    follow(*thePlane);
    follow(*m_indexProperty);
    follow(*theAlterShared);
    follow(*theFormat);
    follow(*thePrecision);
    follow(*theValueLocation);
}

void DataSpreadsheetPropertiesManager::update()
{
    // Disconnected first, so that corrections of the choices do not call this function again. When something below throws, the
    // choices stay disconnected until the kernel tells the next change.
    m_connections.clear();
    if (hasDataSet())
        bringInLine();
    else
        show(m_tableModel); // the table has no rows without a data set, and nothing else tells its view
    connectToChoices();
}

void DataSpreadsheetPropertiesManager::bringInLine()
{
    if (!correctSelections()) {
        show(boost::make_shared<EmptyTableModel>());
        return;
    }
    int const zone = theZone->value();
    // Plane and indices are corrected by a shape that is known. A table of a zone without one throws when it is made.
    bool const hasShape = loadShape(zone);
    if (hasShape)
        thePlane->setValue(planeOfZone(zone, thePlane->value()));
    pointIndexAtPlane();
    if (hasShape)
        clampIndices();
    show(makeTableModel());
    m_cornerLabel->setValue(cornerLabelOfZone(zone, thePlane->value()));
}

void DataSpreadsheetPropertiesManager::pointIndexAtPlane()
{
    long long const before = m_indexProperty->value();
    m_indexProperty->setProperty(indexOfPlane());
    if (m_indexProperty->value() != before)
        m_indexProperty->notifyTargetChanged();
}

void DataSpreadsheetPropertiesManager::show(boost::shared_ptr<TableModel> const& model)
{
    if (m_beforeTableChanges)
        m_beforeTableChanges(*model);
    m_tableModel = model;
    m_tableModelProxy->setModel(model);
}

boost::shared_ptr<DataSpreadsheetPropertiesManager::TableModel> DataSpreadsheetPropertiesManager::makeTableModel() const
{
    int const zone = theZone->value();
    int const variable = theVariable->value();
    bool const alterShared = theAlterShared->value();
    Set const enabled = getEnabledVars(); // asked for once: there may be very many
    bool const isMixed = hasMixedValueLocations(zone, enabled);
    ValueLocation_e const location = shownLocation(zone, variable, isMixed);
    bool const isFiniteElement = VelUtilZoneIsFiniteElement(zone);
    if (!isFiniteElement && !VelUtilZoneIsLinear(zone))
        return boost::make_shared<OrderedZoneVarTableModel>(zone, variable, thePlane->value(), m_indexProperty->value(),
                                                            alterShared);
    Set const variables = isMixed ? variablesAt(location, zone, enabled) : enabled;
    if (isFiniteElement)
        return boost::make_shared<FEZoneVarTableModel>(zone, variables, alterShared, location);
    return boost::make_shared<IJKLineZoneVarTableModel>(zone, variables, alterShared, location);
}

} // namespace veldraw::sdk::ui::propertymanager
