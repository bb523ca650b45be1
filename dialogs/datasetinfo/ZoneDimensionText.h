#pragma once

#include "dialogs/property/PropertyTypeAdapter.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// A dimension of the selected zone as text; empty while it is not known, and where zones of this type have no such dimension, so that no
/// number stands without a label. For reading only.
class ZoneDimensionText : public PropertyTypeAdapter<std::string, long long>
{
public:
    using Label = boost::shared_ptr<PropertyAbstract<std::string> const>;

    /// Keeps both alive.
    /// @param label empty where zones of this type have no such dimension
    ZoneDimensionText(boost::shared_ptr<PropertyAbstract<long long>> dimension, Label const& label);
    ~ZoneDimensionText() override;

protected:
    void storeValue(std::string const& newValue) override;

private:
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
