#include "dialogs/bindings/SpinBoxIntPropertyBinding.h"

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

SpinBoxIntPropertyBinding::SpinBoxIntPropertyBinding(veldraw::ui::IntegralSpinBox* const box,
                                                     boost::shared_ptr<PropertyAbstract<int>> property,
                                                     boost::shared_ptr<SpinBoxIncDecCalculatorBase> calculator)
    : SpinBoxPropertyBinding<int, veldraw::ui::IntegralSpinBox>(box, std::move(property), std::move(calculator))
{
}

SpinBoxIntPropertyBinding::~SpinBoxIntPropertyBinding() = default;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
