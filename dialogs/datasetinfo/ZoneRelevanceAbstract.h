#pragma once

#include "dialogs/datasetinfo/ZonePropertyAbstract.h"
#include "dialogs/property/PropertyDependentRelevanceAbstract.h"

namespace veldraw::sdk::ui::propertymanager {

/// The base of rules on the selected zone, the first one of a selection. False while nothing is selected, or the kernel has no such
/// zone or it is disabled. It signals when the selection changes, and once at the idle moment after state changes.
class ZoneRelevanceAbstract : public PropertyDependentRelevanceAbstract<std::set<int>>
{
public:
    using Selection = ZonePropertyAbstract::Selection;

    ~ZoneRelevanceAbstract() override;

protected:
    /// Keeps the selection alive.
    explicit ZoneRelevanceAbstract(Selection const& selectedZones);

    bool isRelevantValue(std::set<int> const& zones) const override;

private:
    /// Asks the kernel, under the application's lock.
    /// @param zone one-based number of an enabled zone
    virtual bool isRelevantZone(int zone) const = 0;

    common::OnIdleAfterStateChangeActionPerformer m_performer;
};

} // namespace veldraw::sdk::ui::propertymanager
