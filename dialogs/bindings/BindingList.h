#pragma once

#include "dialogs/bindings/BindingInterface.h"

#include <memory>
#include <utility>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// The bindings of a dialog, which end in the order of their creation. Declared behind the manager and the form, it ends
/// before both.
class BindingList
{
public:
    BindingList() = default;
    BindingList(BindingList const&) = delete;
    BindingList& operator=(BindingList const&) = delete;
    ~BindingList();

    /// Makes a binding at the end of the list.
    template <typename Binding, typename... Arguments>
    void add(Arguments&&... arguments)
    {
        adopt(std::make_unique<Binding>(std::forward<Arguments>(arguments)...));
    }

    /// Puts a binding that somebody else has made at the end of the list.
    void adopt(std::unique_ptr<BindingInterface> binding);

    /// Ends all bindings.
    void clear();

private:
    std::vector<std::unique_ptr<BindingInterface>> m_bindings;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
