#pragma once

#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::dialogs::data {

class AxialRotationPropertiesManager;

/// The logic of making rotated copies of zones, so that a sector becomes a ring. It takes zones, axis and angle from a
/// rotation's logic that it owns, and so shares axis and angle with all others.
///
/// What the user sets is kept for the life of the library.
class AxialDuplicationPropertiesManager
{
public:
    AxialDuplicationPropertiesManager();
    virtual ~AxialDuplicationPropertiesManager();
    AxialDuplicationPropertiesManager(AxialDuplicationPropertiesManager const&) = delete;
    AxialDuplicationPropertiesManager& operator=(AxialDuplicationPropertiesManager const&) = delete;

    // ---- shared by all managers ------------------------------------------------------------------------------------
    /// Where the first copy stands, in degrees; 0 at first.
    static boost::shared_ptr<PropertyAbstract<double>> offsetAngle();
    /// The unit in which the offset is shown; degrees at first.
    static boost::shared_ptr<Property<ThetaMode_e>> offsetAngleUnits();
    /// Whether copies fill the whole circle; false at first.
    static boost::shared_ptr<Property<bool>> fullRotation();
    /// How many there are to be in all, the source included; 2 at first.
    static boost::shared_ptr<Property<int>> numInstances();
    /// Whether copies of zones in time strands are put into strands too; true at first.
    static boost::shared_ptr<Property<bool>> addZonesToExistingStrands();

    // ---- each manager's own ----------------------------------------------------------------------------------------
    /// Zones, axis and angle.
    AxialRotationPropertiesManager& rotationManager() const;
    /// How often the rotation's angle goes into the whole circle, cut to a whole number; setting it sets the angle.
    /// An angle of 0 reads as one segment, one above 360 degrees as none.
    boost::shared_ptr<PropertyAbstract<int>> numberOfSegmentsProperty() const;
    /// The offset in the unit that is shown.
    boost::shared_ptr<PropertyAbstract<double>> displayedOffsetAngle() const;
    /// True while the user says how many instances there are to be.
    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> partialRotationRelevance() const;

    /// Makes the copies and tells the user when it can't be done. Nothing is changed then.
    void duplicateZones();

private:
    int numberOfCopies() const;

    std::unique_ptr<AxialRotationPropertiesManager> const m_rotationManager;
    boost::shared_ptr<PropertyAbstract<int>> const m_numberOfSegmentsProperty;
    boost::shared_ptr<PropertyAbstract<double>> const m_displayedOffsetAngle;
    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> const m_partialRotationRelevance;
};

} // namespace veldraw::dialogs::data
