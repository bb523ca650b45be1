#pragma once

#include "dialogs/bindings/BindingInterface.h"
#include "dialogs/property/Property.h"

#include <QString>
#include <QWidget>

#include <boost/make_shared.hpp>

#include <array>
#include <functional>
#include <memory>
#include <utility>

namespace veldraw::tests {

/// A control that is bound to a property with three values, whatever kind of binding it is.
struct BoundControl
{
    std::function<void(int)> set; ///< sets the property to its value 0, 1 or 2
    std::function<int()> value;   ///< which one it has
    std::function<boost::signals2::connection(std::function<void()>)> connect;
    std::function<void()> bind;
    std::function<QString()> look; ///< what the control shows
    std::unique_ptr<sdk::ui::dialogs::propertybindings::BindingInterface> binding;
    std::unique_ptr<QWidget> widget;

    // The binding goes before the widget.
    ~BoundControl() { binding.reset(); }
};

/// Makes everything but the binding's lines, which are `makeBinding(Control&, shared pointer of the property)`, and the
/// look, which is `look(Control const&)`.
template <typename T, typename Control, typename MakeBinding, typename Look>
std::unique_ptr<BoundControl> boundControl(std::array<T, 3> const& values, std::unique_ptr<Control> control,
                                           MakeBinding makeBinding, Look look)
{
    boost::shared_ptr<PropertyAbstract<T>> const property = boost::make_shared<Property<T>>(values[0]);
    auto made = std::make_unique<BoundControl>();
    Control* const widget = control.get();
    made->widget = std::move(control);
    made->set = [property, values](int which) { property->setValue(values[static_cast<std::size_t>(which)]); };
    made->value = [property, values] {
        int which = 0;
        while (which < 3 && !(values[static_cast<std::size_t>(which)] == property->value()))
            ++which;
        return which;
    };
    made->connect = [property](std::function<void()> const& slot) {
        return property->connectValueChanged([slot](T const&) { slot(); });
    };
    made->bind = [target = made.get(), widget, property, makeBinding] {
        target->binding = makeBinding(*widget, property);
    };
    made->look = [widget, look] { return look(*widget); };
    return made;
}

} // namespace veldraw::tests
