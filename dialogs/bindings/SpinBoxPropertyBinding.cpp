#include "dialogs/bindings/SpinBoxPropertyBinding.h"

#include "dialogs/bindings/ScopedExitAction.h"
#include "dialogs/bindings/SpinBoxRange.h"
#include "dialogs/bindings/SpinBoxStep.h"
#include "dialogs/bindings/ValueCommit.h"
#include "dialogs/bindings/WheelGuard.h"
#include "platform/signals/WholeConnection.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include <boost/pointer_cast.hpp>

#include <cmath>
#include <type_traits>

namespace veldraw::sdk::ui::dialogs::propertybindings {

template <typename T, typename Box>
SpinBoxPropertyBinding<T, Box>::SpinBoxPropertyBinding(Box* const box, boost::shared_ptr<PropertyAbstract<T>> property,
                                                       boost::shared_ptr<SpinBoxIncDecCalculatorBase> calculator)
    : QObjectPropertyBinding<T>(property, BindingInterface::UpdateOnIdle)
    , m_box(box)
    , m_property(property)
    , m_calculator(calculator)
    , m_abandonedInput(*box, [this] { dropTypedText(); })
{
    // With keyboard tracking each key would set the property, and the binding would rewrite the text while the user types.
    box->setKeyboardTracking(false);
    new WheelGuard(*box);
    SpinBoxPropertyBinding::updateWidgetValue();
    listenToBox();
}

template <typename T, typename Box>
SpinBoxPropertyBinding<T, Box>::~SpinBoxPropertyBinding() = default;

// Qt does not signal a value that differs from the last one by a tiny fraction only, so the binding listens to the end of editing
// too.
template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::listenToBox()
{
    m_qtConnections.add(
        QObject::connect(m_box.data(), QOverload<Number>::of(&Box::valueChanged), this, [this] { boxEdited(); }));
    m_qtConnections.add(QObject::connect(m_box.data(), &Box::editingFinished, this, [this] { boxEdited(); }));
    m_qtConnections.add(QObject::connect(m_box->template findChild<QLineEdit*>(), &QLineEdit::textEdited, this,
                                         [this] { textEdited(); }));
    m_connections.add(m_box->connectIncrement([this](int count) { step(count, true); }));
    m_connections.add(m_box->connectDecrement([this](int count) { step(count, false); }));
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::updateWidgetValue()
{
    if (!m_box)
        return;
    m_isWriteDue = isBeingTyped();
    if (m_isWriteDue)
        return;
    QSignalBlocker const blocker(m_box.data());
    takeLimits();
    m_box->setValue(shownIn<Number>(m_property->value()));
    typingIsHandled();
}

template <typename T, typename Box>
boost::signals2::connection
SpinBoxPropertyBinding<T, Box>::connectArrowsUsed(ArrowsUsedSignal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalArrowsUsed.connect(whole); },
        [this] { signalArrowsUsedConnected(); });
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::signalArrowsUsedConnected() const
{
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::textEdited()
{
    m_isTyped = true;
    m_isNumberTyped = m_box->hasAcceptableInput();
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::boxEdited()
{
    if (!m_box || m_isCommitting)
        return;
    if (m_box->value() != m_shown || isRetyped()) {
        commit(m_box->value());
    } else {
        m_isTyped = false;
        if (m_isWriteDue)
            this->updateValueOnIdle();
    }
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::step(int count, bool isUp)
{
    if (!m_box || m_isCommitting || !commitTypedText())
        return;
    SpinBoxStep const steps{m_calculator.get(), static_cast<double>(m_box->singleStep()), count, isUp};
    double const target = steps.from(static_cast<double>(m_property->value()));
    if (!std::isnan(target) && commit(withinRange<T>(target, m_box->minimum(), m_box->maximum())))
        signalArrowsUsed();
}

// Returns false when the property refused the typed text, or when a listener destroyed this binding or its box.
template <typename T, typename Box>
bool SpinBoxPropertyBinding<T, Box>::commitTypedText()
{
    QPointer<QObject> const self = this;
    m_wasRefused = false;
    m_box->interpretText();
    if (self)
        boxEdited();
    return self && m_box && !m_wasRefused;
}

// Returns false when the property refused the value, or when a listener destroyed this binding.
template <typename T, typename Box>
bool SpinBoxPropertyBinding<T, Box>::commit(T value)
{
    QPointer<QObject> const self = this;
    boost::shared_ptr<PropertyAbstract<T>> const property = m_property;
    m_isCommitting = true;
    ScopedExitAction const done([this, self] {
        if (self)
            m_isCommitting = false;
    });
    // The box is written in any case: the property may have refused or altered the value.
    typingIsHandled();
    this->updateValueOnIdle();
    // An arrow that is held down must not go on stepping while the message is shown.
    bool const isTaken = commitValue(*property, value, [this] { m_box->stopStepping(); });
    if (!self)
        return false;
    m_wasRefused = !isTaken;
    if (m_wasRefused && m_box)
        showRefusal();
    return isTaken;
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::showRefusal()
{
    updateWidgetValue();
    m_box->activateWindow();
    m_box->setFocus();
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::takeLimits()
{
    if constexpr (std::is_integral_v<T>) {
        auto const limits = boost::dynamic_pointer_cast<BoundedValueValidator<T> const>(m_property->validator());
        if (limits)
            m_box->setRange(lowestInRange(*limits, m_box->minimum()), highestInRange(*limits, m_box->maximum()));
    }
}

// A typed text is unfinished as long as it differs from the text that the box writes: when editing ends, the box replaces the
// typed text by its own.
template <typename T, typename Box>
bool SpinBoxPropertyBinding<T, Box>::isBeingTyped() const
{
    return m_isTyped && m_box->text() != m_shownText;
}

// The user may type the very number that the box shows. The box does not change then, but the property must: the box may show
// its limit in place of a value beyond it, or an older value of the property. A text that is no number counts for nothing.
template <typename T, typename Box>
bool SpinBoxPropertyBinding<T, Box>::isRetyped() const
{
    return m_isTyped && m_isNumberTyped && m_box->value() != m_property->value();
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::typingIsHandled()
{
    m_shown = m_box->value();
    m_shownText = m_box->text();
    m_isTyped = false;
}

template <typename T, typename Box>
void SpinBoxPropertyBinding<T, Box>::dropTypedText()
{
    m_isTyped = false;
    updateWidgetValue();
}

template class SpinBoxPropertyBinding<double, veldraw::ui::QScientificSpinBox>;
template class SpinBoxPropertyBinding<int, veldraw::ui::IntegralSpinBox>;
template class SpinBoxPropertyBinding<long long, veldraw::ui::IntegralSpinBox>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
