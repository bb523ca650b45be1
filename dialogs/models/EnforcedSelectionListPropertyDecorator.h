#pragma once

#include "dialogs/models/ListModelInterface.h"
#include "dialogs/property/UIStylePropertyDecoratorAbstract.h"

#include <set>

namespace veldraw {

/// A selection that doesn't go empty while there is something to select: the empty set becomes the first item of a list.
///
/// It stands with the list models, since it reads one; other decorators know properties only.
template <typename T>
class EnforcedSelectionListPropertyDecorator
    : public sdk::ui::propertymanager::UIStylePropertyDecoratorAbstract<std::set<T>, std::set<T>>
{
public:
    using Decorated = sdk::ui::propertymanager::UIStylePropertyAbstract<std::set<T>>;
    using ListModel = sdk::ui::dialogs::propertybindings::models::ListModelInterface<T>;

    /// Both must not be empty and are kept alive.
    EnforcedSelectionListPropertyDecorator(boost::shared_ptr<Decorated> decorated,
                                           boost::shared_ptr<ListModel const> model);
    ~EnforcedSelectionListPropertyDecorator() override;

    using PropertyAbstract<std::set<T>>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    EnforcedSelectionListPropertyDecorator& operator=(EnforcedSelectionListPropertyDecorator const& other);

protected:
    void storeValue(std::set<T> const& newValue) override;
    /// Never true for the empty set, so that it always comes to be stored.
    bool isEqual(std::set<T> const& other) const override;

private:
    std::set<T> retrieveValue() const override;

    boost::shared_ptr<ListModel const> m_model;
};

extern template class EnforcedSelectionListPropertyDecorator<int>;

} // namespace veldraw
