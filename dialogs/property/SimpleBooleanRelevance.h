#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/RelevanceInterface.h"

namespace veldraw::sdk::ui::propertymanager {

/// A constant answer.
class VDSDKDIALOGS_DATA_QT_API SimpleBooleanRelevance : public virtual RelevanceInterface
{
public:
    explicit SimpleBooleanRelevance(bool answer);
    bool isRelevant() const override;

private:
    bool m_answer;
};

} // namespace veldraw::sdk::ui::propertymanager
