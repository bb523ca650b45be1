#pragma once

#include "dialogs/datasetinfo/ZonePropertyAbstract.h"

namespace veldraw::sdk::ui::propertymanager {

/// The base of what is told of the selected variable in the selected zone. What holds of the zone in `ZonePropertyAbstract` holds of
/// the variable as well.
class VarPropertyAbstract : public ZonePropertyAbstract
{
public:
    ~VarPropertyAbstract() override;

protected:
    /// Keeps the selections alive.
    VarPropertyAbstract(Selection const& selectedZones, Selection const& selectedVars);

private:
    void update(int zone) final;

    /// Asks the kernel, under the application's lock, and sets what is told.
    /// @param zone one-based number of an enabled zone
    /// @param var one-based number of an enabled variable
    virtual void updateInZone(int zone, int var) = 0;

    Selection const m_selectedVars;
};

} // namespace veldraw::sdk::ui::propertymanager
