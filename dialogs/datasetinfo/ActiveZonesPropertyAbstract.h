#pragma once

#include "dialogs/datasetinfo/VarPropertyAbstract.h"
#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"

namespace veldraw::sdk::ui::propertymanager {

/// The base of what is told of the selected variable in all active zones. The kernel is asked only when variable or data have changed:
/// another zone is selected with each press of an arrow key, and such a question may go through all zones.
class ActiveZonesPropertyAbstract : public VarPropertyAbstract
{
public:
    ~ActiveZonesPropertyAbstract() override;

protected:
    /// Keeps the selections alive.
    ActiveZonesPropertyAbstract(Selection const& selectedZones, Selection const& selectedVars);

private:
    void updateInZone(int zone, int var) final;

    /// Asks the kernel, under the application's lock, and sets what is told.
    /// @param var one-based number of an enabled variable
    /// @return false if the kernel may not be asked now
    virtual bool updateInActiveZones(int var) = 0;

    int m_askedVar = 0; // 0: not asked since the last state change
    common::StateChangeActionPerformer m_forgetter;
};

} // namespace veldraw::sdk::ui::propertymanager
