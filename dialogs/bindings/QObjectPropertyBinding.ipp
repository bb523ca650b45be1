#pragma once

#include "dialogs/bindings/QObjectPropertyBinding.h"

#include <boost/pointer_cast.hpp>

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Listens to the property and hands what is to be done to the binding.
template <typename T>
class QObjectPropertyBinding<T>::Road : public UIPropertyBindingAbstract<T>
{
public:
    template <typename P>
    Road(QObjectPropertyBinding& binding, P&& property, WidgetUpdateMode_e mode)
        : UIPropertyBindingAbstract<T>(std::forward<P>(property), mode)
        , m_binding(binding)
    {
    }

    void updateWidgetValue() override { m_binding.updateWidgetValue(); }
    void updateWidgetVisibility() override { m_binding.updateWidgetVisibility(); }
    void updateWidgetSensitivity() override { m_binding.updateWidgetSensitivity(); }

    using UIPropertyBindingAbstract<T>::startListeningToProperty;
    using UIPropertyBindingAbstract<T>::stopListeningToProperty;
    using UIPropertyBindingAbstract<T>::updateValueOnIdle;

private:
    QObjectPropertyBinding& m_binding;
};

template <typename T>
QObjectPropertyBinding<T>::QObjectPropertyBinding(UIStylePropertyAbstract<T>& uiProperty, WidgetUpdateMode_e mode)
    : m_road(new Road(*this, uiProperty, mode))
{
}

template <typename T>
QObjectPropertyBinding<T>::QObjectPropertyBinding(boost::shared_ptr<PropertyAbstract<T>> property,
                                                  WidgetUpdateMode_e mode)
    : m_road(new Road(*this, property, mode))
{
}

// The road only reads; a binding that was given a const property has nothing to write to it.
template <typename T>
QObjectPropertyBinding<T>::QObjectPropertyBinding(boost::shared_ptr<PropertyAbstract<T> const> property,
                                                  WidgetUpdateMode_e mode)
    : m_road(new Road(*this, boost::const_pointer_cast<PropertyAbstract<T>>(property), mode))
{
}

template <typename T>
QObjectPropertyBinding<T>::~QObjectPropertyBinding() = default;

template <typename T>
PropertyAbstract<T>& QObjectPropertyBinding<T>::property()
{
    return m_road->property();
}

template <typename T>
UIPropertyInterface& QObjectPropertyBinding<T>::uiProperty()
{
    return m_road->uiProperty();
}

template <typename T>
void QObjectPropertyBinding<T>::updateValueOnIdle()
{
    m_road->updateValueOnIdle();
}

template <typename T>
void QObjectPropertyBinding<T>::startListeningToProperty()
{
    m_road->startListeningToProperty();
}

template <typename T>
void QObjectPropertyBinding<T>::stopListeningToProperty()
{
    m_road->stopListeningToProperty();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
