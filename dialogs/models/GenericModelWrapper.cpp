#include "dialogs/models/GenericModelWrapper.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

template class GenericModelWrapper<int>;
#define VELDRAW_INSTANTIATE(T) template class GenericModelWrapper<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
