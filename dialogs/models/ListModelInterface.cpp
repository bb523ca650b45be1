#include "dialogs/models/ListModelInterface.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

template class ListModelInterface<int>;
template class ListModelInterface<double>;
#define VELDRAW_INSTANTIATE(T) template class ListModelInterface<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
