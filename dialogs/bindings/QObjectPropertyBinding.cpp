#include "dialogs/bindings/QObjectPropertyBinding.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings {

#define VELDRAW_INSTANTIATE(T) template class QObjectPropertyBinding<T>;
VELDRAW_FOR_EACH_QOBJECT_BOUND_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
