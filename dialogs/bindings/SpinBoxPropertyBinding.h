#pragma once

#include "dialogs/bindings/AbandonedInputFilter.h"
#include "dialogs/bindings/QObjectPropertyBinding.h"
#include "dialogs/bindings/QtSignalConnectionCollection.h"
#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/SpinBoxIncDecCalculatorBase.h"
#include "dialogs/widgets/IntegralSpinBox.h"
#include "dialogs/widgets/QScientificSpinBox.h"

#include <QPointer>

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

using propertymanager::SpinBoxIncDecCalculatorBase;

/// Ties a spin box to a number: what the three spin box bindings have in common.
///
/// What the box shows is never read back. The property is set when the user has typed a number and finishes by Return,
/// Tab or by going elsewhere, and by steps. A box that rounds or that has a smaller range than the property changes
/// nothing. Nor does a change of the property take unfinished text away: the box follows once it is finished. What is
/// unfinished when the window goes off the screen is dropped.
///
/// A step commits what was typed, starts from the property's value and ends within the box's range; where it leads is the
/// calculator's answer or, without a calculator, the box's single step. A step counts like a typed value.
///
/// A value that the property refuses is told in a message box, if the refusal has a text; the box shows the property's
/// value again and keeps the focus. The wheel works over a box that has the focus only.
///
/// A box for whole numbers takes its range from a `BoundedValueValidator` that the property has when the box is written.
template <typename T, typename Box>
class SpinBoxPropertyBinding : public QObjectPropertyBinding<T>
{
public:
    using ArrowsUsedSignal = boost::signals2::signal<void()>;

    /// Keeps property and calculator alive; the calculator may be null.
    SpinBoxPropertyBinding(Box* const box, boost::shared_ptr<PropertyAbstract<T>> property,
                           boost::shared_ptr<SpinBoxIncDecCalculatorBase> calculator);
    ~SpinBoxPropertyBinding() override;

    void updateWidgetValue() override;
    /// Nothing to do: a plain property has no visibility of its own.
    void updateWidgetVisibility() override {}
    /// Nothing to do: a plain property has no sensitivity of its own.
    void updateWidgetSensitivity() override {}

    /// Connects a slot that hears of each use of arrows, keys or wheel that the property accepted, after it has the new
    /// value, and then runs the hook `signalArrowsUsedConnected()`.
    boost::signals2::connection connectArrowsUsed(ArrowsUsedSignal::slot_type const& slot) const;

private:
    virtual void signalArrowsUsedConnected() const;

protected:
    mutable ArrowsUsedSignal signalArrowsUsed;

private:
    using Number = decltype(std::declval<Box&>().value());

    void listenToBox();
    void textEdited();
    void boxEdited();
    void step(int count, bool isUp);
    bool commitTypedText();
    bool commit(T value);
    void showRefusal();
    void takeLimits();
    bool isBeingTyped() const;
    bool isRetyped() const;
    void typingIsHandled();
    void dropTypedText();

    QPointer<Box> const m_box;
    boost::shared_ptr<PropertyAbstract<T>> const m_property;
    boost::shared_ptr<SpinBoxIncDecCalculatorBase> const m_calculator;
    Number m_shown{};             // value of the box when it was written or read last
    QString m_shownText;          // text of the box at that time
    bool m_isTyped = false;       // the user has edited the text since that time
    bool m_isNumberTyped = false; // the edited text is a number
    bool m_isWriteDue = false;    // the property changed while the user was typing
    bool m_isCommitting = false;  // the message box of a refusal must not cause another commit
    bool m_wasRefused = false;
    QtSignalConnectionCollection m_qtConnections;
    SignalConnectionCollection m_connections;
    AbandonedInputFilter m_abandonedInput;
};

extern template class VDSDKDIALOGS_DATA_QT_API SpinBoxPropertyBinding<double, veldraw::ui::QScientificSpinBox>;
extern template class VDSDKDIALOGS_DATA_QT_API SpinBoxPropertyBinding<int, veldraw::ui::IntegralSpinBox>;
extern template class VDSDKDIALOGS_DATA_QT_API SpinBoxPropertyBinding<long long, veldraw::ui::IntegralSpinBox>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
