#include "dialogs/property/ScalingValidator.h"

#include <utility>

namespace veldraw {

ScalingValidator::ScalingValidator(boost::shared_ptr<PropertyAbstract<double>> property,
                                   boost::function<double()> scale)
    : m_property(std::move(property))
    , m_scale(std::move(scale))
{
}

ValidationResult ScalingValidator::validate(double const& value) const
{
    return m_property->validator()->validate(value / m_scale());
}

} // namespace veldraw
