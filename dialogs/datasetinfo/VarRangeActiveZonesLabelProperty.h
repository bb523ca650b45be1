#pragma once

#include "dialogs/property/UILocalStyleProperty.h"
#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The title of the range in the active zones, which a line plot refers to. It follows the plot type at idle.
class VarRangeActiveZonesLabelProperty
{
public:
    VarRangeActiveZonesLabelProperty();
    ~VarRangeActiveZonesLabelProperty();
    VarRangeActiveZonesLabelProperty(VarRangeActiveZonesLabelProperty const&) = delete;
    VarRangeActiveZonesLabelProperty& operator=(VarRangeActiveZonesLabelProperty const&) = delete;

    boost::shared_ptr<UILocalStyleProperty<std::string>> text() const { return m_text; }

private:
    void update();

    boost::shared_ptr<UILocalStyleProperty<std::string>> const m_text;
    common::OnIdleAfterStateChangeActionPerformer m_performer;
};

} // namespace veldraw::sdk::ui::propertymanager
