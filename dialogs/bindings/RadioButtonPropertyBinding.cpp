#include "dialogs/bindings/RadioButtonPropertyBinding.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings {

#define VELDRAW_INSTANTIATE(T) template class RadioButtonPropertyBinding<T>;
VELDRAW_FOR_EACH_RADIO_BUTTON_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
