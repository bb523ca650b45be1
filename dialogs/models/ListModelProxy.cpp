#include "dialogs/models/ListModelProxy.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

template class ListModelProxy<int>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
