#include "tests/tour/ZoneProbe.h"

#include "kernel/session/Session.h"

#include <cmath>

namespace veldraw::tests {

namespace {

std::shared_ptr<kernel::Buffer const> bufferOf(int zone, char assignment)
{
    auto const& session = kernel::Session::instance();
    kernel::Field const* const field =
        session.activeDataSet()->field(zone, session.activeFrame()->variableNumber(assignment));
    return field && field->group() ? field->group()->buffer() : nullptr;
}

} // namespace

ZoneProbe::ZoneProbe(int zone)
    : m_pointCount(kernel::Session::instance().activeDataSet()->zone(zone)->pointCount())
    , m_coordinates{bufferOf(zone, 'X'), bufferOf(zone, 'Y'), bufferOf(zone, 'Z')}
    , m_vector{bufferOf(zone, 'U'), bufferOf(zone, 'V'), bufferOf(zone, 'W')}
{
}

ZoneProbe::Triple ZoneProbe::values(Buffers const& buffers, std::int64_t index)
{
    Triple triple{};
    for (std::size_t axis = 0; axis < triple.size(); ++axis)
        triple[axis] = buffers[axis] ? buffers[axis]->value(index) : 0.0;
    return triple;
}

double ZoneProbe::between(Triple const& one, Triple const& other)
{
    return std::hypot(one[0] - other[0], one[1] - other[1], one[2] - other[2]);
}

} // namespace veldraw::tests
