#pragma once

#include "dialogs/property/PropertyScalingDecorator.h"

namespace veldraw::sdk::ui::propertymanager {

/// An angle that is kept in degrees and shown in the unit that the user chose. Another unit changes the number that is
/// shown, and so is told as a change of value.
class AngleDecorator : public PropertyScalingDecorator<double>
{
public:
    AngleDecorator(boost::shared_ptr<PropertyAbstract<double>> const& value,
                   boost::shared_ptr<PropertyAbstract<ThetaMode_e> const> const& mode);

    using PropertyAbstract<double>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    AngleDecorator& operator=(AngleDecorator const& other);

private:
    boost::signals2::scoped_connection m_modeConnection;
};

} // namespace veldraw::sdk::ui::propertymanager
