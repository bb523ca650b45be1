#pragma once

#include "dialogs/models/ListModelProxy.h"
#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/Property.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// The enabled zones of the active frame, or one row a time strand, as a property says that a check box can bind to.
///
/// The property changes what the values mean: zone numbers while it is false, as at first, field map numbers while it is
/// true. A selection in the list changes its meaning with it.
class VDSDKDIALOGS_DATA_QT_API ZoneListModelGroupableByStrand : public ListModelProxy<int>
{
public:
    ZoneListModelGroupableByStrand();
    ~ZoneListModelGroupableByStrand() override;

    boost::shared_ptr<PropertyAbstract<bool>> groupByTimeStrand() const;

private:
    void groupingChanged(bool grouped);

    boost::shared_ptr<PropertyAbstract<bool>> const m_groupByTimeStrand;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
