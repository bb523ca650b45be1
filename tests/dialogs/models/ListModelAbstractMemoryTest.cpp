#include "dialogs/models/ListModelAbstract.h"
#include "tests/dialogs/models/ScriptedList.h"
#include "tests/dialogs/support/ListenersWithoutMemory.h"

namespace veldraw::tests {

TEST(ListModelMemory, LeavesNoListenerBehind)
{
    auto const make = [] { return std::make_unique<ScriptedList>(ScriptedList::numbered(3)); };
    expectNoListenerLeftBehind(
        make, [](ScriptedList& list, auto const& slot) { return list.connectDataChanged(slot); },
        [](ScriptedList& list) { list.claimDataChanged(); });
    expectNoListenerLeftBehind(
        make, [](ScriptedList& list, auto const& slot) { return list.connectItemChanged(slot); },
        [](ScriptedList& list) { list.claimChanged(1); });
    expectNoListenerLeftBehind(
        make, [](ScriptedList& list, auto const& slot) { return list.connectItemsInserted(slot); },
        [](ScriptedList& list) { list.claimInserted(1, 2); });
    expectNoListenerLeftBehind(
        make, [](ScriptedList& list, auto const& slot) { return list.connectItemsAboutToBeRemoved(slot); },
        [](ScriptedList& list) { list.announceRemoval(1, 2); });
    expectNoListenerLeftBehind(
        make, [](ScriptedList& list, auto const& slot) { return list.connectItemsRemoved(slot); },
        [](ScriptedList& list) { list.claimRemoved(); });
}

} // namespace veldraw::tests
