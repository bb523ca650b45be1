#pragma once

#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <boost/shared_ptr.hpp>

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// True while there is something to transform: a dependent variable besides the independent one, and source zones all of which the
/// kernel can transform. It signals when one of the three properties changes, and follows nothing in the kernel.
class FourierTransformButtonRelevance : public virtual RelevanceInterface
{
public:
    using NumberProperty = boost::shared_ptr<PropertyAbstract<int> const>;
    using NumbersProperty = boost::shared_ptr<PropertyAbstract<std::set<int>> const>;

    /// Keeps the properties alive.
    FourierTransformButtonRelevance(NumberProperty independentVariable, NumbersProperty dependentVariables,
                                    NumbersProperty sourceZones);
    ~FourierTransformButtonRelevance() override;

    bool isRelevant() const override;

private:
    bool hasDependentVariable() const;

    NumberProperty const m_independentVariable;
    NumbersProperty const m_dependentVariables;
    NumbersProperty const m_sourceZones;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
