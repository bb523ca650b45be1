#pragma once

#include "dialogs/property/PropertyAbstract.h"

#include <boost/function.hpp>

namespace veldraw {

/// Judges a scaled number by the limits of the property behind the scale, with their words.
class ScalingValidator : public virtual ValidatorInterface<double>
{
public:
    /// @param scale what the property's value is multiplied by to be shown; never 0
    ScalingValidator(boost::shared_ptr<PropertyAbstract<double>> property, boost::function<double()> scale);

    ValidationResult validate(double const& value) const override;

private:
    boost::shared_ptr<PropertyAbstract<double>> m_property;
    boost::function<double()> m_scale;
};

} // namespace veldraw
