#include "dialogs/smoothing/TriangulateButtonRelevance.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

TriangulateButtonRelevance::TriangulateButtonRelevance(ZonesProperty sourceZones,
                                                       boost::shared_ptr<PropertyAbstract<bool> const> useBoundaryZones,
                                                       ZonesProperty boundaryZones,
                                                       boost::shared_ptr<BoundaryModel const> const& boundaryZonesModel)
    : m_sourceZones(std::move(sourceZones))
    , m_useBoundaryZones(std::move(useBoundaryZones))
    , m_boundaryZones(std::move(boundaryZones))
    , m_boundaryChoiceCount(boundaryZonesModel->size())
{
    auto const tell = [this] { signalRelevanceChanged(); };
    m_connections.add(m_sourceZones->connectPropertyChanged(tell));
    m_connections.add(m_boundaryZones->connectPropertyChanged(tell));
    m_connections.add(m_useBoundaryZones->connectPropertyChanged(tell));
}

TriangulateButtonRelevance::~TriangulateButtonRelevance() = default;

bool TriangulateButtonRelevance::isRelevant() const
{
    if (m_sourceZones->value().empty())
        return false;
    bool const needsBoundary = m_useBoundaryZones->value() && m_boundaryChoiceCount >= 1;
    return !needsBoundary || !m_boundaryZones->value().empty();
}

} // namespace veldraw::sdk::ui::propertymanager
