#include "dialogs/widgets/NumberValidator.h"

#include "dialogs/widgets/NumberText.h"

namespace veldraw::ui {

NumberValidator::~NumberValidator() = default;

QValidator::State NumberValidator::validate(QString& text, int& pos) const
{
    QString number = withoutBlanksAround(text);
    State const state = QDoubleValidator::validate(number, pos);
    return state == Invalid ? Intermediate : state;
}

} // namespace veldraw::ui
