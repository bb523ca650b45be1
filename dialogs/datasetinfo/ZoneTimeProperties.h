#pragma once

#include "dialogs/datasetinfo/ZonePropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

namespace veldraw::sdk::ui::propertymanager {

/// Solution time of the selected zone and the time strand that it belongs to.
class ZoneTimeProperties : public ZonePropertyAbstract
{
public:
    explicit ZoneTimeProperties(Selection const& selectedZones);
    ~ZoneTimeProperties() override;

    /// Number of the strand that the kernel gives for a zone; asked again where it answers 0, as it does when it fails.
    static int strandOf(int zone);
    /// Whether a zone with this number for its strand is in one.
    static bool isStrand(int number);
    /// Whether it is the number that the kernel gives to zones of no strand.
    static bool isStatic(int number);

    boost::shared_ptr<UILocalStyleProperty<double>> solutionTime() const { return m_solutionTime; }
    /// 2147483646 for a zone of no strand, as at first.
    boost::shared_ptr<UILocalStyleProperty<int>> strand() const { return m_strand; }

private:
    void update(int zone) override;

    boost::shared_ptr<UILocalStyleProperty<double>> const m_solutionTime;
    boost::shared_ptr<UILocalStyleProperty<int>> const m_strand;
};

} // namespace veldraw::sdk::ui::propertymanager
