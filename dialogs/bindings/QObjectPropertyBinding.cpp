#include "dialogs/bindings/QObjectPropertyBinding.h"

#include <boost/pointer_cast.hpp>

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Listens to the property and asks the binding to update its widget.
template <typename T>
class QObjectPropertyBinding<T>::PropertyFollower : public UIPropertyBindingAbstract<T>
{
public:
    template <typename P>
    PropertyFollower(QObjectPropertyBinding& binding, P&& property, WidgetUpdateMode_e mode)
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
    : m_follower(new PropertyFollower(*this, uiProperty, mode))
{
}

template <typename T>
QObjectPropertyBinding<T>::QObjectPropertyBinding(boost::shared_ptr<PropertyAbstract<T>> property,
                                                  WidgetUpdateMode_e mode)
    : m_follower(new PropertyFollower(*this, property, mode))
{
}

// The follower only reads, so it may follow a const property; nothing writes to a property that is only shown.
template <typename T>
QObjectPropertyBinding<T>::QObjectPropertyBinding(boost::shared_ptr<PropertyAbstract<T> const> property,
                                                  WidgetUpdateMode_e mode)
    : m_follower(new PropertyFollower(*this, boost::const_pointer_cast<PropertyAbstract<T>>(property), mode))
{
}

template <typename T>
QObjectPropertyBinding<T>::~QObjectPropertyBinding() = default;

template <typename T>
PropertyAbstract<T>& QObjectPropertyBinding<T>::property()
{
    return m_follower->property();
}

template <typename T>
UIPropertyInterface& QObjectPropertyBinding<T>::uiProperty()
{
    return m_follower->uiProperty();
}

template <typename T>
void QObjectPropertyBinding<T>::updateValueOnIdle()
{
    m_follower->updateValueOnIdle();
}

template <typename T>
void QObjectPropertyBinding<T>::startListeningToProperty()
{
    m_follower->startListeningToProperty();
}

template <typename T>
void QObjectPropertyBinding<T>::stopListeningToProperty()
{
    m_follower->stopListeningToProperty();
}

#define VELDRAW_INSTANTIATE(T) template class QObjectPropertyBinding<T>;
VELDRAW_FOR_EACH_QOBJECT_BOUND_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
