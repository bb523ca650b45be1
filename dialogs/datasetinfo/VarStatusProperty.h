#pragma once

#include "dialogs/datasetinfo/VarPropertyAbstract.h"
#include "dialogs/property/UILocalStyleProperty.h"

namespace veldraw::sdk::ui::propertymanager {

/// Whether the selected variable has values in the selected zone and whether they are loaded.
class VarStatusProperty : public VarPropertyAbstract
{
public:
    VarStatusProperty(Selection const& selectedZones, Selection const& selectedVars,
                      boost::shared_ptr<UILocalStyleProperty<VarStatus_e>> status);
    ~VarStatusProperty() override;

    boost::shared_ptr<UILocalStyleProperty<VarStatus_e>> status() const { return m_status; }

private:
    void updateInZone(int zone, int var) override;

    boost::shared_ptr<UILocalStyleProperty<VarStatus_e>> const m_status;
};

} // namespace veldraw::sdk::ui::propertymanager
