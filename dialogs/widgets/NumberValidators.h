#pragma once

#include <QDoubleValidator>
#include <QIntValidator>
#include <QString>

class QLineEdit;

namespace veldraw::ui {

/// A `QDoubleValidator` that swallows no key. What can't become a number is `Intermediate` and not `Invalid`: a line edit
/// drops the key that would make its text invalid, so that "1,5" became 15. The text stays as it was typed, and whoever
/// takes it refuses it as a whole.
///
/// Blanks of every kind and line ends around the number don't count.
class NumberValidator : public QDoubleValidator
{
public:
    using QDoubleValidator::QDoubleValidator;
    ~NumberValidator() override;

    State validate(QString& text, int& pos) const override;
};

/// The same for numbers in single precision. Their limits are those of the type, but what is rounded to a limit may be typed: the
/// shortest text of the largest one, 3.4028235e+38, is beyond it.
class SinglePrecisionValidator : public NumberValidator
{
public:
    explicit SinglePrecisionValidator(QObject* parent = nullptr);
    ~SinglePrecisionValidator() override;

    State validate(QString& text, int& pos) const override;
};

/// The same for whole numbers as `NumberValidator` is for others: a `QIntValidator` that swallows no key.
class WholeNumberValidator : public QIntValidator
{
public:
    using QIntValidator::QIntValidator;
    ~WholeNumberValidator() override;

    State validate(QString& text, int& pos) const override;
};

/// A text without the blanks, tabs and line ends at both ends, which come along when a number is copied from elsewhere. So do
/// blanks that keep a line together or have no width.
QString withoutBlanksAround(QString const& text);

/// Takes them off what stands in a line edit whose validator is a `NumberValidator` or a `WholeNumberValidator`. Whether
/// the text counts as typed stays as it is.
void dropBlanksAround(QLineEdit& lineEdit);

} // namespace veldraw::ui
