#pragma once

#include "dialogs/bindings/SpinBoxPropertyBinding.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties a spin box to a 64-bit index, see `SpinBoxPropertyBinding`. An index beyond what the box can hold is shown as the
/// nearest limit and stays what it is.
class VDSDKDIALOGS_DATA_QT_API SpinBoxLgIndexPropertyBinding
    : public SpinBoxPropertyBinding<long long, veldraw::ui::IntegralSpinBox>
{
public:
    /// Keeps property and calculator alive; the calculator may be null.
    SpinBoxLgIndexPropertyBinding(veldraw::ui::IntegralSpinBox* const box,
                                  boost::shared_ptr<PropertyAbstract<long long>> property,
                                  boost::shared_ptr<SpinBoxIncDecCalculatorBase> calculator);
    ~SpinBoxLgIndexPropertyBinding() override;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
