#pragma once

#include "dialogs/datasetinfo/ShownName.h"
#include "dialogs/datasetinfo/ZonePropertyAbstract.h"

namespace veldraw::sdk::ui::propertymanager {

/// The name of the selected zone.
class ZoneNameProperty : public ZonePropertyAbstract
{
public:
    explicit ZoneNameProperty(Selection const& selectedZones);
    ~ZoneNameProperty() override;

    ShownName const& name() const { return m_name; }

private:
    void update(int zone) override;

    ShownName const m_name;
};

} // namespace veldraw::sdk::ui::propertymanager
