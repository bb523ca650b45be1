#pragma once

#include "dialogs/datasetinfo/ZonePropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <array>
#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// What the three dimensions of the selected zone are: indices of an ordered zone; points, elements and, if it has them, faces of a
/// finite-element zone.
class ZoneDimensionLabelProperties : public ZonePropertyAbstract
{
public:
    explicit ZoneDimensionLabelProperties(Selection const& selectedZones);
    ~ZoneDimensionLabelProperties() override;

    /// Whether zones of this type have a third dimension.
    static bool hasThird(int zoneType);

    /// @param place 0, 1 or 2. The third label is empty for a zone without a third dimension.
    boost::shared_ptr<UILocalStyleProperty<std::string>> label(std::size_t place) const { return m_labels.at(place); }

private:
    void update(int zone) override;

    std::array<boost::shared_ptr<UILocalStyleProperty<std::string>>, 3> m_labels;
};

} // namespace veldraw::sdk::ui::propertymanager
