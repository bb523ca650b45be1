#pragma once

#include "dialogs/bindings/UIPropertyBindingAbstract.h"
#include "dialogs/property/DialogsApi.h"

#include <QObject>

#include <memory>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// The base of bindings that are `QObject`s with slots of their own. It listens to the property and has the widget
/// updated by the rules of `UIPropertyBindingAbstract`. A concrete class names this base first, since moc wants the
/// `QObject` there, and may have `Q_OBJECT`, which a template can't.
template <typename T>
class QObjectPropertyBinding : public QObject, public virtual PropertyBindingInterface
{
public:
    /// Follows value, visibility and sensitivity. The caller keeps the property alive.
    QObjectPropertyBinding(UIStylePropertyAbstract<T>& uiProperty, WidgetUpdateMode_e mode);
    /// Follows the value; keeps the property alive.
    QObjectPropertyBinding(boost::shared_ptr<PropertyAbstract<T>> property, WidgetUpdateMode_e mode);
    /// The same for a widget that only shows the value; a binding made this way must not set property().
    QObjectPropertyBinding(boost::shared_ptr<PropertyAbstract<T> const> property, WidgetUpdateMode_e mode);
    ~QObjectPropertyBinding() override;

    PropertyAbstract<T>& property();
    /// Only for a binding that was made with a user-interface property.
    UIPropertyInterface& uiProperty();

protected:
    /// Schedules one write of the widget for the next idle moment.
    void updateValueOnIdle();
    void startListeningToProperty();
    /// See `UIPropertyBindingAbstract`.
    void stopListeningToProperty();

private:
    class PropertyFollower;
    std::unique_ptr<PropertyFollower> const m_follower;
};

#define VELDRAW_DECLARE(T) extern template class VDSDKDIALOGS_DATA_QT_API QObjectPropertyBinding<T>;
VELDRAW_FOR_EACH_QOBJECT_BOUND_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
