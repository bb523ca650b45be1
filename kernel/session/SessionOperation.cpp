// Operations and other long work.
#include "kernel/operations/ChangeAfterLoad.h"
#include "kernel/operations/SetSolutionTime.h"
#include "kernel/session/Rehearsal.h"
#include "kernel/session/RoomForValues.h"
#include "kernel/session/SessionGuard.h"
#include "kernel/style/StyleTree.h"

#include <utility>

namespace veldraw::kernel {

bool Session::perform(Operation& operation) noexcept
{
    return guarded([&] {
        if (std::string reason = reasonAgainst(operation); !reason.empty()) {
            return refuse(std::move(reason));
        }
        if (Rehearsal* const rehearsal = Rehearsal::current()) {
            rehearsal->note(operation);
            return refuse(Rehearsal::refusal);
        }
        std::shared_ptr<Journal::Entry> const entry = m_journal.entryFor(operation, m_pages);
        if (operation.isLong()) {
            performLong(operation, entry);
        } else {
            addStep(operation, operation.makeChange(m_events), entry);
        }
        if (entry) {
            m_journal.complete(*entry, m_pages);
        }
        tellRemark(operation);
        return true;
    });
}

/// Why an operation cannot be carried out now; empty when it can.
std::string Session::reasonAgainst(Operation& operation) const
{
    std::string reason = operation.find(m_pages);
    if (!reason.empty()) {
        return reason;
    }
    DataSet const* const lockable = operation.lockable();
    return lockable != nullptr && !lockable->lockHolder().empty() ? "The data set is locked."
                                                                  : operation.reasonAgainst();
}

void Session::performLong(Operation& operation, std::shared_ptr<Journal::Entry> const& entry)
{
    StyleTree::Hold const unchanged(
        *m_style); // destroyed last: the style writes that it carries out are operations as well
    std::shared_ptr<DeferredLoad> const load = operation.needs();
    m_needsFetched = m_fetchAhead.isFor(*load);
    RoomForValues room(*this, *load);
    if (!operation.onlyLoads() || !load->isEmpty()) {
        room.run(operation.name(), [&](Progress& progress) {
            if (!load->isEmpty()) {
                m_fetchAhead.wait(progress);
                load->useFetched(m_fetchAhead.fetched());
                load->load(progress);
            }
            operation.compute(progress);
            if (!operation.onlyLoads()) {
                load->requireWhole();
            }
        });
    }
    if (operation.onlyLoads()) {
        std::vector<StateChangeEvent> const events = load->events();
        load->commit();
        m_journal.add(entry);
        room.keepWithinLimit();
        for (StateChangeEvent const& event : events) {
            m_events.emitEvent(event);
        }
        return;
    }
    std::shared_ptr<Change> change = operation.makeChange(m_events);
    if (change && !load->isEmpty()) {
        change = std::make_shared<ChangeAfterLoad>(m_events, std::move(change), load);
    }
    addStep(operation, change, entry);
    if (!load->isEmpty()) {
        room.keepWithinLimit();
    }
}

void Session::addStep(Operation const& operation, std::shared_ptr<Change> const& change,
                      std::shared_ptr<Journal::Entry> const& entry)
{
    if (!change) {
        return;
    }
    if (operation.run() != 0) {
        m_history.performInRun(operation.name(), change, operation.run(), entry);
        m_journal.add(entry);
        return;
    }
    m_journal.add(entry); // before what listeners do when they hear of the change
    try {
        DataSet const* const altered = operation.altered();
        m_history.perform(operation.name(), change, altered != nullptr ? altered->id() : 0, entry);
    } catch (...) {
        m_journal.withdraw(entry);
        throw;
    }
}

void Session::tellRemark(Operation const& operation) noexcept
{
    try {
        std::string const text = operation.remark();
        if (m_remarkListener && !text.empty()) {
            m_remarkListener(text);
        }
    } catch (...) {
        // The operation has succeeded, though its remark is lost.
    }
}

void Session::runOperation(std::string const& name, std::function<void(Progress&)> const& work)
{
    StyleTree::Hold const unchanged(
        *m_style); // destroyed last: the style writes that it carries out are operations as well
    if (!isBusy() && !std::exchange(m_needsFetched, false)) {
        m_fetchAhead.end(); // a loader never runs twice at a time
    }
    m_work.run(name, work);
    m_fetchAhead.end();
}

void Session::fetchAhead(UniqueId frame, double time) noexcept
{
    withoutThrowing([&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!isBusy() && found && found->dataSet) {
            m_fetchAhead.start(*SetSolutionTime::valuesAt(*found, time));
        }
        return true;
    });
}

} // namespace veldraw::kernel
