#pragma once

#include "dialogs/bindings/RadioButtonPropertyBinding.h"
#include "dialogs/bindings/WidgetVote.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkbase/VelUtilDialog.h"

#include <QAbstractButton>

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

template <typename T>
RadioButtonPropertyBinding<T>::QButtonListener::QButtonListener(RadioButtonPropertyBinding& binding)
    : m_binding(binding)
{
}

template <typename T>
void RadioButtonPropertyBinding<T>::QButtonListener::buttonStateChanged(QButtonObservable& observable)
{
    m_binding.buttonStateChanged(observable);
}

template <typename T>
RadioButtonPropertyBinding<T>::RadioButtonPropertyBinding(QAbstractButton* button,
                                                          boost::shared_ptr<PropertyAbstract<T>> property,
                                                          T const& buttonValue)
    : UIPropertyBindingAbstract<T>(std::move(property), BindingInterface::UpdateOnIdle)
    , m_radioButton(button)
    , m_buttonValue(buttonValue)
    , m_observable(new QButtonObservable(button))
    , m_listener(*this)
{
    m_observable->addListener(&m_listener);
    updateWidgetValue();
}

template <typename T>
RadioButtonPropertyBinding<T>::~RadioButtonPropertyBinding()
{
    m_observable->removeListener(&m_listener);
}

template <typename T>
void RadioButtonPropertyBinding<T>::updateWidgetValue()
{
    if (!m_radioButton)
        return;
    m_radioButton->setChecked(this->property().value() == m_buttonValue);
    m_radioButton->update();
}

template <typename T>
void RadioButtonPropertyBinding<T>::updateWidgetVisibility()
{
    WidgetVote::castFor(&this->uiProperty(), m_radioButton, WidgetVote::Visible, this->uiProperty().isVisible());
}

template <typename T>
void RadioButtonPropertyBinding<T>::updateWidgetSensitivity()
{
    WidgetVote::castFor(&this->uiProperty(), m_radioButton, WidgetVote::Enabled, this->uiProperty().isSensitive());
}

// A button that is turned off leaves the property alone: its neighbour in the group writes. But when the property refuses
// the neighbour's value, only the button that was on before can bring the group back.
template <typename T>
void RadioButtonPropertyBinding<T>::buttonStateChanged(QButtonObservable& observable)
{
    this->updateValueOnIdle();
    if (!observable.buttonWidget()->isChecked())
        return;
    try {
        this->setPropertyValue(m_buttonValue);
    } catch (InvalidPropertyValueException const& refusal) {
        if (*refusal.what())
            VelUtilDialogMessageBox(refusal.what(), MessageBoxType_Error);
    } catch (InvalidArgumentException const&) {
        // Nothing to say: the value never became one.
    }
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
