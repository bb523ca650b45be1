#include "dialogs/widgets/QScientificSpinBox.h"

#include "dialogs/widgets/NumberValidators.h"

#include <QLineEdit>
#include <QLocale>

#include <cfloat>
#include <cmath>

namespace veldraw::ui {

namespace {

constexpr int mostShownDigits = 17;
// The most that Qt allows: fewer would round what the box holds.
constexpr int heldDigits = DBL_MAX_10_EXP + DBL_DIG;
constexpr double firstLargeNumber = 1e15;

QLocale plainLocale()
{
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return locale;
}

// Takes the zeros away that end the digits after the point, which stand before an exponent if there is one.
QString withoutTrailingZeros(QString const& number, QLocale const& locale)
{
    int const point = number.indexOf(locale.decimalPoint());
    if (point < 0)
        return number;
    int const exponent = number.indexOf(locale.exponential(), point, Qt::CaseInsensitive);
    int const end = exponent < 0 ? number.size() : exponent;
    int last = end;
    while (number[last - 1] == locale.zeroDigit())
        --last;
    if (last == point + 1)
        --last;
    return number.left(last) + number.mid(end);
}

QString nameOf(double notFinite)
{
    if (std::isnan(notFinite))
        return QStringLiteral("nan");
    return notFinite < 0 ? QStringLiteral("-inf") : QStringLiteral("inf");
}

} // namespace

QScientificSpinBox::QScientificSpinBox(QWidget* parent)
    : StepSignalSpinBox(parent)
{
    QDoubleSpinBox::setDecimals(heldDigits);
    setRange(-DBL_MAX, DBL_MAX);
    setKeyboardTracking(false);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](QString const& text) { m_typedText = text; });
}

QScientificSpinBox::~QScientificSpinBox() = default;

void QScientificSpinBox::setDecimals(int digits)
{
    m_digits = qBound(0, digits, mostShownDigits);
    setSuffix(suffix()); // shows the value anew and keeps it
}

int QScientificSpinBox::decimals() const
{
    return m_digits;
}

// Qt brings a number that is not finite to a limit of the range; only the text tells it from that limit.
void QScientificSpinBox::setValue(double value)
{
    m_notFinite = std::isfinite(value) ? 0.0 : value;
    QDoubleSpinBox::setValue(value);
    m_typedText.clear();
}

QValidator::State QScientificSpinBox::validate(QString& text, int& pos) const
{
    NumberValidator validator;
    validator.setLocale(plainLocale());
    return validator.validate(text, pos);
}

double QScientificSpinBox::valueFromText(QString const& text) const
{
    bool const isHeld = text != m_typedText && text == textFromValue(value());
    return isHeld ? value() : plainLocale().toDouble(withoutBlanksAround(text));
}

QString QScientificSpinBox::textFromValue(double value) const
{
    if (m_notFinite != 0.0 && value == (m_notFinite < 0 ? minimum() : maximum()))
        return nameOf(m_notFinite);
    return std::isfinite(value) ? digitsOf(value) : nameOf(value);
}

QString QScientificSpinBox::digitsOf(double value) const
{
    double const magnitude = std::fabs(value);
    bool const isFixed = magnitude == 0.0 || (magnitude >= std::pow(10.0, -m_digits) && magnitude < firstLargeNumber);
    QLocale const locale = plainLocale();
    return withoutTrailingZeros(locale.toString(value == 0.0 ? 0.0 : value, isFixed ? 'f' : 'e', m_digits), locale);
}

} // namespace veldraw::ui
