#include "python/ThingHandle.h"

#include "python/Failure.h"

#include <stdexcept>
#include <type_traits>

namespace veldraw::python {

namespace {

template <typename Thing>
constexpr bool isZone = std::is_same_v<Thing, kernel::Zone>;

template <typename Thing>
std::string const wordFor = isZone<Thing> ? "zone" : "variable";

template <typename Thing>
auto const& listIn(kernel::DataSet const& dataSet)
{
    if constexpr (isZone<Thing>)
        return dataSet.zones();
    else
        return dataSet.variables();
}

} // namespace

template <typename Thing>
int ThingHandle<Thing>::number() const
{
    int number = 0;
    if constexpr (isZone<Thing>)
        number = m_dataSet->zoneNumber(id());
    else
        number = m_dataSet->variableNumber(id());
    if (number == 0)
        throw Failure(description() + " is not in its data set any more.");
    return number;
}

template <typename Thing>
std::string ThingHandle<Thing>::description() const
{
    return "The " + wordFor<Thing> + " \"" + name() + '"';
}

template <typename Thing>
int ThingList<Thing>::count() const
{
    return static_cast<int>(listIn<Thing>(*dataSet).size());
}

template <typename Thing>
ThingHandle<Thing> ThingList<Thing>::at(int number) const
{
    if (number < 1 || number > count())
        throw std::out_of_range("There is no " + wordFor<Thing> + ' ' + std::to_string(number) +
                                "; they are numbered from 1 to " + std::to_string(count()) + '.');
    if constexpr (isZone<Thing>)
        return {dataSet, dataSet->zone(number)};
    else
        return {dataSet, dataSet->variable(number)};
}

template <typename Thing>
int ThingList<Thing>::find(std::string const& name) const
{
    auto const& things = listIn<Thing>(*dataSet);
    for (std::size_t at = 0; at < things.size(); ++at)
        if (things[at]->name == name)
            return static_cast<int>(at) + 1;
    return 0;
}

template class ThingHandle<kernel::Zone>;
template class ThingHandle<kernel::Variable>;
template struct ThingList<kernel::Zone>;
template struct ThingList<kernel::Variable>;

} // namespace veldraw::python
