#pragma once

#include "dialogs/datasetinfo/ActiveZonesPropertyAbstract.h"
#include "dialogs/datasetinfo/RangeLimit.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The label of a limit of the selected variable's range in the active zones. It says when the range of any of them is an estimate.
class VarRangeActiveMinOrMaxLabelProperty : public ActiveZonesPropertyAbstract
{
public:
    VarRangeActiveMinOrMaxLabelProperty(Selection const& selectedZones, Selection const& selectedVars,
                                        RangeLimit limit);
    ~VarRangeActiveMinOrMaxLabelProperty() override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> text() const { return m_text; }

private:
    bool updateInActiveZones(int var) override;

    RangeLimit const m_limit;
    boost::shared_ptr<UILocalStyleProperty<std::string>> const m_text;
};

} // namespace veldraw::sdk::ui::propertymanager
