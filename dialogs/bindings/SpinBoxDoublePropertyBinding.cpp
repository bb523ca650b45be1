#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

SpinBoxDoublePropertyBinding::SpinBoxDoublePropertyBinding(veldraw::ui::QScientificSpinBox* const box,
                                                           boost::shared_ptr<PropertyAbstract<double>> property,
                                                           boost::shared_ptr<SpinBoxIncDecCalculatorBase> calculator)
    : SpinBoxPropertyBinding<double, veldraw::ui::QScientificSpinBox>(box, std::move(property), std::move(calculator))
{
}

SpinBoxDoublePropertyBinding::~SpinBoxDoublePropertyBinding() = default;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
