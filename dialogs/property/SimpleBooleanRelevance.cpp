#include "dialogs/property/SimpleBooleanRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

SimpleBooleanRelevance::SimpleBooleanRelevance(bool answer)
    : m_answer(answer)
{
}

bool SimpleBooleanRelevance::isRelevant() const
{
    return m_answer;
}

} // namespace veldraw::sdk::ui::propertymanager
