#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/widgets/StepSignalSpinBox.h"

namespace veldraw::ui {

/// A spin box for whole numbers that only asks for steps. The range is that of `QSpinBox`. Prefixes and suffixes are not supported.
class VDSDKDIALOGS_DATA_QT_API IntegralSpinBox : public StepSignalSpinBox<QSpinBox>
{
    Q_OBJECT

public:
    explicit IntegralSpinBox(QWidget* parent = nullptr);
    ~IntegralSpinBox() override;

    /// Whole numbers of the range as `WholeNumberValidator` takes them in the box's locale, without group separators.
    QValidator::State validate(QString& text, int& pos) const override;
    int valueFromText(QString const& text) const override;
};

} // namespace veldraw::ui
