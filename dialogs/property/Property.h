#pragma once

#include "dialogs/property/PropertyAbstract.h"

namespace veldraw {

/// A property that holds its value itself.
///
///     Property<int> copies(1, boost::make_shared<BoundedValueValidator<int>>(1, 100, ...));
///     copies.connectValueChanged([](int n) { ... });
///     copies.setValue(4);   // tells the listener, once
///     copies.setValue(4);   // no change, no signal
///
/// An initial value is neither validated nor told.
template <typename T>
class Property : public PropertyAbstract<T>
{
public:
    Property();
    explicit Property(T const& initialValue);
    Property(T const& initialValue, boost::shared_ptr<ValidatorInterface<T> const> validator);
    ~Property() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    Property& operator=(Property const& other);

protected:
    void storeValue(T const& newValue) override;

private:
    T retrieveValue() const override;

    T m_value;
};

#define VELDRAW_DECLARE(T) extern template class Property<T>;
VELDRAW_FOR_EACH_HELD_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw
