#pragma once

#include "dialogs/datasetinfo/NoActiveMapDecorator.h"
#include "dialogs/datasetinfo/VarLocationProperty.h"
#include "dialogs/datasetinfo/VarNameProperty.h"
#include "dialogs/datasetinfo/VarRangeActiveMinOrMaxLabelProperty.h"
#include "dialogs/datasetinfo/VarRangeActiveZonesLabelProperty.h"
#include "dialogs/datasetinfo/VarRangeActiveZonesProperties.h"
#include "dialogs/datasetinfo/VarRangeSelectedMinOrMaxLabelProperty.h"
#include "dialogs/datasetinfo/VarRangeSelectedZoneProperties.h"
#include "dialogs/datasetinfo/VarRangeStatusDecorator.h"
#include "dialogs/datasetinfo/VarStatusProperty.h"
#include "dialogs/datasetinfo/VarTypeProperty.h"
#include "dialogs/datasetinfo/ZoneDimensionLabelProperties.h"
#include "dialogs/datasetinfo/ZoneDimensionProperties.h"
#include "dialogs/datasetinfo/ZoneNameProperty.h"
#include "dialogs/datasetinfo/ZoneTimeProperties.h"
#include "dialogs/datasetinfo/ZoneTypeProperty.h"
#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/ZoneListModel.h"

#include <boost/shared_ptr.hpp>

#include <set>
#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// What the kernel knows of one zone and one variable: names, types, dimensions, solution time, location, status and ranges. It never
/// writes to the kernel and never has anything loaded.
///
/// All is derived from the two selections and the kernel; see `ZonePropertyAbstract` for when. The lists are there to select from,
/// and zones and variables can be renamed in them.
class ZoneVarInfoPropertiesManager
{
public:
    using SelectionProperty = UILocalStyleProperty<std::set<int>>;
    using TextProperty = UILocalStyleProperty<std::string>;
    using ZoneListModel = dialogs::propertybindings::models::ZoneListModel;
    using EnabledVariablesListModel = dialogs::propertybindings::models::EnabledVariablesListModel;

    /// Nothing is selected.
    ZoneVarInfoPropertiesManager();
    virtual ~ZoneVarInfoPropertiesManager();
    ZoneVarInfoPropertiesManager(ZoneVarInfoPropertiesManager const&) = delete;
    ZoneVarInfoPropertiesManager& operator=(ZoneVarInfoPropertiesManager const&) = delete;

    /// One-based numbers; the first is the selected one.
    boost::shared_ptr<SelectionProperty> selectedZones() const { return m_selectedZones; }
    boost::shared_ptr<SelectionProperty> selectedVars() const { return m_selectedVars; }

    // ---- the zone --------------------------------------------------------------------------------------------------
    ShownName const& zoneName() const { return m_zoneName.name(); }
    ShownName const& varName() const { return m_varName.name(); }
    boost::shared_ptr<TextProperty> zoneType() const { return m_zoneType.text(); }
    boost::shared_ptr<TextProperty> zoneTypeLabel() const { return m_zoneTypeLabel; }
    ZoneDimensionLabelProperties const& zoneDimensionLabels() const { return m_zoneDimensionLabels; }
    ZoneDimensionProperties const& zoneDimensions() const { return m_zoneDimensions; }
    ZoneTimeProperties const& zoneTime() const { return m_zoneTime; }
    boost::shared_ptr<TextProperty> solutionTimeLabel() const { return m_solutionTimeLabel; }
    boost::shared_ptr<TextProperty> timeStrandLabel() const { return m_timeStrandLabel; }

    // ---- the variable in the zone ----------------------------------------------------------------------------------
    boost::shared_ptr<TextProperty> varType() const { return m_varType.text(); }
    boost::shared_ptr<TextProperty> varTypeLabel() const { return m_varTypeLabel; }
    boost::shared_ptr<TextProperty> varLocation() const { return m_varLocation.text(); }
    boost::shared_ptr<TextProperty> varLocationLabel() const { return m_varLocationLabel; }
    boost::shared_ptr<UILocalStyleProperty<VarStatus_e>> varStatus() const { return m_varStatus.status(); }

    // ---- its ranges ------------------------------------------------------------------------------------------------
    boost::shared_ptr<TextProperty> selectedRangeTitle() const { return m_selectedRangeTitle; }
    boost::shared_ptr<TextProperty> selectedMinLabel() const { return m_selectedMinLabel.text(); }
    boost::shared_ptr<TextProperty> selectedMaxLabel() const { return m_selectedMaxLabel.text(); }
    VarRangeSelectedZoneProperties const& selectedRange() const { return m_selectedRange; }
    VarRangeActiveZonesProperties const& activeRange() const { return m_activeRange; }
    boost::shared_ptr<TextProperty> activeMinLabel() const { return m_activeMinLabel.text(); }
    boost::shared_ptr<TextProperty> activeMaxLabel() const { return m_activeMaxLabel.text(); }
    boost::shared_ptr<TextProperty> activeRangeTitle() const { return m_activeRangeTitle.text(); }

    /// The enabled zones and variables of the current frame's data set, which can be renamed there.
    boost::shared_ptr<ZoneListModel> zoneListModel() const { return m_zoneListModel; }
    boost::shared_ptr<EnabledVariablesListModel> variableListModel() const { return m_variableListModel; }

    /// The values of the ranges as they are shown.
    boost::shared_ptr<VarRangeStatusDecorator> selectedMinText() const { return m_selectedMinText; }
    boost::shared_ptr<VarRangeStatusDecorator> selectedMaxText() const { return m_selectedMaxText; }
    boost::shared_ptr<NoActiveMapDecorator> activeMinText() const { return m_activeMinText; }
    boost::shared_ptr<NoActiveMapDecorator> activeMaxText() const { return m_activeMaxText; }

private:
    boost::shared_ptr<SelectionProperty> const m_selectedZones;
    boost::shared_ptr<SelectionProperty> const m_selectedVars;
    ZoneNameProperty const m_zoneName;
    VarNameProperty const m_varName;
    ZoneTypeProperty const m_zoneType;
    boost::shared_ptr<TextProperty> const m_zoneTypeLabel;
    ZoneDimensionLabelProperties const m_zoneDimensionLabels;
    ZoneDimensionProperties const m_zoneDimensions;
    ZoneTimeProperties const m_zoneTime;
    boost::shared_ptr<TextProperty> const m_solutionTimeLabel;
    boost::shared_ptr<TextProperty> const m_timeStrandLabel;
    VarTypeProperty const m_varType;
    boost::shared_ptr<TextProperty> const m_varTypeLabel;
    VarLocationProperty const m_varLocation;
    boost::shared_ptr<TextProperty> const m_varLocationLabel;
    VarStatusProperty const m_varStatus;
    boost::shared_ptr<TextProperty> const m_selectedRangeTitle;
    VarRangeSelectedMinOrMaxLabelProperty const m_selectedMinLabel;
    VarRangeSelectedMinOrMaxLabelProperty const m_selectedMaxLabel;
    VarRangeSelectedZoneProperties const m_selectedRange;
    VarRangeActiveZonesProperties const m_activeRange;
    VarRangeActiveMinOrMaxLabelProperty const m_activeMinLabel;
    VarRangeActiveMinOrMaxLabelProperty const m_activeMaxLabel;
    VarRangeActiveZonesLabelProperty const m_activeRangeTitle;
    boost::shared_ptr<ZoneListModel> const m_zoneListModel;
    boost::shared_ptr<EnabledVariablesListModel> const m_variableListModel;
    boost::shared_ptr<VarRangeStatusDecorator> const m_selectedMinText;
    boost::shared_ptr<VarRangeStatusDecorator> const m_selectedMaxText;
    boost::shared_ptr<NoActiveMapDecorator> const m_activeMinText;
    boost::shared_ptr<NoActiveMapDecorator> const m_activeMaxText;
};

} // namespace veldraw::sdk::ui::propertymanager
