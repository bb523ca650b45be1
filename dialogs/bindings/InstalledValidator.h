#pragma once

#include <QLocale>

class QLineEdit;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// What may be typed into a field that a binding looks after.
enum class AcceptedText
{
    Anything,
    WholeNumber, ///< as `int` holds it
    Number
};

/// Gives a line edit the validator of a binding, or none if it accepts anything. A validator that the form or a dialog
/// has set stays; one that an earlier binding installed goes.
///
/// Numbers are typed in `localeOfTypedNumbers()`. No key is swallowed; see `NumberValidator`.
void installValidator(QLineEdit& lineEdit, AcceptedText accepted);

/// How bindings read numbers, whatever the default locale: with a point, without group separators. For validators that a dialog
/// sets itself.
QLocale localeOfTypedNumbers();

} // namespace veldraw::sdk::ui::dialogs::propertybindings
