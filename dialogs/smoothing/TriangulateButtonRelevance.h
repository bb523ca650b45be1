#pragma once

#include "dialogs/models/ListModelInterface.h"
#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <boost/shared_ptr.hpp>

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// True while there is something to triangulate: source zones and, if boundary zones are to be used and there were any to choose
/// from when the rule was made, boundary zones.
class TriangulateButtonRelevance : public virtual RelevanceInterface
{
public:
    using ZonesProperty = boost::shared_ptr<PropertyAbstract<std::set<int>> const>;
    using BoundaryModel = dialogs::propertybindings::models::ListModelInterface<int>;

    /// Keeps the properties alive; the model is asked for its size here and not kept.
    TriangulateButtonRelevance(ZonesProperty sourceZones,
                               boost::shared_ptr<PropertyAbstract<bool> const> useBoundaryZones,
                               ZonesProperty boundaryZones,
                               boost::shared_ptr<BoundaryModel const> const& boundaryZonesModel);
    ~TriangulateButtonRelevance() override;

    bool isRelevant() const override;

private:
    ZonesProperty const m_sourceZones;
    boost::shared_ptr<PropertyAbstract<bool> const> const m_useBoundaryZones;
    ZonesProperty const m_boundaryZones;
    int const m_boundaryChoiceCount;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
