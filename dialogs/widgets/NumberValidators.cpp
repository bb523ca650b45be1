#include "dialogs/widgets/NumberValidators.h"

#include <QLineEdit>

#include <algorithm>

namespace veldraw::ui {

namespace {

bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || (character >= QLatin1Char('\t') && character <= QLatin1Char('\r'));
}

} // namespace

NumberValidator::~NumberValidator() = default;

QValidator::State NumberValidator::validate(QString& text, int& pos) const
{
    QString number = withoutBlanksAround(text);
    State const state = QDoubleValidator::validate(number, pos);
    return state == Invalid ? Intermediate : state;
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
