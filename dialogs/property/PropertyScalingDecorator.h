#pragma once

#include "dialogs/property/PropertyDecoratorAbstract.h"

#include <boost/function.hpp>

namespace veldraw {

/// Shows a number multiplied by a scale, and stores what is set divided by it. The limits are those of the decorated
/// property.
template <typename T>
class PropertyScalingDecorator : public PropertyDecoratorAbstract<T>
{
public:
    /// @param scale asked at each read and write; never 0. Who changes its answer sees to it that the listeners hear.
    PropertyScalingDecorator(boost::shared_ptr<PropertyAbstract<T>> const& decorated,
                             boost::function<T()> const& scale);
    ~PropertyScalingDecorator() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    PropertyScalingDecorator& operator=(PropertyScalingDecorator const& other);

protected:
    void storeValue(T const& newValue) override;

private:
    T retrieveValue() const override;

    boost::function<T()> m_scale;
};

extern template class PropertyScalingDecorator<double>;

} // namespace veldraw
