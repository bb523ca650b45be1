#include "dialogs/datasetinfo/AuxDataPropertiesManager.h"

#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/models/LineMapListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/PropertyDependentRelevance.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

using namespace dialogs::propertybindings::models;

namespace {

using ObjectList = boost::shared_ptr<AuxDataPropertiesManager::ObjectListModel>;

boost::shared_ptr<PropertyDependentRelevance<AuxDataLocation_e>>
whileListed(boost::shared_ptr<UILocalStyleProperty<AuxDataLocation_e>> const& location)
{
    auto const rule = boost::make_shared<PropertyDependentRelevance<AuxDataLocation_e>>(location, AuxDataLocation_Zone);
    rule->addRelevantValue(AuxDataLocation_Var);
    rule->addRelevantValue(AuxDataLocation_LineMap);
    return rule;
}

// The owners of a kind; null for those of which there is one only.
ObjectList ownersOf(AuxDataLocation_e location)
{
    switch (location) {
    case AuxDataLocation_Zone:
        return boost::make_shared<ZoneListModel>(getEnabledZonesForFrame, false);
    case AuxDataLocation_Var:
        return boost::make_shared<EnabledVariablesListModel>(getEnabledVarsForFrame, false);
    case AuxDataLocation_LineMap:
        return boost::make_shared<LineMapListModel>();
    default:
        return ObjectList();
    }
}

bool mayConcernOwners(toolbox::StateChangeEventInterface const& event)
{
    switch (event.kind()) {
    case StateChange_ZonesAdded:
    case StateChange_ZonesDeleted:
    case StateChange_ZonesEnabled:
    case StateChange_VariablesAdded:
    case StateChange_VariablesDeleted:
    case StateChange_VariablesEnabled:
    case StateChange_LineMaps:
    case StateChange_FrameDataSet:
    case StateChange_FrameDeleted:
        return true;
    default:
        return common::isNewActiveFrameStateChange(event);
    }
}

} // namespace

AuxDataPropertiesManager::AuxDataPropertiesManager()
    : m_auxDataLocation(boost::make_shared<UILocalStyleProperty<AuxDataLocation_e>>(AuxDataLocation_Zone))
    , m_auxDataObject(boost::make_shared<UILocalStyleProperty<int>>(1))
    , m_auxDataObjectList(boost::make_shared<ObjectListProxy>(ownersOf(AuxDataLocation_Zone)))
    , m_auxDataModel(boost::make_shared<AuxDataModel>(AuxDataLocation_Zone, 1))
    , m_auxDataTableProxy(boost::make_shared<TableModelProxy>(m_auxDataModel))
    , m_auxDataLocationList(boost::make_shared<LocationListModel>(auxDataLocationLabels))
    , m_auxDataObjectRelevance(whileListed(m_auxDataLocation))
    , m_ownersPerformer([this] { replaceModel(); }, mayConcernOwners)
{
    m_connections.add(m_auxDataLocation->connectValueChanged([this](AuxDataLocation_e) { changeKind(); }));
    m_connections.add(m_auxDataObject->connectValueChanged([this](int) { replaceModel(); }));
    m_connections.add(m_auxDataObjectList->connectDataChanged([this] { keepObjectInList(); }));
    keepObjectInList();
}

AuxDataPropertiesManager::~AuxDataPropertiesManager() = default;

void AuxDataPropertiesManager::changeKind()
{
    if (ObjectList const owners = ownersOf(m_auxDataLocation->value()))
        m_auxDataObjectList->setModel(owners);
    replaceModel();
}

// So that the table is that of the owner that a choice from the list shows.
void AuxDataPropertiesManager::keepObjectInList()
{
    if (m_auxDataObjectList->size() > 0 && m_auxDataObjectList->indexOf(m_auxDataObject->value()) == -1)
        m_auxDataObject->setValue(m_auxDataObjectList->get(0));
}

// Without anything to choose from nothing is chosen, whatever the number is.
int AuxDataPropertiesManager::shownObject() const
{
    constexpr int onlyOne = 1;
    constexpr int none = 0;
    if (!m_auxDataObjectRelevance->isRelevant())
        return onlyOne;
    return m_auxDataObjectList->size() > 0 ? m_auxDataObject->value() : none;
}

void AuxDataPropertiesManager::replaceModel()
{
    m_auxDataModel = boost::make_shared<AuxDataModel>(m_auxDataLocation->value(), shownObject());
    m_auxDataTableProxy->setModel(m_auxDataModel);
}

} // namespace veldraw::sdk::ui::propertymanager
