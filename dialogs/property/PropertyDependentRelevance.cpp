#include "dialogs/property/PropertyDependentRelevance.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

template <typename T>
PropertyDependentRelevance<T>::PropertyDependentRelevance(boost::shared_ptr<PropertyAbstract<T> const> property,
                                                          T const& relevantValue)
    : PropertyDependentRelevanceAbstract<T>(std::move(property))
    , m_relevantValues{relevantValue}
{
}

template <typename T>
PropertyDependentRelevance<T>::PropertyDependentRelevance(PropertyAbstract<T> const& property, T const& relevantValue)
    : PropertyDependentRelevanceAbstract<T>(property)
    , m_relevantValues{relevantValue}
{
}

template <typename T>
PropertyDependentRelevance<T>::PropertyDependentRelevance(UIStylePropertyAbstract<T>& property, T const& relevantValue,
                                                          bool includeUIState)
    : PropertyDependentRelevanceAbstract<T>(property, includeUIState)
    , m_relevantValues{relevantValue}
{
}

template <typename T>
PropertyDependentRelevance<T>::~PropertyDependentRelevance() = default;

template <typename T>
void PropertyDependentRelevance<T>::addRelevantValue(T const& value)
{
    m_relevantValues.insert(value);
}

template <typename T>
bool PropertyDependentRelevance<T>::isRelevantValue(T const& value) const
{
    return m_relevantValues.count(value) > 0;
}

#define VELDRAW_DEFINE(T) template class PropertyDependentRelevance<T>;
VELDRAW_FOR_EACH_RULE_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::ui::propertymanager
