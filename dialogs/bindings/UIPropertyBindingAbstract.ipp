#pragma once

#include "dialogs/bindings/UIPropertyBindingAbstract.h"

#include <cassert>

namespace veldraw::sdk::ui::dialogs::propertybindings {

template <typename T>
UIPropertyBindingAbstract<T>::UIPropertyBindingAbstract(UIStylePropertyAbstract<T>& uiProperty, WidgetUpdateMode_e mode)
    : m_widgetUpdateMode(mode)
    , m_uiProperty(&uiProperty)
    , m_property(&uiProperty)
    , m_widgetUpdater([this] { updateWidgetValue(); })
    , m_visibilityUpdater([this] { updateWidgetVisibility(); })
    , m_sensitivityUpdater([this] { updateWidgetSensitivity(); })
{
    startListeningToProperty();
}

template <typename T>
UIPropertyBindingAbstract<T>::UIPropertyBindingAbstract(boost::shared_ptr<PropertyAbstract<T>> property,
                                                        WidgetUpdateMode_e mode)
    : m_widgetUpdateMode(mode)
    , m_uiProperty(nullptr)
    , m_property(property.get())
    , m_sharedProperty(property)
    , m_widgetUpdater([this] { updateWidgetValue(); })
    , m_visibilityUpdater([this] { updateWidgetVisibility(); })
    , m_sensitivityUpdater([this] { updateWidgetSensitivity(); })
{
    startListeningToProperty();
}

template <typename T>
UIPropertyBindingAbstract<T>::~UIPropertyBindingAbstract() = default;

template <typename T>
PropertyAbstract<T>& UIPropertyBindingAbstract<T>::property()
{
    return *m_property;
}

template <typename T>
UIPropertyInterface& UIPropertyBindingAbstract<T>::uiProperty()
{
    assert(m_uiProperty);
    return *m_uiProperty;
}

template <typename T>
void UIPropertyBindingAbstract<T>::setPropertyValue(T const& value)
{
    boost::shared_ptr<PropertyAbstract<T>> const keptProperty = m_sharedProperty;
    m_property->setValue(value);
}

template <typename T>
void UIPropertyBindingAbstract<T>::updateValueOnIdle()
{
    m_widgetUpdater.enableNotification();
}

template <typename T>
void UIPropertyBindingAbstract<T>::startListeningToProperty()
{
    m_connections.add(m_property->connectValueChanged([this](T const&) { valueChanged(); }));
    if (!m_uiProperty)
        return;
    m_connections.add(m_uiProperty->connectVisibilityChanged([this] { visibilityChanged(); }));
    m_connections.add(m_uiProperty->connectSensitivityChanged([this] { sensitivityChanged(); }));
}

template <typename T>
void UIPropertyBindingAbstract<T>::stopListeningToProperty()
{
    m_connections.clear();
}

template <typename T>
void UIPropertyBindingAbstract<T>::valueChanged()
{
    if (m_widgetUpdateMode == UpdateImmediately)
        updateWidgetValue();
    else
        updateValueOnIdle();
}

template <typename T>
void UIPropertyBindingAbstract<T>::visibilityChanged()
{
    if (m_widgetUpdateMode == UpdateImmediately)
        updateWidgetVisibility();
    else
        m_visibilityUpdater.enableNotification();
}

template <typename T>
void UIPropertyBindingAbstract<T>::sensitivityChanged()
{
    if (m_widgetUpdateMode == UpdateImmediately)
        updateWidgetSensitivity();
    else
        m_sensitivityUpdater.enableNotification();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
