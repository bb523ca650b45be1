#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>

#include <vector>

namespace veldraw::sdk::ui::propertymanager {

/// Rules joined by "and" and "or", itself a rule. A group in brackets is a nested expression:
///
///     auto plots = boost::make_shared<RelevanceExpression>(fieldPlot);
///     plots->oor(linePlot);
///     auto rule = boost::make_shared<RelevanceExpression>(dataSetExists);
///     rule->aand(*plots);
///
/// A chain is read strictly from left to right, neither word binds closer, and what cannot change the answer is not
/// asked. It signals whenever one of its operands does. An expression that is passed on as a rule must be owned by a
/// shared pointer; otherwise the conversion throws `boost::bad_weak_ptr`.
class VDSDKDIALOGS_DATA_QT_API RelevanceExpression : public virtual RelevanceInterface,
                                                     public boost::enable_shared_from_this<RelevanceExpression>
{
public:
    using Rule = boost::shared_ptr<RelevanceInterface const>;

    /// Operands must not be empty; they are kept alive.
    explicit RelevanceExpression(Rule first);

    RelevanceExpression& aand(Rule operand);
    RelevanceExpression& oor(Rule operand);
    RelevanceExpression* operator->();
    operator Rule();

    bool isRelevant() const override;

private:
    struct Term
    {
        bool isAnd;
        Rule rule;
    };

    RelevanceExpression& append(bool isAnd, Rule operand);

    std::vector<Term> m_terms; // the first one's word is not looked at
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
