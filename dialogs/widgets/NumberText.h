#pragma once

#include <QString>

class QLineEdit;

namespace veldraw::ui {

/// A text without the blanks, tabs and line ends at both ends, which come along when a number is copied from elsewhere.
QString withoutBlanksAround(QString const& text);

/// Takes them off what stands in a line edit whose validator is a `NumberValidator` or a `WholeNumberValidator`. Whether
/// the text counts as typed stays as it is.
void dropBlanksAround(QLineEdit& lineEdit);

} // namespace veldraw::ui
