#include "dialogs/bindings/SpinBoxLgIndexPropertyBinding.h"

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

SpinBoxLgIndexPropertyBinding::SpinBoxLgIndexPropertyBinding(veldraw::ui::IntegralSpinBox* const box,
                                                             boost::shared_ptr<PropertyAbstract<long long>> property,
                                                             boost::shared_ptr<SpinBoxIncDecCalculatorBase> calculator)
    : SpinBoxPropertyBinding<long long, veldraw::ui::IntegralSpinBox>(box, std::move(property), std::move(calculator))
{
}

SpinBoxLgIndexPropertyBinding::~SpinBoxLgIndexPropertyBinding() = default;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
