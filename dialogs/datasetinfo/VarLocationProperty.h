#pragma once

#include "dialogs/datasetinfo/VarPropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// Where the values of the selected variable are in the selected zone: "Cell Centered" or "Nodal".
class VarLocationProperty : public VarPropertyAbstract
{
public:
    VarLocationProperty(Selection const& selectedZones, Selection const& selectedVars,
                        boost::shared_ptr<UILocalStyleProperty<std::string>> text);
    ~VarLocationProperty() override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> text() const { return m_text; }

private:
    void updateInZone(int zone, int var) override;

    boost::shared_ptr<UILocalStyleProperty<std::string>> const m_text;
};

} // namespace veldraw::sdk::ui::propertymanager
