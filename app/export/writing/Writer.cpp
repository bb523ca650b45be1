#include "app/export/writing/Writer.h"

#include <algorithm>

namespace veldraw::app {

std::string Writer::alsoReplaces(kernel::DataSet const&, std::string const&) const
{
    return {};
}

std::string Writer::madePath(kernel::DataSet const&, std::string const& path) const
{
    return path;
}

std::int64_t workOf(kernel::Zone const& zone)
{
    std::int64_t work = 1;
    for (kernel::Field const& field : zone.fields)
        work += field.isPassive() ? 0 : field.group()->buffer()->bytes();
    return work;
}

std::vector<std::string> uniqueVariableNames(kernel::DataSet const& dataSet)
{
    std::vector<std::string> names;
    for (auto const& variable : dataSet.variables()) {
        std::string const wanted =
            variable->name.empty() ? "Variable " + std::to_string(names.size() + 1) : variable->name;
        std::string name = wanted;
        for (int n = 2; std::find(names.begin(), names.end(), name) != names.end(); ++n)
            name = wanted + " (" + std::to_string(n) + ")";
        names.push_back(name);
    }
    return names;
}

} // namespace veldraw::app
