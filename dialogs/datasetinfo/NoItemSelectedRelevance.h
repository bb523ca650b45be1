#pragma once

#include "dialogs/property/PropertyDependentRelevanceAbstract.h"

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// True while a selection is empty.
class NoItemSelectedRelevance : public PropertyDependentRelevanceAbstract<std::set<int>>
{
public:
    /// Keeps the selection alive.
    explicit NoItemSelectedRelevance(boost::shared_ptr<PropertyAbstract<std::set<int>> const> selection);
    ~NoItemSelectedRelevance() override;

protected:
    bool isRelevantValue(std::set<int> const& selection) const override;
};

} // namespace veldraw::sdk::ui::propertymanager
