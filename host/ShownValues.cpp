#include "platform/vdsdkcommon/ShownValues.h"

#include "kernel/session/Session.h"

namespace veldraw::sdk {

ShownValues::ShownValues() = default;

ShownValues::~ShownValues() = default;

void ShownValues::set(int zone, toolbox::Set const& variables)
{
    clear();
    kernel::Session& session = kernel::Session::instance();
    auto const dataSet = session.activeDataSet();
    auto const shown = dataSet ? dataSet->zone(zone) : nullptr;
    if (!shown)
        return;
    kernel::ShownValues values{shown->id, {}};
    for (int const number : variables.members()) {
        if (auto const variable = dataSet->variable(number))
            values.variables.insert(variable->id);
    }
    m_declared = session.loadedValues().declareShown(std::move(values));
}

void ShownValues::clear()
{
    m_declared.reset();
}

} // namespace veldraw::sdk
