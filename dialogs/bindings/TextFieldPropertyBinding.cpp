#include "dialogs/bindings/TextFieldPropertyBinding.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings {

#define VELDRAW_INSTANTIATE(T) template class TextFieldPropertyBinding<T>;
VELDRAW_FOR_EACH_TEXT_FIELD_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
