#pragma once

#include "dialogs/datasetinfo/ZonePropertyAbstract.h"
#include "dialogs/property/UIStylePropertyDecoratorAbstract.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// A limit of the range in the active zones as text: "--------" while the frame has no maps to show, or the range is not known. For
/// reading only.
class NoActiveMapDecorator : public UIStylePropertyDecoratorAbstract<std::string, double>
{
public:
    using Selection = ZonePropertyAbstract::Selection;

    /// Keeps the properties alive.
    /// @param isKnown whether the kernel knew the range when it was last asked
    NoActiveMapDecorator(boost::shared_ptr<UIStylePropertyAbstract<double>> limit,
                         boost::shared_ptr<PropertyAbstract<bool> const> isKnown, Selection const& selectedVars);
    ~NoActiveMapDecorator() override;

protected:
    void storeValue(std::string const& newValue) override;

private:
    std::string retrieveValue() const override;

    boost::shared_ptr<PropertyAbstract<bool> const> const m_isKnown;
    Selection const m_selectedVars;
    common::OnIdleAfterStateChangeActionPerformer m_performer;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
