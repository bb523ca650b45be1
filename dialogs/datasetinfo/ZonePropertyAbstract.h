#pragma once

#include "dialogs/property/PropertyAbstract.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"

#include <boost/shared_ptr.hpp>

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// The base of what is told of the selected zone, the first one of a selection. It is asked for when the selection changes, and once
/// at the idle moment after state changes, however many came.
///
/// While nothing is selected, or the kernel has no such zone or it is disabled, nothing is asked and what was told stays. So no
/// derived class has to check the number that it gets.
class ZonePropertyAbstract
{
public:
    using Selection = boost::shared_ptr<PropertyAbstract<std::set<int>> const>;

    virtual ~ZonePropertyAbstract();
    ZonePropertyAbstract(ZonePropertyAbstract const&) = delete;
    ZonePropertyAbstract& operator=(ZonePropertyAbstract const&) = delete;

protected:
    /// Keeps the selection alive.
    explicit ZonePropertyAbstract(Selection const& selectedZones);

    /// Asks now. A concrete class calls it at the end of its constructor.
    void refresh();
    /// Asks again whenever another selection changes, too.
    void follow(PropertyAbstract<std::set<int>> const& selection);

private:
    /// Asks the kernel, under the application's lock, and sets what is told.
    /// @param zone one-based number of an enabled zone
    virtual void update(int zone) = 0;

    Selection const m_selectedZones;
    common::OnIdleAfterStateChangeActionPerformer m_performer;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
