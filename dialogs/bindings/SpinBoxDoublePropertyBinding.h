#pragma once

#include "dialogs/bindings/SpinBoxPropertyBinding.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties a spin box to a floating-point number, see `SpinBoxPropertyBinding`. The property keeps all its digits whatever the
/// box shows; limits of the property don't narrow the box, so that its refusal can be read.
class VDSDKDIALOGS_DATA_QT_API SpinBoxDoublePropertyBinding
    : public SpinBoxPropertyBinding<double, veldraw::ui::QScientificSpinBox>
{
public:
    /// Keeps property and calculator alive; the calculator may be null.
    SpinBoxDoublePropertyBinding(veldraw::ui::QScientificSpinBox* const box,
                                 boost::shared_ptr<PropertyAbstract<double>> property,
                                 boost::shared_ptr<SpinBoxIncDecCalculatorBase> calculator);
    ~SpinBoxDoublePropertyBinding() override;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
