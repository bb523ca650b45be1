#pragma once

#include "dialogs/property/RelevanceInterface.h"

namespace veldraw::sdk::ui::propertymanager {

/// A constant answer.
class SimpleBooleanRelevance : public virtual RelevanceInterface
{
public:
    explicit SimpleBooleanRelevance(bool answer);
    bool isRelevant() const override;

private:
    bool m_answer;
};

} // namespace veldraw::sdk::ui::propertymanager
