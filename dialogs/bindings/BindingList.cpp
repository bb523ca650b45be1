#include "dialogs/bindings/BindingList.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

BindingList::~BindingList()
{
    clear();
}

void BindingList::adopt(std::unique_ptr<BindingInterface> binding)
{
    m_bindings.push_back(std::move(binding));
}

// The standard does not say in which order a vector destroys its elements.
void BindingList::clear()
{
    for (std::unique_ptr<BindingInterface>& binding : m_bindings)
        binding.reset();
    m_bindings.clear();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
