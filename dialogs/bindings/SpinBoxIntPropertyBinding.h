#pragma once

#include "dialogs/bindings/SpinBoxPropertyBinding.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties a spin box to a whole number, see `SpinBoxPropertyBinding`.
class VDSDKDIALOGS_DATA_QT_API SpinBoxIntPropertyBinding
    : public SpinBoxPropertyBinding<int, veldraw::ui::IntegralSpinBox>
{
public:
    /// Keeps property and calculator alive; the calculator may be null.
    SpinBoxIntPropertyBinding(veldraw::ui::IntegralSpinBox* const box,
                              boost::shared_ptr<PropertyAbstract<int>> property,
                              boost::shared_ptr<SpinBoxIncDecCalculatorBase> calculator);
    ~SpinBoxIntPropertyBinding() override;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
