#pragma once

#include "dialogs/models/ZoneVarListModelAbstract.h"
#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/PropertyTypes.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::dialogs::data {

/// The enabled variables whose values in a zone are not in memory but can be loaded. It follows the property that says
/// which zone, the kernel's data and what the frame draws.
class NotLoadedVariablesListModel : public sdk::ui::dialogs::propertybindings::models::ZoneVarListModelAbstract
{
public:
    /// @param zone one-based number of the zone; kept alive
    explicit NotLoadedVariablesListModel(boost::shared_ptr<PropertyAbstract<int>> const& zone);
    ~NotLoadedVariablesListModel() override;

    /// Reads the list anew and fires its change signal, whatever changed.
    void reset();

private:
    SignalConnectionCollection m_connections;
    sdk::ui::common::StateChangeActionPerformer const m_drawingListener;
};

} // namespace veldraw::dialogs::data
