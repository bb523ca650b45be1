#pragma once

#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/PlotTypeDependentRelevance.h"
#include "dialogs/property/Property.h"

#include <boost/shared_ptr.hpp>

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// The logic of mirroring zones: which are offered, which are selected, what is mirrored about, and the operation itself.
///
/// What is mirrored about is kept as the name of the coordinate that changes its sign: 'Y' in a 2D plot is the X axis, 'Z' in
/// a 3D plot is the XY plane. These two choices belong to the library, so that they outlive every dialog.
class CreateMirrorZonePropertiesManager
{
public:
    using ZonesListModel = dialogs::propertybindings::models::ZoneListModel;

    CreateMirrorZonePropertiesManager();
    virtual ~CreateMirrorZonePropertiesManager();
    CreateMirrorZonePropertiesManager(CreateMirrorZonePropertiesManager const&) = delete;
    CreateMirrorZonePropertiesManager& operator=(CreateMirrorZonePropertiesManager const&) = delete;

    /// The coordinate that is negated in a 2D plot: 'X' or 'Y', at first 'Y'.
    static boost::shared_ptr<Property<char>> mirrorVar2D();
    /// The coordinate that is negated in a 3D plot: 'X', 'Y' or 'Z', at first 'Z'.
    static boost::shared_ptr<Property<char>> mirrorVar3D();

    /// Numbers of the zones to mirror, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> sourceZones() const;
    /// The enabled zones of the current frame's data set.
    boost::shared_ptr<ZonesListModel> zonesListModel() const;
    /// True while the current frame is a 2D plot.
    boost::shared_ptr<PlotTypeDependentRelevance> is2DPlot() const;
    /// True while the current frame is a 3D plot.
    boost::shared_ptr<PlotTypeDependentRelevance> is3DPlot() const;

    /// Creates a mirrored copy of each selected zone and tells the user the outcome. The current frame's plot type, read now,
    /// decides which choice counts; a frame that is no field plot negates 'X'. Refuses, with a message and without a kernel
    /// call, an empty selection. Selection and choices stay as they are.
    void createMirrorZones();

private:
    boost::shared_ptr<Property<std::set<int>>> m_sourceZones;
    boost::shared_ptr<ZonesListModel> m_zonesListModel;
    boost::shared_ptr<PlotTypeDependentRelevance> m_is2DPlot;
    boost::shared_ptr<PlotTypeDependentRelevance> m_is3DPlot;
};

} // namespace veldraw::sdk::ui::propertymanager
