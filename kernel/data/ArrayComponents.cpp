#include "kernel/data/ArrayComponents.h"

#include <map>

namespace veldraw::kernel {

std::vector<ArrayComponents> componentsByArray(DataSet const& dataSet)
{
    std::vector<ArrayComponents> result;
    std::map<SourceArray const*, std::size_t> places;
    for (int number = 1; number <= dataSet.variableCount(); ++number) {
        Variable const& variable = *dataSet.variable(number);
        SourceArray const* const array = variable.sourceArray.get();
        auto const component = static_cast<std::size_t>(variable.component);
        if (array == nullptr || component >= array->variables.size()) {
            continue;
        }
        auto const [place, isNew] = places.emplace(array, result.size());
        if (isNew) {
            result.push_back({array, std::vector<int>(array->variables.size())});
        }
        result[place->second].variables[component] = number;
    }
    return result;
}

} // namespace veldraw::kernel
