#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/UIPropertyInterface.h"

#include <boost/signals2/connection.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// Stores visibility and sensitivity, both true at first, for the properties that have them.
///
/// A flag's setter signals only when the answer changed; a rule's signal is passed on as it comes, since it too says
/// only "may have changed".
class VDSDKDIALOGS_DATA_QT_API UIProperty : public virtual UIPropertyInterface
{
public:
    void setVisible(bool visible) override;
    void setVisibilityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance) override;
    bool isVisible() const override;
    void setSensitive(bool sensitive) override;
    void setSensitivityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance) override;
    bool isSensitive() const override;

private:
    // One of the two answers: a flag, a rule that may be absent, and the connection to the rule.
    struct Answer
    {
        bool flag = true;
        boost::shared_ptr<RelevanceInterface const> rule;
        boost::signals2::scoped_connection ruleConnection;

        bool isYes() const;
        void setFlag(bool value, Signal const& changed);
        void setRule(boost::shared_ptr<RelevanceInterface const> const& relevance, Signal const& changed);
    };

    Answer m_visibility;
    Answer m_sensitivity;
};

} // namespace veldraw::sdk::ui::propertymanager
