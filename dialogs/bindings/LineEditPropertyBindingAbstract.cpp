#include "dialogs/bindings/LineEditPropertyBindingAbstract.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings {

#define VELDRAW_INSTANTIATE(T) template class LineEditPropertyBindingAbstract<T>;
VELDRAW_FOR_EACH_LINE_EDIT_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
