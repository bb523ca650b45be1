#include "dialogs/widgets/IntegralSpinBox.h"

#include "dialogs/widgets/NumberValidators.h"

#include <QLocale>

namespace veldraw::ui {

namespace {

QLocale withoutGroups(QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace

IntegralSpinBox::IntegralSpinBox(QWidget* parent)
    : StepSignalSpinBox(parent)
{
}

IntegralSpinBox::~IntegralSpinBox() = default;

QValidator::State IntegralSpinBox::validate(QString& text, int& pos) const
{
    WholeNumberValidator validator(minimum(), maximum());
    validator.setLocale(withoutGroups(locale()));
    return validator.validate(text, pos);
}

int IntegralSpinBox::valueFromText(QString const& text) const
{
    return withoutGroups(locale()).toInt(withoutBlanksAround(text));
}

} // namespace veldraw::ui
