#include "operations/KernelOperations.h"

#include "operations/entries/Entries.h"

namespace veldraw::operations {

Registry kernelOperations()
{
    Registry registry;
    addVariableOperations(registry);
    addZoneOperations(registry);
    addEnabling(registry);
    addInterpolations(registry);
    addNumericalOperations(registry);
    addNamesAndNotes(registry);
    addFrameOperations(registry);
    return registry;
}

toolbox::Set toolboxSet(kernel::NumberSet const& numbers)
{
    return toolbox::Set(std::set<int>(numbers.begin(), numbers.end()));
}

} // namespace veldraw::operations
