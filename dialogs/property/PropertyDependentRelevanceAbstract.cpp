#include "dialogs/property/PropertyDependentRelevanceAbstract.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

template <typename T>
PropertyDependentRelevanceAbstract<T>::PropertyDependentRelevanceAbstract(
    boost::shared_ptr<PropertyAbstract<T> const> property)
    : m_property(property.get())
    , m_keptProperty(std::move(property))
{
    followValue();
}

template <typename T>
PropertyDependentRelevanceAbstract<T>::PropertyDependentRelevanceAbstract(PropertyAbstract<T> const& property)
    : m_property(&property)
{
    followValue();
}

template <typename T>
PropertyDependentRelevanceAbstract<T>::PropertyDependentRelevanceAbstract(UIStylePropertyAbstract<T>& property,
                                                                          bool includeUIState)
    : m_property(&property)
    , m_uiProperty(&property)
    , m_includeUIState(includeUIState)
{
    followValue();
    if (m_includeUIState)
        followUIState();
}

template <typename T>
PropertyDependentRelevanceAbstract<T>::~PropertyDependentRelevanceAbstract() = default;

template <typename T>
bool PropertyDependentRelevanceAbstract<T>::isRelevant() const
{
    bool const valueMatches = isRelevantValue(m_property->value());
    if (!valueMatches || !m_includeUIState)
        return valueMatches;
    return m_uiProperty->isSensitive() && m_uiProperty->isVisible();
}

template <typename T>
void PropertyDependentRelevanceAbstract<T>::followValue()
{
    m_connections.add(m_property->connectValueChanged([this](T const&) { signalRelevanceChanged(); }));
}

template <typename T>
void PropertyDependentRelevanceAbstract<T>::followUIState()
{
    m_connections.add(m_uiProperty->connectSensitivityChanged([this] { signalRelevanceChanged(); }));
    m_connections.add(m_uiProperty->connectVisibilityChanged([this] { signalRelevanceChanged(); }));
}

#define VELDRAW_DEFINE(T) template class PropertyDependentRelevanceAbstract<T>;
VELDRAW_FOR_EACH_RULE_TYPE(VELDRAW_DEFINE)
VELDRAW_DEFINE(std::set<int>)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::ui::propertymanager
