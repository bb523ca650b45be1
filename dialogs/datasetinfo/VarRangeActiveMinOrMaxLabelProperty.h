#pragma once

#include "dialogs/datasetinfo/ActiveZoneAnswers.h"
#include "dialogs/datasetinfo/RangeLimit.h"
#include "dialogs/datasetinfo/VarPropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The label of a limit of the selected variable's range in the active zones. It says when the range of any of them is an estimate.
class VarRangeActiveMinOrMaxLabelProperty : public VarPropertyAbstract
{
public:
    /// Keeps selections and answers alive.
    VarRangeActiveMinOrMaxLabelProperty(Selection const& selectedZones, Selection const& selectedVars, RangeLimit limit,
                                        boost::shared_ptr<ActiveZoneAnswers> const& answers);
    ~VarRangeActiveMinOrMaxLabelProperty() override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> text() const { return m_text; }

private:
    void updateInZone(int zone, int var) override;

    RangeLimit const m_limit;
    boost::shared_ptr<ActiveZoneAnswers> const m_answers;
    boost::shared_ptr<UILocalStyleProperty<std::string>> const m_text;
};

} // namespace veldraw::sdk::ui::propertymanager
