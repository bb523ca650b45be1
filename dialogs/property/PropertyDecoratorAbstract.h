#pragma once

#include "dialogs/property/PropertyAbstract.h"

namespace veldraw {

/// A property that shows the value of another one in its own way: the derived class converts on the way in and out.
///
/// A change made directly on the decorated property is told to the decorator's listeners too, converted. A set through
/// the decorator is told once, not a second time by the echo of the decorated property.
template <typename T>
class PropertyDecoratorAbstract : public PropertyAbstract<T>
{
public:
    ~PropertyDecoratorAbstract() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    PropertyDecoratorAbstract& operator=(PropertyDecoratorAbstract const& other);

protected:
    /// The decorated property must not be empty and is kept alive.
    PropertyDecoratorAbstract(boost::shared_ptr<PropertyAbstract<T>> decorated,
                              boost::shared_ptr<ValidatorInterface<T> const> validator);

    T decoratedValue() const;
    /// Sets the decorated property; its echo is not passed on.
    void setDecoratedValue(T const& newValue);
    /// Tells the listeners the value that the decorator shows now.
    void tellValue() const;

private:
    boost::shared_ptr<PropertyAbstract<T>> m_decorated;
    boost::signals2::scoped_connection m_decoratedConnection;
};

extern template class PropertyDecoratorAbstract<double>;

} // namespace veldraw
