#include "dialogs/smoothing/TriangulatePropertiesManager.h"

#include "dialogs/property/BooleanPropertyDependentRelevance.h"
#include "dialogs/property/BoundedProperty.h"
#include "dialogs/property/RelevanceExpression.h"
#include "dialogs/property/SimpleBooleanRelevance.h"
#include "dialogs/smoothing/TriangulateButtonRelevance.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// Made when the library is loaded; every dialog that comes shows what was set last.
boost::shared_ptr<Property<bool>> const theUseBoundaryZones = boost::make_shared<Property<bool>>(false);
boost::shared_ptr<Property<bool>> const theIncludeBoundaryPoints = boost::make_shared<Property<bool>>(false);
boost::shared_ptr<Property<double>> const theTriangleKeepFactor = boundedProperty(0.25, 0.0, 0.5);

bool triangulateZones(Set const& sources, bool useBoundary, Set const& boundaries)
{
    long long count = 0; // the kernel's answer, which nobody here needs
    return VelUtilTriangulate(sources.getRef(), useBoundary, boundaries.getRef(), theIncludeBoundaryPoints->value(),
                              &count, theTriangleKeepFactor->value());
}

} // namespace

TriangulatePropertiesManager::TriangulatePropertiesManager()
    : m_sourceZones(boost::make_shared<Property<std::set<int>>>())
    , m_boundaryZones(boost::make_shared<Property<std::set<int>>>())
    , m_sourceZonesModel(boost::make_shared<ZonesListModel>(getEnabledZonesForFrame, false))
    , m_boundaryZonesModel(boost::make_shared<ZonesListModel>(getOrderedLinearZonesForFrame, false))
{
    m_triangulateButtonRelevance = boost::make_shared<TriangulateButtonRelevance>(
        m_sourceZones, theUseBoundaryZones, m_boundaryZones, m_boundaryZonesModel);
    m_boundaryChoicesRelevance = boost::make_shared<SimpleBooleanRelevance>(m_boundaryZonesModel->size() > 0);
    auto const listRule = boost::make_shared<RelevanceExpression>(m_boundaryChoicesRelevance);
    listRule->aand(boost::make_shared<BooleanPropertyDependentRelevance>(theUseBoundaryZones));
    m_boundaryListRelevance = *listRule;
}

TriangulatePropertiesManager::~TriangulatePropertiesManager() = default;

boost::shared_ptr<Property<bool>> TriangulatePropertiesManager::useBoundaryZones()
{
    return theUseBoundaryZones;
}

boost::shared_ptr<Property<bool>> TriangulatePropertiesManager::includeBoundaryPoints()
{
    return theIncludeBoundaryPoints;
}

boost::shared_ptr<Property<double>> TriangulatePropertiesManager::triangleKeepFactor()
{
    return theTriangleKeepFactor;
}

boost::shared_ptr<Property<std::set<int>>> TriangulatePropertiesManager::sourceZones() const
{
    return m_sourceZones;
}

boost::shared_ptr<Property<std::set<int>>> TriangulatePropertiesManager::boundaryZones() const
{
    return m_boundaryZones;
}

boost::shared_ptr<TriangulatePropertiesManager::ZonesListModel> TriangulatePropertiesManager::sourceZonesModel() const
{
    return m_sourceZonesModel;
}

boost::shared_ptr<TriangulatePropertiesManager::ZonesListModel> TriangulatePropertiesManager::boundaryZonesModel() const
{
    return m_boundaryZonesModel;
}

TriangulatePropertiesManager::Rule TriangulatePropertiesManager::boundaryChoicesRelevance() const
{
    return m_boundaryChoicesRelevance;
}

TriangulatePropertiesManager::Rule TriangulatePropertiesManager::boundaryListRelevance() const
{
    return m_boundaryListRelevance;
}

TriangulatePropertiesManager::Rule TriangulatePropertiesManager::triangulateButtonRelevance() const
{
    return m_triangulateButtonRelevance;
}

void TriangulatePropertiesManager::triangulate()
{
    AppLock const lock(AppLock::RecordAsUsual);
    Set const sources(m_sourceZones->value());
    std::set<int> boundaries = m_boundaryZones->value();
    // The list as it is now: the rules speak of the one at first.
    bool const useBoundary = theUseBoundaryZones->value() && m_boundaryZonesModel->size() > 0;
    if (!useBoundary)
        boundaries.clear();
    Set const boundarySet(boundaries);
    velUtilActionReporter([&] { return static_cast<char>(triangulateZones(sources, useBoundary, boundarySet)); },
                          "Error performing triangulation.", "");
}

} // namespace veldraw::sdk::ui::propertymanager
