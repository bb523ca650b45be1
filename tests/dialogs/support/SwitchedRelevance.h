#pragma once

#include "dialogs/property/RelevanceInterface.h"

namespace veldraw::tests {

/// A rule whose answer the test sets, and that counts how often it is asked and listened to.
class SwitchedRelevance : public virtual sdk::ui::propertymanager::RelevanceInterface
{
public:
    explicit SwitchedRelevance(bool answer)
        : m_answer(answer)
    {
    }

    void set(bool answer)
    {
        setSilently(answer);
        signalRelevanceChanged();
    }
    void setSilently(bool answer) { m_answer = answer; }

    bool isRelevant() const override
    {
        ++timesAsked;
        return m_answer;
    }
    std::size_t listenerCount() const { return signalRelevanceChanged.num_slots(); }

    mutable int timesAsked = 0;
    mutable int hookRuns = 0;

private:
    void signalRelevanceChangedConnected() const override { ++hookRuns; }

    bool m_answer;
};

} // namespace veldraw::tests
