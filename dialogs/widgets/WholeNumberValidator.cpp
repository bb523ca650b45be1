#include "dialogs/widgets/WholeNumberValidator.h"

#include "dialogs/widgets/NumberText.h"

namespace veldraw::ui {

WholeNumberValidator::~WholeNumberValidator() = default;

QValidator::State WholeNumberValidator::validate(QString& text, int& pos) const
{
    QString number = withoutBlanksAround(text);
    State const state = QIntValidator::validate(number, pos);
    return state == Invalid ? Intermediate : state;
}

} // namespace veldraw::ui
