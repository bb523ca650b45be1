#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/widgets/StepSignals.h"

#include <QSpinBox>

namespace veldraw::ui {

/// A spin box for whole numbers whose arrows, arrow and page keys and wheel don't step: they only say that a step is
/// asked for, and whoever listens decides where it leads. The range is that of `QSpinBox`. Prefixes and suffixes are not
/// supported.
class VDSDKDIALOGS_DATA_QT_API IntegralSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit IntegralSpinBox(QWidget* parent = nullptr);
    ~IntegralSpinBox() override;

    /// Whole numbers of the range as `WholeNumberValidator` takes them in the box's locale, without group separators.
    QValidator::State validate(QString& text, int& pos) const override;
    /// Mends nothing: a text that is no number must not be made one.
    void fixup(QString& text) const override;
    int valueFromText(QString const& text) const override;

    /// Signals the steps, up for positive numbers.
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

    StepSignals m_steps;
};

} // namespace veldraw::ui
