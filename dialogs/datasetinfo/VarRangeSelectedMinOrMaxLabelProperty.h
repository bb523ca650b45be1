#pragma once

#include "dialogs/datasetinfo/RangeLimit.h"
#include "dialogs/datasetinfo/VarPropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The label of a limit of the selected variable's range in the selected zone. It says of a range of block-wise data when it is an
/// estimate.
class VarRangeSelectedMinOrMaxLabelProperty : public VarPropertyAbstract
{
public:
    VarRangeSelectedMinOrMaxLabelProperty(Selection const& selectedZones, Selection const& selectedVars,
                                          RangeLimit limit);
    ~VarRangeSelectedMinOrMaxLabelProperty() override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> text() const { return m_text; }

private:
    void updateInZone(int zone, int var) override;

    RangeLimit const m_limit;
    boost::shared_ptr<UILocalStyleProperty<std::string>> const m_text;
};

} // namespace veldraw::sdk::ui::propertymanager
