#pragma once

#include "dialogs/datasetinfo/ActiveZoneAnswers.h"
#include "dialogs/datasetinfo/VarPropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

namespace veldraw::sdk::ui::propertymanager {

/// Smallest and largest value of the selected variable in the active zones that know theirs. Nothing is loaded.
///
/// The kernel is asked only when variable or data have changed: another zone is selected with each press of an arrow key, and the
/// range goes through all zones.
class VarRangeActiveZonesProperties : public VarPropertyAbstract
{
public:
    /// Keeps selections and answers alive.
    VarRangeActiveZonesProperties(Selection const& selectedZones, Selection const& selectedVars,
                                  boost::shared_ptr<ActiveZoneAnswers> const& answers);
    ~VarRangeActiveZonesProperties() override;

    boost::shared_ptr<UILocalStyleProperty<double>> min() const { return m_min; }
    boost::shared_ptr<UILocalStyleProperty<double>> max() const { return m_max; }
    /// Whether the kernel knew the range when it was last asked. Otherwise the two values are older ones.
    boost::shared_ptr<UILocalStyleProperty<bool>> isKnown() const { return m_isKnown; }

private:
    void updateInZone(int zone, int var) override;

    boost::shared_ptr<ActiveZoneAnswers> const m_answers;
    boost::shared_ptr<UILocalStyleProperty<double>> const m_min;
    boost::shared_ptr<UILocalStyleProperty<double>> const m_max;
    boost::shared_ptr<UILocalStyleProperty<bool>> const m_isKnown;
    int m_askedVar = 0; // 0: not asked yet
    long long m_askedRevision = 0;
};

} // namespace veldraw::sdk::ui::propertymanager
