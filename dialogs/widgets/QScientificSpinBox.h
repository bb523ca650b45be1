#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/widgets/StepSignalSpinBox.h"

namespace veldraw::ui {

/// A spin box for floating-point numbers of any size. It shows a number with few digits and keeps it with all of them:
/// what the box holds changes only when a text is typed and finished, and then it holds the digits that were typed.
///
/// Small and large numbers are shown and can be typed with an exponent. Steps are only asked for. Prefixes and suffixes are not
/// supported.
class VDSDKDIALOGS_DATA_QT_API QScientificSpinBox : public StepSignalSpinBox<QDoubleSpinBox>
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
    /// The number of a text; for the text that is shown, and wasn't typed, it is the number that is held, with all its
    /// digits.
    double valueFromText(QString const& text) const override;
    /// The shown digits without trailing zeros; with an exponent below 10^-decimals and from 10^15 on.
    QString textFromValue(double value) const override;

private:
    QString digitsOf(double value) const;

    int m_digits = 6;
    QString m_typedText;      // empty: nothing was typed since the box was given its number
    double m_notFinite = 0.0; // 0: the box holds a finite number; else what it shows in place of a limit of its range
};

} // namespace veldraw::ui
