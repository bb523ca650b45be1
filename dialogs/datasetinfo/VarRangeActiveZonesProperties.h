#pragma once

#include "dialogs/datasetinfo/ActiveZonesPropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

namespace veldraw::sdk::ui::propertymanager {

/// Smallest and largest value of the selected variable in the active zones that know theirs. Nothing is loaded.
class VarRangeActiveZonesProperties : public ActiveZonesPropertyAbstract
{
public:
    VarRangeActiveZonesProperties(Selection const& selectedZones, Selection const& selectedVars);
    ~VarRangeActiveZonesProperties() override;

    boost::shared_ptr<UILocalStyleProperty<double>> min() const { return m_min; }
    boost::shared_ptr<UILocalStyleProperty<double>> max() const { return m_max; }
    /// Whether the kernel knew the range when it was last asked. Otherwise the two values are older ones.
    boost::shared_ptr<UILocalStyleProperty<bool>> isKnown() const { return m_isKnown; }

private:
    bool updateInActiveZones(int var) override;

    boost::shared_ptr<UILocalStyleProperty<double>> const m_min;
    boost::shared_ptr<UILocalStyleProperty<double>> const m_max;
    boost::shared_ptr<UILocalStyleProperty<bool>> const m_isKnown;
};

} // namespace veldraw::sdk::ui::propertymanager
