#include "dialogs/datasetinfo/NoItemSelectedRelevance.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

NoItemSelectedRelevance::NoItemSelectedRelevance(boost::shared_ptr<PropertyAbstract<std::set<int>> const> selection)
    : PropertyDependentRelevanceAbstract<std::set<int>>(std::move(selection))
{
}

NoItemSelectedRelevance::~NoItemSelectedRelevance() = default;

bool NoItemSelectedRelevance::isRelevantValue(std::set<int> const& selection) const
{
    return selection.empty();
}

} // namespace veldraw::sdk::ui::propertymanager
