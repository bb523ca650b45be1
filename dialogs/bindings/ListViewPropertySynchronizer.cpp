#include "dialogs/bindings/ListViewPropertySynchronizer.ipp"

namespace veldraw::sdk::ui::dialogs::propertybindings {

template class ListViewPropertySynchronizer<std::set<int>>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
