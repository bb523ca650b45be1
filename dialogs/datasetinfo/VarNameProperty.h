#pragma once

#include "dialogs/datasetinfo/ShownName.h"
#include "dialogs/datasetinfo/VarPropertyAbstract.h"

namespace veldraw::sdk::ui::propertymanager {

/// The name of the selected variable.
class VarNameProperty : public VarPropertyAbstract
{
public:
    VarNameProperty(Selection const& selectedZones, Selection const& selectedVars);
    ~VarNameProperty() override;

    ShownName const& name() const { return m_name; }

private:
    void updateInZone(int zone, int var) override;

    ShownName const m_name;
};

} // namespace veldraw::sdk::ui::propertymanager
