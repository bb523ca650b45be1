#include "dialogs/bindings/SpinBoxPropertyBinding.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings {

template class SpinBoxPropertyBinding<double, veldraw::ui::QScientificSpinBox>;
template class SpinBoxPropertyBinding<int, veldraw::ui::IntegralSpinBox>;
template class SpinBoxPropertyBinding<long long, veldraw::ui::IntegralSpinBox>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
