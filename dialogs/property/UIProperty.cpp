#include "dialogs/property/UIProperty.h"

namespace veldraw::sdk::ui::propertymanager {

void UIProperty::setVisible(bool visible)
{
    m_visibility.setFlag(visible, signalVisibilityChanged);
}

void UIProperty::setVisibilityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance)
{
    m_visibility.setRule(relevance, signalVisibilityChanged);
}

bool UIProperty::isVisible() const
{
    return m_visibility.isYes();
}

void UIProperty::setSensitive(bool sensitive)
{
    m_sensitivity.setFlag(sensitive, signalSensitivityChanged);
}

void UIProperty::setSensitivityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance)
{
    m_sensitivity.setRule(relevance, signalSensitivityChanged);
}

bool UIProperty::isSensitive() const
{
    return m_sensitivity.isYes();
}

bool UIProperty::Answer::isYes() const
{
    return flag && (!rule || rule->isRelevant());
}

void UIProperty::Answer::setFlag(bool value, Signal const& changed)
{
    bool const before = isYes();
    flag = value;
    if (isYes() != before)
        changed();
}

void UIProperty::Answer::setRule(boost::shared_ptr<RelevanceInterface const> const& relevance, Signal const& changed)
{
    bool const before = isYes();
    ruleConnection.disconnect();
    rule = relevance;
    if (rule)
        ruleConnection = rule->connectRelevanceChanged([&changed] { changed(); });
    if (isYes() != before)
        changed();
}

} // namespace veldraw::sdk::ui::propertymanager
