#pragma once

#include "dialogs/property/UIProperty.h"
#include "dialogs/property/UIStylePropertyAbstract.h"

#include <set>
#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// A property that holds its value, its visibility and its sensitivity itself.
template <typename T>
class UILocalStyleProperty : public UIStylePropertyAbstract<T>
{
public:
    UILocalStyleProperty();
    /// An initial value is neither validated nor told.
    explicit UILocalStyleProperty(T const& initialValue);
    UILocalStyleProperty(T const& initialValue, boost::shared_ptr<ValidatorInterface<T> const> validator);
    ~UILocalStyleProperty() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    UILocalStyleProperty& operator=(UILocalStyleProperty const& other);

    void setVisible(bool visible) override;
    void setVisibilityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance) override;
    bool isVisible() const override;
    void setSensitive(bool sensitive) override;
    void setSensitivityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance) override;
    bool isSensitive() const override;

protected:
    void storeValue(T const& newValue) override;

private:
    T retrieveValue() const override;
    void passUISignalsOn();

    UIProperty m_uiProperty;
    T m_value;
};

/// Calls M(T) for each type with visibility and sensitivity of its own.
#define VELDRAW_FOR_EACH_UI_LOCAL_TYPE(M)                                                                              \
    M(int)                                                                                                             \
    M(double)                                                                                                          \
    M(bool)                                                                                                            \
    M(std::string)                                                                                                     \
    M(std::set<int>)                                                                                                   \
    M(AuxDataLocation_e)                                                                                               \
    M(VarStatus_e)

#define VELDRAW_DECLARE(T) extern template class UILocalStyleProperty<T>;
VELDRAW_FOR_EACH_UI_LOCAL_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::propertymanager
