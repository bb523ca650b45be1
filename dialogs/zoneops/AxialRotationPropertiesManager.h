#pragma once

#include "dialogs/models/PremappedListModel.h"
#include "dialogs/models/ZoneListModelGroupableByStrand.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/shared_ptr.hpp>

#include <map>
#include <set>
#include <string>

namespace veldraw::dialogs::data {

/// The logic of rotating zones about an axis: which zones, about what, by how much. It is also the core of the axial
/// duplication, which rotates copies.
///
/// What the user sets is kept for the life of the library and shared by all managers, but for the zones, which a manager
/// takes from the pick list when it is made.
class AxialRotationPropertiesManager
{
public:
    enum RotationAxis
    {
        xRotationAxis = 0,
        yRotationAxis = 1,
        zRotationAxis = 2
    };

    using AngleUnitsListModel = sdk::ui::dialogs::propertybindings::models::PremappedListModel<ThetaMode_e>;
    using ZonesListModel = sdk::ui::dialogs::propertybindings::models::ZoneListModelGroupableByStrand;

    AxialRotationPropertiesManager();
    ~AxialRotationPropertiesManager();
    AxialRotationPropertiesManager(AxialRotationPropertiesManager const&) = delete;
    AxialRotationPropertiesManager& operator=(AxialRotationPropertiesManager const&) = delete;

    // ---- shared by all managers ------------------------------------------------------------------------------------
    /// The unit in which the angle is shown; degrees at first.
    static boost::shared_ptr<Property<ThetaMode_e>> rotationAngleUnits();
    /// In degrees, whatever unit is shown; 360 at first.
    static boost::shared_ptr<PropertyAbstract<double>> rotationAngle();
    static boost::shared_ptr<AngleUnitsListModel> angleUnitsListModel();
    /// Z at first.
    static boost::shared_ptr<Property<RotationAxis>> rotationAxis();
    /// A point on the axis: X, Y and Z under the keys 0, 1 and 2; the origin of the coordinates at first.
    static std::map<int, boost::shared_ptr<PropertyAbstract<double>>> const& rotationOrigin();

    // ---- each manager's own ----------------------------------------------------------------------------------------
    /// The angle in the unit that is shown.
    boost::shared_ptr<PropertyAbstract<double>> displayedAngle() const;
    /// The enabled zones of the current frame, or its time strands.
    boost::shared_ptr<ZonesListModel> zoneListModel() const;
    /// Values of `zoneListModel()`: zone numbers or, while it groups by time strand, field map numbers.
    boost::shared_ptr<PropertyAbstract<std::set<int>>> selectedZones() const;
    /// True in a 3D plot, where the axis can be chosen.
    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> cartesian3DRelevance() const;

    /// Numbers of the zones that the selection stands for, from 1.
    toolbox::Set getZonesToProcess() const;

    /// Checks and gathers what the kernel needs. Throws an `ExceptionBase`, whose text begins with @p title, when nothing is
    /// selected or the variables of the frame don't allow a rotation.
    /// @param xyz numbers of the coordinate variables, 0 = none; the third is 0 unless @p is3D
    /// @param uvw numbers of the vector variables, 0 = none; the third is 0 unless @p is3D
    /// @param hasVector whether there is a vector to be rotated that is not the position itself
    /// @param origin a point on the axis
    /// @param axis the axis' direction, of length 1
    void getRotationInputs(std::string const& title, int xyz[3], int uvw[3], bool& is3D, bool& hasVector,
                           double origin[3], double axis[3]) const;

    /// Rotates the zones and tells the user when it can't be done. Nothing is changed then.
    void rotateZones();

private:
    void requireZones(std::string const& title) const;
    void readPickList();

    boost::shared_ptr<PropertyAbstract<double>> const m_displayedAngle;
    boost::shared_ptr<ZonesListModel> const m_zoneListModel;
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const m_selectedZones;
    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> const m_cartesian3DRelevance;
    sdk::ui::common::OnIdleAfterStateChangeActionPerformer const m_plotTypeWatcher;
};

} // namespace veldraw::dialogs::data
