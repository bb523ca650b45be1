#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/RelevanceInterface.h"
#include "dialogs/property/UIStylePropertyAbstract.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// A rule that depends on the value of a property and, if asked for, on the state of its control: with that, a matching value
/// on a disabled or hidden control makes the rule false.
///
/// A rule made from a shared pointer keeps the property alive; one made from a reference must end before the property.
template <typename T>
class PropertyDependentRelevanceAbstract : public virtual RelevanceInterface
{
public:
    explicit PropertyDependentRelevanceAbstract(boost::shared_ptr<PropertyAbstract<T> const> property);
    explicit PropertyDependentRelevanceAbstract(PropertyAbstract<T> const& property);
    PropertyDependentRelevanceAbstract(UIStylePropertyAbstract<T>& property, bool includeUIState);
    ~PropertyDependentRelevanceAbstract() override;

    bool isRelevant() const override;

protected:
    virtual bool isRelevantValue(T const& value) const = 0;

private:
    void followValue();
    void followUIState();

    PropertyAbstract<T> const* m_property;
    boost::shared_ptr<PropertyAbstract<T> const> m_keptProperty;
    UIPropertyInterface const* m_uiProperty = nullptr;
    bool m_includeUIState = false;
    SignalConnectionCollection m_connections;
};

/// Calls M(T) for each type with a rule on single values.
#define VELDRAW_FOR_EACH_RULE_TYPE(M)                                                                                  \
    M(bool)                                                                                                            \
    M(AuxDataLocation_e)                                                                                               \
    M(PtSelection_e)                                                                                                   \
    M(LinearInterpMode_e)

extern template class VDSDKDIALOGS_DATA_QT_API PropertyDependentRelevanceAbstract<bool>;
#define VELDRAW_DECLARE(T) extern template class PropertyDependentRelevanceAbstract<T>;
VELDRAW_FOR_EACH_RULE_TYPE(VELDRAW_DECLARE)
VELDRAW_DECLARE(std::set<int>)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::propertymanager
