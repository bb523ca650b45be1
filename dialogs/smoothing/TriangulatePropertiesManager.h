#pragma once

#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// The logic of triangulating: of which zones' points, within which boundary zones, which triangles are kept, and the operation
/// itself.
///
/// The settings belong to the library, so that they outlive every dialog; the selections are each manager's own. Whether there are
/// boundary zones to choose from is found out once, when a manager is made: ones that appear later are for the next manager.
class TriangulatePropertiesManager
{
public:
    using ZonesListModel = dialogs::propertybindings::models::ZoneListModel;
    using Rule = boost::shared_ptr<RelevanceInterface const>;

    TriangulatePropertiesManager();
    virtual ~TriangulatePropertiesManager();
    TriangulatePropertiesManager(TriangulatePropertiesManager const&) = delete;
    TriangulatePropertiesManager& operator=(TriangulatePropertiesManager const&) = delete;

    // ---- shared by all managers ------------------------------------------------------------------------------------
    /// Whether boundary zones hold the triangles in; false at first.
    static boost::shared_ptr<Property<bool>> useBoundaryZones();
    /// Whether the points of boundary zones are triangulated with the others; false at first.
    static boost::shared_ptr<Property<bool>> includeBoundaryPoints();
    /// Inradius over circumradius below which outer triangles are removed: 0 to 0.5, 0.25 at first.
    static boost::shared_ptr<Property<double>> triangleKeepFactor();

    // ---- each manager's own ----------------------------------------------------------------------------------------
    /// Numbers of the zones whose points are triangulated, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> sourceZones() const;
    /// Numbers of the zones that hold the triangles in, from 1; empty at first.
    boost::shared_ptr<Property<std::set<int>>> boundaryZones() const;
    /// The enabled zones of the current frame's data set.
    boost::shared_ptr<ZonesListModel> sourceZonesModel() const;
    /// Those of them that are lines: ordered, of one dimension.
    boost::shared_ptr<ZonesListModel> boundaryZonesModel() const;
    /// Whether there were boundary zones to choose from at first.
    Rule boundaryChoicesRelevance() const;
    /// True while these are to be used, too.
    Rule boundaryListRelevance() const;
    /// True while there is something to triangulate.
    Rule triangulateButtonRelevance() const;

    /// Triangulates and tells the user a failure; a success is seen. It checks nothing itself: the rule of the button does. Boundary
    /// zones that are selected count for nothing while they are not used, or when there is none to choose from any more.
    /// Selections and settings stay as they are.
    void triangulate();

private:
    boost::shared_ptr<Property<std::set<int>>> m_sourceZones;
    boost::shared_ptr<Property<std::set<int>>> m_boundaryZones;
    boost::shared_ptr<ZonesListModel> m_sourceZonesModel;
    boost::shared_ptr<ZonesListModel> m_boundaryZonesModel;
    Rule m_boundaryChoicesRelevance;
    Rule m_boundaryListRelevance;
    Rule m_triangulateButtonRelevance;
};

} // namespace veldraw::sdk::ui::propertymanager
