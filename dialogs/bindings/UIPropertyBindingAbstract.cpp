#include "dialogs/bindings/UIPropertyBindingAbstract.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings {

template class UIPropertyBindingAbstract<std::string>;
#define VELDRAW_INSTANTIATE(T) template class UIPropertyBindingAbstract<T>;
VELDRAW_FOR_EACH_LOCALLY_BOUND_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
