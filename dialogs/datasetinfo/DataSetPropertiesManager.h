#pragma once

#include "dialogs/datasetinfo/DataSetTitleProperty.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// What is known of the active frame's data set, as texts: its title, which can be set, where it came from, how large it is and who
/// has locked it. They follow the kernel at the next idle moment, each once however much has changed, and only after what can alter it:
/// there may be many zones and long lists of files. The title follows at once. Nothing is loaded for them.
class DataSetPropertiesManager
{
public:
    using Text = Property<std::string>;
    using Rule = boost::shared_ptr<RelevanceInterface const>;

    /// True while there is a data set that is shown in a plot. Always the same rule.
    static Rule relevance();

    DataSetPropertiesManager();
    virtual ~DataSetPropertiesManager();
    DataSetPropertiesManager(DataSetPropertiesManager const&) = delete;
    DataSetPropertiesManager& operator=(DataSetPropertiesManager const&) = delete;

    boost::shared_ptr<DataSetTitleProperty> dataSetTitle() const { return m_dataSetTitle; }
    /// Files and folders, each with a line feed behind it.
    boost::shared_ptr<Text> dataFiles() const { return m_dataFiles; }
    boost::shared_ptr<Text> numZones() const { return m_numZones; }
    boost::shared_ptr<Text> numVars() const { return m_numVars; }
    /// Over the enabled zones; "Not Loaded" where one of them does not know its dimensions yet.
    boost::shared_ptr<Text> totalPoints() const { return m_totalPoints; }
    boost::shared_ptr<Text> totalElements() const { return m_totalElements; }
    /// The holder of the lock, or "none".
    boost::shared_ptr<Text> lockedBy() const { return m_lockedBy; }

    /// True while the total is a number.
    Rule totalPointsKnown() const { return m_totalPointsKnown; }
    Rule totalElementsKnown() const { return m_totalElementsKnown; }

private:
    void refillFiles();
    void refillNumbers();
    void refillTotals();
    void refillLockHolder();

    boost::shared_ptr<DataSetTitleProperty> m_dataSetTitle;
    boost::shared_ptr<Text> m_dataFiles;
    boost::shared_ptr<Text> m_numZones;
    boost::shared_ptr<Text> m_numVars;
    boost::shared_ptr<Text> m_totalPoints;
    boost::shared_ptr<Text> m_totalElements;
    boost::shared_ptr<Text> m_lockedBy;
    Rule m_totalPointsKnown;
    Rule m_totalElementsKnown;
    common::OnIdleAfterStateChangeActionPerformer m_filesPerformer;
    common::OnIdleAfterStateChangeActionPerformer m_numbersPerformer;
    common::OnIdleAfterStateChangeActionPerformer m_totalsPerformer;
    common::OnIdleAfterStateChangeActionPerformer m_lockPerformer;
};

} // namespace veldraw::sdk::ui::propertymanager
