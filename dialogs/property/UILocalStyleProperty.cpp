#include "dialogs/property/UILocalStyleProperty.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

template <typename T>
UILocalStyleProperty<T>::UILocalStyleProperty()
    : m_value()
{
    passUISignalsOn();
}

template <typename T>
UILocalStyleProperty<T>::UILocalStyleProperty(T const& initialValue)
    : m_value(initialValue)
{
    passUISignalsOn();
}

template <typename T>
UILocalStyleProperty<T>::UILocalStyleProperty(T const& initialValue,
                                              boost::shared_ptr<ValidatorInterface<T> const> validator)
    : UIStylePropertyAbstract<T>(std::move(validator))
    , m_value(initialValue)
{
    passUISignalsOn();
}

template <typename T>
UILocalStyleProperty<T>::~UILocalStyleProperty() = default;

template <typename T>
UILocalStyleProperty<T>& UILocalStyleProperty<T>::operator=(UILocalStyleProperty const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

// The held state has signals of its own, and listeners connect to ours. Both end together: nothing to disconnect.
template <typename T>
void UILocalStyleProperty<T>::passUISignalsOn()
{
    m_uiProperty.connectVisibilityChanged([this] { this->signalVisibilityChanged(); });
    m_uiProperty.connectSensitivityChanged([this] { this->signalSensitivityChanged(); });
}

template <typename T>
void UILocalStyleProperty<T>::setVisible(bool visible)
{
    m_uiProperty.setVisible(visible);
}

template <typename T>
void UILocalStyleProperty<T>::setVisibilityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance)
{
    m_uiProperty.setVisibilityRelevance(relevance);
}

template <typename T>
bool UILocalStyleProperty<T>::isVisible() const
{
    return m_uiProperty.isVisible();
}

template <typename T>
void UILocalStyleProperty<T>::setSensitive(bool sensitive)
{
    m_uiProperty.setSensitive(sensitive);
}

template <typename T>
void UILocalStyleProperty<T>::setSensitivityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance)
{
    m_uiProperty.setSensitivityRelevance(relevance);
}

template <typename T>
bool UILocalStyleProperty<T>::isSensitive() const
{
    return m_uiProperty.isSensitive();
}

template <typename T>
void UILocalStyleProperty<T>::storeValue(T const& newValue)
{
    m_value = newValue;
}

template <typename T>
T UILocalStyleProperty<T>::retrieveValue() const
{
    return m_value;
}

#define VELDRAW_DEFINE(T) template class UILocalStyleProperty<T>;
VELDRAW_FOR_EACH_UI_LOCAL_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::ui::propertymanager
