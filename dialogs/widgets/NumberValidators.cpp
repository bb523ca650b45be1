#include "dialogs/widgets/NumberValidators.h"

#include <QLineEdit>

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::ui {

namespace {

constexpr int mostDecimals = 1000;

constexpr QChar zeroWidthSpace(0x200b);
constexpr QChar wordJoiner(0x2060);
constexpr QChar byteOrderMark(0xfeff);

bool isBlank(QChar character)
{
    return character.isSpace() || character == zeroWidthSpace || character == wordJoiner || character == byteOrderMark;
}

} // namespace

NumberValidator::~NumberValidator() = default;

QValidator::State NumberValidator::validate(QString& text, int& pos) const
{
    QString number = withoutBlanksAround(text);
    State const state = QDoubleValidator::validate(number, pos);
    return state == Invalid ? Intermediate : state;
}

SinglePrecisionValidator::SinglePrecisionValidator(QObject* parent)
    : NumberValidator(-std::numeric_limits<float>::max(), std::numeric_limits<float>::max(), mostDecimals, parent)
{
}

SinglePrecisionValidator::~SinglePrecisionValidator() = default;

QValidator::State SinglePrecisionValidator::validate(QString& text, int& pos) const
{
    State const state = NumberValidator::validate(text, pos);
    bool isNumber = false;
    double const number = locale().toDouble(withoutBlanksAround(text), &isNumber);
    bool const isRoundedToTheLimit = isNumber && std::fabs(number) > top() && std::isfinite(static_cast<float>(number));
    return isRoundedToTheLimit ? Acceptable : state;
}

WholeNumberValidator::~WholeNumberValidator() = default;

QValidator::State WholeNumberValidator::validate(QString& text, int& pos) const
{
    QString number = withoutBlanksAround(text);
    State const state = QIntValidator::validate(number, pos);
    return state == Invalid ? Intermediate : state;
}

QString withoutBlanksAround(QString const& text)
{
    auto const first = std::find_if_not(text.begin(), text.end(), isBlank);
    auto last = text.end();
    while (last != first && isBlank(*(last - 1)))
        --last;
    return text.mid(static_cast<int>(first - text.begin()), static_cast<int>(last - first));
}

void dropBlanksAround(QLineEdit& lineEdit)
{
    QValidator const* const validator = lineEdit.validator();
    if (!dynamic_cast<NumberValidator const*>(validator) && !dynamic_cast<WholeNumberValidator const*>(validator))
        return;
    QString const text = withoutBlanksAround(lineEdit.text());
    if (text == lineEdit.text())
        return;
    bool const isModified = lineEdit.isModified();
    lineEdit.setText(text);
    lineEdit.setModified(isModified);
}

} // namespace veldraw::ui
