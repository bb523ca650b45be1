#pragma once

#include "dialogs/datasetinfo/ZonePropertyAbstract.h"
#include "dialogs/property/Property.h"

#include <array>

namespace veldraw::sdk::ui::propertymanager {

/// The three dimensions of the selected zone as far as they are known; asking loads nothing.
class ZoneDimensionProperties : public ZonePropertyAbstract
{
public:
    using Dimensions = std::array<long long, 3>;

    explicit ZoneDimensionProperties(Selection const& selectedZones);
    ~ZoneDimensionProperties() override;

    /// What the kernel knows of the dimensions of a zone; -1 where one is not known yet.
    static Dimensions ofZone(int zone);

    /// @param place 0, 1 or 2. The value is -1 while the dimension is not known, as it is at first.
    boost::shared_ptr<Property<long long>> dimension(std::size_t place) const { return m_dimensions.at(place); }

private:
    void update(int zone) override;

    std::array<boost::shared_ptr<Property<long long>>, 3> m_dimensions;
};

} // namespace veldraw::sdk::ui::propertymanager
