#pragma once

#include "dialogs/bindings/QButtonObservable.h"
#include "dialogs/bindings/UIPropertyBindingAbstract.h"

#include <QPointer>

#include <memory>

class QAbstractButton;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties one radio button to one value of a property. A group of buttons is a group of bindings on the same property:
///
///     RadioButtonPropertyBinding<bool> all(form.allButton, manager.allZones(), true);
///     RadioButtonPropertyBinding<bool> some(form.someButton, manager.allZones(), false);
///
/// Only the button that is turned on writes; the others follow the property at idle. Qt keeps one button of an exclusive
/// group on, so while the property has a value that no button stands for, the button that was on last stays on.
///
/// A value that the property refuses is told in a message box, if the refusal has a text.
template <typename T>
class RadioButtonPropertyBinding : public UIPropertyBindingAbstract<T>
{
public:
    /// Keeps the property alive.
    RadioButtonPropertyBinding(QAbstractButton* button, boost::shared_ptr<PropertyAbstract<T>> property,
                               T const& buttonValue);
    ~RadioButtonPropertyBinding() override;

    void updateWidgetValue() override;
    void updateWidgetVisibility() override;
    void updateWidgetSensitivity() override;

private:
    class QButtonListener : public QButtonListenerInterface
    {
    public:
        explicit QButtonListener(RadioButtonPropertyBinding& binding);
        void buttonStateChanged(QButtonObservable& observable) override;

    private:
        RadioButtonPropertyBinding& m_binding;
    };

    void buttonStateChanged(QButtonObservable& observable);

    QPointer<QAbstractButton> const m_radioButton;
    T const m_buttonValue;
    std::unique_ptr<QButtonObservable> const m_observable;
    QButtonListener m_listener;
};

#define VELDRAW_DECLARE(T) extern template class RadioButtonPropertyBinding<T>;
VELDRAW_FOR_EACH_RADIO_BUTTON_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
