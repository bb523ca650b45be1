#pragma once

#include "dialogs/property/PropertyAbstract.h"

namespace veldraw {

/// Stands for another property, its target, which can be replaced while bindings hold on to the proxy.
///
/// A set through the proxy passes both validators, the proxy's and the target's, and is told by both, once each.
template <typename T>
class PropertyProxy : public PropertyAbstract<T>
{
public:
    /// The target must not be empty and is kept alive.
    PropertyProxy(boost::shared_ptr<PropertyAbstract<T>> target,
                  boost::shared_ptr<ValidatorInterface<T> const> validator);
    ~PropertyProxy() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    PropertyProxy& operator=(PropertyProxy const& other);

    /// Follows another target from now on. Nothing is told: the caller knows whether the value is another one.
    void setProperty(boost::shared_ptr<PropertyAbstract<T>> target);

    /// Tells the listeners the target's value; for callers of `setProperty`.
    void notifyTargetChanged();

protected:
    void storeValue(T const& newValue) override;

private:
    T retrieveValue() const override;

    boost::signals2::scoped_connection m_targetConnection;
    boost::shared_ptr<PropertyAbstract<T>> m_target;
};

extern template class PropertyProxy<long long>;

} // namespace veldraw
