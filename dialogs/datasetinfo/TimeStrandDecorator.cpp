#include "dialogs/datasetinfo/TimeStrandDecorator.h"

#include "dialogs/datasetinfo/ZoneTimeProperties.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

TimeStrandDecorator::TimeStrandDecorator(boost::shared_ptr<UIStylePropertyAbstract<int>> strand)
    : UIStylePropertyDecoratorAbstract<std::string, int>(std::move(strand))
{
}

TimeStrandDecorator::~TimeStrandDecorator() = default;

void TimeStrandDecorator::storeValue(std::string const&) {}

std::string TimeStrandDecorator::retrieveValue() const
{
    int const strand = decoratedValue();
    return ZoneTimeProperties::isStatic(strand) ? std::string() : std::to_string(strand);
}

} // namespace veldraw::sdk::ui::propertymanager
