#pragma once

#include "dialogs/datasetinfo/VarPropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

namespace veldraw::sdk::ui::propertymanager {

/// Smallest and largest value of the selected variable in the selected zone. They stay what they were where the kernel does not know
/// them; nothing is loaded.
class VarRangeSelectedZoneProperties : public VarPropertyAbstract
{
public:
    VarRangeSelectedZoneProperties(Selection const& selectedZones, Selection const& selectedVars);
    ~VarRangeSelectedZoneProperties() override;

    boost::shared_ptr<UILocalStyleProperty<double>> min() const { return m_min; }
    boost::shared_ptr<UILocalStyleProperty<double>> max() const { return m_max; }

private:
    void updateInZone(int zone, int var) override;

    boost::shared_ptr<UILocalStyleProperty<double>> const m_min;
    boost::shared_ptr<UILocalStyleProperty<double>> const m_max;
};

} // namespace veldraw::sdk::ui::propertymanager
