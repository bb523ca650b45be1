#pragma once

#include "dialogs/datasetinfo/AuxDataModel.h"
#include "dialogs/models/ListModelProxy.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/models/TableModelProxy.h"
#include "dialogs/property/RelevanceInterface.h"
#include "dialogs/property/UILocalStyleProperty.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// Whose auxiliary data are shown, and the table of these. It begins with the first zone.
///
/// Each choice makes another table at once. So does, at the next idle moment, what gives an owner another number or takes it away.
class AuxDataPropertiesManager
{
public:
    using AuxDataModel = dialogs::propertybindings::models::AuxDataModel;
    using ObjectListModel = dialogs::propertybindings::models::ListModelInterface<int>;
    using ObjectListProxy = dialogs::propertybindings::models::ListModelProxy<int>;
    using LocationListModel = dialogs::propertybindings::models::PremappedListModel<AuxDataLocation_e>;
    using TableModelProxy = dialogs::propertybindings::models::TableModelProxy;

    AuxDataPropertiesManager();
    virtual ~AuxDataPropertiesManager();
    AuxDataPropertiesManager(AuxDataPropertiesManager const&) = delete;
    AuxDataPropertiesManager& operator=(AuxDataPropertiesManager const&) = delete;

    /// The kind of owner.
    boost::shared_ptr<UILocalStyleProperty<AuxDataLocation_e>> auxDataLocation() const { return m_auxDataLocation; }
    /// One-based number of the zone, variable or line map. It stays, unused, for the other kinds, of which there is one each.
    boost::shared_ptr<UILocalStyleProperty<int>> auxDataObject() const { return m_auxDataObject; }
    /// The zones, variables or line maps to choose from; for the other kinds it stays as it was.
    boost::shared_ptr<ObjectListProxy> auxDataObjectList() const { return m_auxDataObjectList; }
    boost::shared_ptr<AuxDataModel> auxDataModel() const { return m_auxDataModel; }
    /// What a view shows; lives as long as the manager.
    boost::shared_ptr<TableModelProxy> auxDataTableProxy() const { return m_auxDataTableProxy; }
    boost::shared_ptr<LocationListModel> auxDataLocationList() const { return m_auxDataLocationList; }
    /// True while the kind of owner has a list to choose from.
    boost::shared_ptr<RelevanceInterface const> auxDataObjectRelevance() const { return m_auxDataObjectRelevance; }

private:
    void changeKind();
    void keepObjectInList();
    int shownObject() const;
    void replaceModel();

    boost::shared_ptr<UILocalStyleProperty<AuxDataLocation_e>> m_auxDataLocation;
    boost::shared_ptr<UILocalStyleProperty<int>> m_auxDataObject;
    boost::shared_ptr<ObjectListProxy> m_auxDataObjectList;
    boost::shared_ptr<AuxDataModel> m_auxDataModel;
    boost::shared_ptr<TableModelProxy> m_auxDataTableProxy;
    boost::shared_ptr<LocationListModel> m_auxDataLocationList;
    boost::shared_ptr<RelevanceInterface const> m_auxDataObjectRelevance;
    SignalConnectionCollection m_connections;
    common::OnIdleAfterStateChangeActionPerformer m_ownersPerformer;
};

} // namespace veldraw::sdk::ui::propertymanager
