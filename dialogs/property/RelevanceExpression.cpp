#include "dialogs/property/RelevanceExpression.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

RelevanceExpression::RelevanceExpression(Rule first)
{
    append(false, std::move(first));
}

RelevanceExpression& RelevanceExpression::aand(Rule operand)
{
    return append(true, std::move(operand));
}

RelevanceExpression& RelevanceExpression::oor(Rule operand)
{
    return append(false, std::move(operand));
}

RelevanceExpression* RelevanceExpression::operator->()
{
    return this;
}

RelevanceExpression::operator Rule()
{
    return shared_from_this();
}

bool RelevanceExpression::isRelevant() const
{
    bool answer = false;
    for (Term const& term : m_terms) {
        // "False and x" stays false, "true or x" stays true: neither needs x.
        if (answer != term.isAnd)
            continue;
        answer = term.rule->isRelevant();
    }
    return answer;
}

RelevanceExpression& RelevanceExpression::append(bool isAnd, Rule operand)
{
    m_connections.add(operand->connectRelevanceChanged([this] { signalRelevanceChanged(); }));
    m_terms.push_back({isAnd, std::move(operand)});
    return *this;
}

} // namespace veldraw::sdk::ui::propertymanager
