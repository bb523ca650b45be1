#include "dialogs/property/PropertyPredicateDependentRelevance.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

PropertyPredicateDependentRelevance::PropertyPredicateDependentRelevance(
    boost::shared_ptr<PropertyItemInterface const> property, boost::function<bool()> const& predicate)
    : m_property(std::move(property))
    , m_predicate(predicate)
    , m_propertyConnection(m_property->connectPropertyChanged([this] { signalRelevanceChanged(); }))
{
}

bool PropertyPredicateDependentRelevance::isRelevant() const
{
    return m_predicate();
}

} // namespace veldraw::sdk::ui::propertymanager
