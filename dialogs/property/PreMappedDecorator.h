#pragma once

#include "dialogs/property/UIStylePropertyDecoratorAbstract.h"

#include <string>
#include <utility>
#include <vector>

namespace veldraw {

/// Shows a property's value as the label that a fixed list has for it. For reading only: a set has no effect and tells
/// nobody.
///
/// Who listens wants the label of each new value: a value that the list does not have then fails the decorated property's
/// set, after its store.
template <typename T>
class PreMappedDecorator : public sdk::ui::propertymanager::UIStylePropertyDecoratorAbstract<std::string, T>
{
public:
    using Items = std::vector<std::pair<T, std::string>>;

    /// Of several items with the same value the first one counts.
    PreMappedDecorator(boost::shared_ptr<sdk::ui::propertymanager::UIStylePropertyAbstract<T>> decorated, Items items);
    ~PreMappedDecorator() override;

    using PropertyAbstract<std::string>::operator=;
    /// Has no effect, as any set.
    PreMappedDecorator& operator=(PreMappedDecorator const& other);

protected:
    void storeValue(std::string const& newValue) override;
    /// True, so that a set is over before anything is told: none makes a difference.
    bool isEqual(std::string const& other) const override;

private:
    /// Throws `std::out_of_range` for a value that the list does not have.
    std::string retrieveValue() const override;

    Items m_items;
};

extern template class PreMappedDecorator<VarStatus_e>;

} // namespace veldraw
