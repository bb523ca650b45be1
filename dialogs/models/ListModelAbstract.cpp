#include "dialogs/models/ListModelAbstract.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

template class ListModelAbstract<int>;
template class ListModelAbstract<double>;
#define VELDRAW_INSTANTIATE(T) template class ListModelAbstract<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
