#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/widgets/StepSignals.h"

#include <QDoubleSpinBox>

namespace veldraw::ui {

/// A spin box for floating-point numbers of any size. It shows a number with few digits and keeps it with all of them:
/// what the box holds changes only when a text is typed and finished, and then it holds the digits that were typed.
///
/// Small and large numbers are shown and can be typed with an exponent. Arrows, arrow and page keys and wheel don't step:
/// they only say that a step is asked for, and whoever listens decides where it leads. Prefixes and suffixes are not
/// supported.
class VDSDKDIALOGS_DATA_QT_API QScientificSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    /// The range is all finite numbers; 6 digits are shown; the keyboard isn't tracked.
    explicit QScientificSpinBox(QWidget* parent = nullptr);
    ~QScientificSpinBox() override;

    /// Sets how many digits after the point are shown, 0 to 17. No value is rounded by that.
    void setDecimals(int digits);
    int decimals() const;

    /// Shows any number; what is not finite is shown as "nan", "inf" or "-inf" and can't be typed.
    void setValue(double value);

    /// Numbers as `NumberValidator` takes them in the default locale, without group separators.
    QValidator::State validate(QString& text, int& pos) const override;
    /// Mends nothing: a text that is no number must not be made one.
    void fixup(QString& text) const override;
    /// The number of a text; for the text that is shown, and wasn't typed, it is the number that is held, with all its
    /// digits.
    double valueFromText(QString const& text) const override;
    /// The shown digits without trailing zeros; with an exponent below 10^-decimals and from 10^15 on.
    QString textFromValue(double value) const override;

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

    QString digitsOf(double value) const;

    int m_digits = 6;
    QString m_typedText;      // empty: nothing was typed since the box was given its number
    double m_notFinite = 0.0; // 0: the box holds a finite number; else what it shows in place of a limit of its range
    StepSignals m_steps;
};

} // namespace veldraw::ui
