#pragma once

#include "dialogs/datasetinfo/VarPropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// How the values of the selected variable are stored in the selected zone, such as "Float".
class VarTypeProperty : public VarPropertyAbstract
{
public:
    VarTypeProperty(Selection const& selectedZones, Selection const& selectedVars,
                    boost::shared_ptr<UILocalStyleProperty<std::string>> text);
    ~VarTypeProperty() override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> text() const { return m_text; }

private:
    void updateInZone(int zone, int var) override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> const m_text;
};

} // namespace veldraw::sdk::ui::propertymanager
