#pragma once

#include "dialogs/property/PropertyDependentRelevanceAbstract.h"

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// True while the property has one of a set of values.
template <typename T>
class PropertyDependentRelevance : public PropertyDependentRelevanceAbstract<T>
{
public:
    PropertyDependentRelevance(boost::shared_ptr<PropertyAbstract<T> const> property, T const& relevantValue);
    PropertyDependentRelevance(PropertyAbstract<T> const& property, T const& relevantValue);
    PropertyDependentRelevance(UIStylePropertyAbstract<T>& property, T const& relevantValue, bool includeUIState);
    ~PropertyDependentRelevance() override;

    /// Signals nothing: it is meant for the set-up, before anybody listens.
    void addRelevantValue(T const& value);

protected:
    bool isRelevantValue(T const& value) const override;

private:
    std::set<T> m_relevantValues;
};

extern template class VDSDKDIALOGS_DATA_QT_API PropertyDependentRelevance<bool>;
#define VELDRAW_DECLARE(T) extern template class PropertyDependentRelevance<T>;
VELDRAW_FOR_EACH_RULE_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::propertymanager
