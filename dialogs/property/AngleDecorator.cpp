#include "dialogs/property/AngleDecorator.h"

namespace veldraw::sdk::ui::propertymanager {

namespace {

constexpr double radiansPerDegree = 3.14159265358979323846 / 180.0;

} // namespace

AngleDecorator::AngleDecorator(boost::shared_ptr<PropertyAbstract<double>> const& value,
                               boost::shared_ptr<PropertyAbstract<ThetaMode_e> const> const& mode)
    : PropertyScalingDecorator<double>(value,
                                       [mode] { return mode->value() == ThetaMode_Radians ? radiansPerDegree : 1.0; })
    , m_modeConnection(mode->connectValueChanged([this](ThetaMode_e) { tellValue(); }))
{
}

AngleDecorator& AngleDecorator::operator=(AngleDecorator const& other)
{
    PropertyAbstract<double>::operator=(other);
    return *this;
}

} // namespace veldraw::sdk::ui::propertymanager
