#pragma once

#include "dialogs/datasetinfo/ZonePropertyAbstract.h"
#include "dialogs/property/UIStylePropertyDecoratorAbstract.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// A limit of the selected variable's range in the selected zone as text, or why there is none: "N/A" for a passive variable, "Not
/// Loaded" where it is not known yet, and nothing without a selected zone and variable. For reading only; nothing is loaded.
class VarRangeStatusDecorator : public UIStylePropertyDecoratorAbstract<std::string, double>
{
public:
    using Selection = ZonePropertyAbstract::Selection;

    /// Keeps the properties alive.
    VarRangeStatusDecorator(boost::shared_ptr<UIStylePropertyAbstract<double>> limit, Selection const& selectedZones,
                            Selection const& selectedVars);
    ~VarRangeStatusDecorator() override;

protected:
    void storeValue(std::string const& newValue) override;

private:
    std::string retrieveValue() const override;

    Selection const m_selectedZones;
    Selection const m_selectedVars;
    common::OnIdleAfterStateChangeActionPerformer m_performer;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
