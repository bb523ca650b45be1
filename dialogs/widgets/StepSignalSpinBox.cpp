#include "dialogs/widgets/StepSignalSpinBox.h"

#include "platform/signals/WholeConnection.h"

#include <QHideEvent>

namespace veldraw::ui {

template <typename Base>
StepSignalSpinBox<Base>::StepSignalSpinBox(QWidget* parent)
    : Base(parent)
{
}

template <typename Base>
StepSignalSpinBox<Base>::~StepSignalSpinBox() = default;

template <typename Base>
void StepSignalSpinBox<Base>::fixup(QString&) const
{
}

template <typename Base>
void StepSignalSpinBox<Base>::stepBy(int steps)
{
    if (steps > 0)
        m_increment(steps);
    else if (steps < 0)
        m_decrement(-steps);
}

// Qt ends the repetition when the box is hidden; it has no function for that.
template <typename Base>
void StepSignalSpinBox<Base>::stopStepping()
{
    QHideEvent event;
    this->hideEvent(&event);
}

template <typename Base>
boost::signals2::connection StepSignalSpinBox<Base>::connectIncrement(boost::function<void(int)> const& slot)
{
    return sdk::connectWhole(
        StepSignal::slot_type(slot), [this](auto const& whole) { return m_increment.connect(whole); },
        [this] { signalIncrementConnected(); });
}

template <typename Base>
boost::signals2::connection StepSignalSpinBox<Base>::connectDecrement(boost::function<void(int)> const& slot)
{
    return sdk::connectWhole(
        StepSignal::slot_type(slot), [this](auto const& whole) { return m_decrement.connect(whole); },
        [this] { signalDecrementConnected(); });
}

template <typename Base>
void StepSignalSpinBox<Base>::signalIncrementConnected() const
{
}

template <typename Base>
void StepSignalSpinBox<Base>::signalDecrementConnected() const
{
}

template class StepSignalSpinBox<QSpinBox>;
template class StepSignalSpinBox<QDoubleSpinBox>;

} // namespace veldraw::ui
