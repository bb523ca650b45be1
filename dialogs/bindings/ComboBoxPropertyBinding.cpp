#include "dialogs/bindings/ComboBoxPropertyBinding.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings {

template class ComboBoxPropertyBinding<int>;
#define VELDRAW_INSTANTIATE(T) template class ComboBoxPropertyBinding<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
