#include "dialogs/bindings/InstalledValidator.h"

#include "dialogs/widgets/NumberValidators.h"

#include <QLineEdit>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

// Marks the validators of bindings, so that those of the form are left alone.
QString installedName()
{
    return QStringLiteral("VeldrawBindingInstalledValidator");
}

QValidator* newValidator(QLineEdit& lineEdit, AcceptedText accepted)
{
    switch (accepted) {
    case AcceptedText::Number:
        return new veldraw::ui::NumberValidator(&lineEdit);
    case AcceptedText::WholeNumber:
        return new veldraw::ui::WholeNumberValidator(&lineEdit);
    case AcceptedText::Anything:
        break;
    }
    return nullptr;
}

} // namespace

void installValidator(QLineEdit& lineEdit, AcceptedText accepted)
{
    QValidator const* const present = lineEdit.validator();
    if (present && present->objectName() != installedName())
        return;
    QValidator* const validator = newValidator(lineEdit, accepted);
    if (validator) {
        validator->setObjectName(installedName());
        validator->setLocale(localeOfTypedNumbers());
    }
    lineEdit.setValidator(validator);
    delete present;
}

QLocale localeOfTypedNumbers()
{
    QLocale locale(QLocale::English, QLocale::UnitedStates);
    // With group separators "1,000" would be accepted and then read as 1.
    locale.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
    return locale;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
