#pragma once

#include <QDoubleValidator>

namespace veldraw::ui {

/// A `QDoubleValidator` that swallows no key. What can't become a number is `Intermediate` and not `Invalid`: a line edit
/// drops the key that would make its text invalid, so that "1,5" became 15. The text stays as it was typed, and whoever
/// takes it refuses it as a whole.
///
/// Blanks and line ends around the number don't count.
class NumberValidator : public QDoubleValidator
{
public:
    using QDoubleValidator::QDoubleValidator;
    ~NumberValidator() override;

    State validate(QString& text, int& pos) const override;
};

} // namespace veldraw::ui
