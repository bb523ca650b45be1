#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyItemInterface.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/signals2/connection.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// Answers by a predicate and signals whenever a property, of whatever type, changes.
class VDSDKDIALOGS_DATA_QT_API PropertyPredicateDependentRelevance : public virtual RelevanceInterface
{
public:
    /// The property must not be empty and is kept alive. An empty predicate throws `boost::bad_function_call` when
    /// asked.
    PropertyPredicateDependentRelevance(boost::shared_ptr<PropertyItemInterface const> property,
                                        boost::function<bool()> const& predicate);
    bool isRelevant() const override;

private:
    boost::shared_ptr<PropertyItemInterface const> m_property;
    boost::function<bool()> m_predicate;
    boost::signals2::scoped_connection m_propertyConnection;
};

} // namespace veldraw::sdk::ui::propertymanager
