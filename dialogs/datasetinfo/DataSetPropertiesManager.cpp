#include "dialogs/datasetinfo/DataSetPropertiesManager.h"

#include "dialogs/datasetinfo/DataSetTotals.h"
#include "dialogs/datasetinfo/ImportedFiles.h"
#include "dialogs/property/DataSetExistsRelevance.h"
#include "dialogs/property/FieldPlotTypeDependentRelevance.h"
#include "dialogs/property/KernelText.h"
#include "dialogs/property/LinePlotTypeDependentRelevance.h"
#include "dialogs/property/PropertyPredicateDependentRelevance.h"
#include "dialogs/property/RelevanceExpression.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

namespace {

using Text = DataSetPropertiesManager::Text;
using Rule = DataSetPropertiesManager::Rule;

constexpr char notLoaded[] = "Not Loaded";

std::string textOf(long long total)
{
    return total == -1 ? notLoaded : std::to_string(total);
}

Rule whileKnown(boost::shared_ptr<Text> const& total)
{
    return boost::make_shared<PropertyPredicateDependentRelevance>(total,
                                                                   [total] { return total->value() != notLoaded; });
}

std::string lockHolder()
{
    KernelText holder;
    bool const isLocked = VelUtilDataSetIsLocked(holder.place());
    return isLocked && holder.get() ? holder.get() : "none";
}

bool bringsAnotherDataSet(toolbox::StateChangeEventInterface const& event)
{
    return event.kind() == StateChange_FrameDataSet || common::isNewActiveFrameStateChange(event);
}

// Files come with zones.
bool altersFiles(toolbox::StateChangeEventInterface const& event)
{
    return event.kind() == StateChange_ZonesAdded || event.kind() == StateChange_ZonesDeleted ||
           bringsAnotherDataSet(event);
}

bool altersNumbers(toolbox::StateChangeEventInterface const& event)
{
    return event.kind() == StateChange_ZonesAdded || event.kind() == StateChange_ZonesDeleted ||
           event.kind() == StateChange_VariablesAdded || event.kind() == StateChange_VariablesDeleted ||
           bringsAnotherDataSet(event);
}

bool altersTotals(toolbox::StateChangeEventInterface const& event)
{
    return (common::isZoneStateChange(event) && event.kind() != StateChange_ZonesRenamed) ||
           bringsAnotherDataSet(event);
}

bool altersLock(toolbox::StateChangeEventInterface const& event)
{
    return event.kind() == StateChange_DataSetLock || bringsAnotherDataSet(event);
}

} // namespace

DataSetPropertiesManager::Rule DataSetPropertiesManager::relevance()
{
    static Rule const rule = [] {
        auto const plots =
            boost::make_shared<RelevanceExpression>(boost::make_shared<FieldPlotTypeDependentRelevance>());
        plots->oor(boost::make_shared<LinePlotTypeDependentRelevance>());
        auto const shown = boost::make_shared<RelevanceExpression>(boost::make_shared<DataSetExistsRelevance>());
        shown->aand(*plots);
        return shown;
    }();
    return rule;
}

DataSetPropertiesManager::DataSetPropertiesManager()
    : m_dataSetTitle(boost::make_shared<DataSetTitleProperty>())
    , m_dataFiles(boost::make_shared<Text>())
    , m_numZones(boost::make_shared<Text>())
    , m_numVars(boost::make_shared<Text>())
    , m_totalPoints(boost::make_shared<Text>())
    , m_totalElements(boost::make_shared<Text>())
    , m_lockedBy(boost::make_shared<Text>())
    , m_totalPointsKnown(whileKnown(m_totalPoints))
    , m_totalElementsKnown(whileKnown(m_totalElements))
    , m_filesPerformer([this] { refillFiles(); }, altersFiles)
    , m_numbersPerformer([this] { refillNumbers(); }, altersNumbers)
    , m_totalsPerformer([this] { refillTotals(); }, altersTotals)
    , m_lockPerformer([this] { refillLockHolder(); }, altersLock)
{
    refillFiles();
    refillNumbers();
    refillTotals();
    refillLockHolder();
}

DataSetPropertiesManager::~DataSetPropertiesManager() = default;

void DataSetPropertiesManager::refillFiles()
{
    AppLock const lock(AppLock::RecordAsUsual);
    m_dataFiles->setValue(importedFiles());
}

void DataSetPropertiesManager::refillNumbers()
{
    AppLock const lock(AppLock::RecordAsUsual);
    m_numZones->setValue(std::to_string(VelUtilDataSetGetNumZones()));
    m_numVars->setValue(std::to_string(VelUtilDataSetGetNumVars()));
}

void DataSetPropertiesManager::refillTotals()
{
    AppLock const lock(AppLock::RecordAsUsual);
    DataSetTotals const totals = totalsOfEnabledZones();
    m_totalPoints->setValue(textOf(totals.points));
    m_totalElements->setValue(textOf(totals.elements));
}

void DataSetPropertiesManager::refillLockHolder()
{
    AppLock const lock(AppLock::RecordAsUsual);
    m_lockedBy->setValue(lockHolder());
}

} // namespace veldraw::sdk::ui::propertymanager
