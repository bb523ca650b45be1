#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QDoubleSpinBox>
#include <QSpinBox>

#include <boost/function.hpp>
#include <boost/signals2/connection.hpp>
#include <boost/signals2/signal.hpp>

namespace veldraw::ui {

/// A spin box of Qt's that does not step by itself: arrows, arrow and page keys and wheel only say that a step is asked for, and
/// whoever listens decides where it leads. Nor does it mend a text that is no number.
template <typename Base>
class StepSignalSpinBox : public Base
{
public:
    explicit StepSignalSpinBox(QWidget* parent = nullptr);
    ~StepSignalSpinBox() override;

    /// Mends nothing: a text that is no number must not be made one.
    void fixup(QString& text) const override;

    /// Signals how many steps, at least 1, are asked for: up for positive numbers, down for negative ones, none for 0.
    void stepBy(int steps) override;
    /// Ends the repetition of steps while an arrow is held down, as when something else now needs the user's attention.
    void stopStepping();

    /// Connects a slot, which gets the number of steps, and then runs the hook `signalIncrementConnected()`.
    boost::signals2::connection connectIncrement(boost::function<void(int)> const& slot);
    /// Connects a slot, which gets the number of steps, and then runs the hook `signalDecrementConnected()`.
    boost::signals2::connection connectDecrement(boost::function<void(int)> const& slot);

private:
    virtual void signalIncrementConnected() const;
    virtual void signalDecrementConnected() const;

    using StepSignal = boost::signals2::signal<void(int)>;
    StepSignal m_increment;
    StepSignal m_decrement;
};

extern template class VDSDKDIALOGS_DATA_QT_API StepSignalSpinBox<QSpinBox>;
extern template class VDSDKDIALOGS_DATA_QT_API StepSignalSpinBox<QDoubleSpinBox>;

} // namespace veldraw::ui
