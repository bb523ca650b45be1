#include "dialogs/models/PremappedListModel.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

#define VELDRAW_INSTANTIATE(T) template class PremappedListModel<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
