#pragma once

#include <QIntValidator>

namespace veldraw::ui {

/// The same for whole numbers as `NumberValidator` is for others: a `QIntValidator` that swallows no key.
class WholeNumberValidator : public QIntValidator
{
public:
    using QIntValidator::QIntValidator;
    ~WholeNumberValidator() override;

    State validate(QString& text, int& pos) const override;
};

} // namespace veldraw::ui
