#pragma once

#include "dialogs/property/RelevanceInterface.h"

namespace veldraw::tests {

/// A rule whose answer the test sets.
class SwitchedRelevance : public virtual sdk::ui::propertymanager::RelevanceInterface
{
public:
    explicit SwitchedRelevance(bool answer)
        : m_answer(answer)
    {
    }

    void set(bool answer)
    {
        m_answer = answer;
        signalRelevanceChanged();
    }

    bool isRelevant() const override { return m_answer; }
    std::size_t listenerCount() const { return signalRelevanceChanged.num_slots(); }

private:
    bool m_answer;
};

} // namespace veldraw::tests
