#pragma once

#include "dialogs/datasetinfo/ZonePropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The type of the selected zone, such as "FE - Quad".
class ZoneTypeProperty : public ZonePropertyAbstract
{
public:
    ZoneTypeProperty(Selection const& selectedZones, boost::shared_ptr<UILocalStyleProperty<std::string>> text);
    ~ZoneTypeProperty() override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> text() const { return m_text; }

private:
    void update(int zone) override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> const m_text;
};

} // namespace veldraw::sdk::ui::propertymanager
