#pragma once

#include "dialogs/bindings/BindingInterface.h"

#include <memory>
#include <utility>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// The bindings of a dialog. They are destroyed in the order of their creation. A dialog declares the list after manager and
/// form, so that it is destroyed before both.
class BindingList
{
public:
    BindingList() = default;
    BindingList(BindingList const&) = delete;
    BindingList& operator=(BindingList const&) = delete;
    ~BindingList();

    /// Makes a binding and appends it.
    template <typename Binding, typename... Arguments>
    void add(Arguments&&... arguments)
    {
        adopt(std::make_unique<Binding>(std::forward<Arguments>(arguments)...));
    }

    /// Appends a binding.
    void adopt(std::unique_ptr<BindingInterface> binding);

    /// Destroys all bindings.
    void clear();

private:
    std::vector<std::unique_ptr<BindingInterface>> m_bindings;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
