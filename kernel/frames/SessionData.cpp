// What is done to a data set.
#include "kernel/data/VariableDeletion.h"
#include "kernel/frames/RefusalReasons.h"
#include "kernel/frames/SessionChange.h"
#include "kernel/frames/SessionGuard.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

constexpr char noName[] = "A name must not be empty.";

/// Why these variables cannot be deleted, null when they can.
char const* reasonAgainstDeletion(DataSet const& dataSet, NumberSet const& variables)
{
    if (!dataSet.lockHolder().empty()) {
        return locked;
    }
    if (variables.empty()) {
        return "No variables were given.";
    }
    if (*variables.begin() < 1 || *variables.rbegin() > dataSet.variableCount()) {
        return noVariable;
    }
    NumberSet const enabled = dataSet.enabledVariables();
    bool const allEnabled = std::includes(variables.begin(), variables.end(), enabled.begin(), enabled.end());
    bool const all = static_cast<int>(variables.size()) == dataSet.variableCount();
    if (all || (allEnabled && !enabled.empty())) {
        return "The last variable of a data set cannot be deleted.";
    }
    return nullptr;
}

/// Exchanges the title; both ways are the same.
class TitleChange : public Change
{
public:
    TitleChange(EventHub& hub, std::shared_ptr<DataSet> dataSet, std::string title)
        : m_hub(hub)
        , m_dataSet(std::move(dataSet))
        , m_other(std::move(title))
    {
    }

    void apply() noexcept override
    {
        m_dataSet->swapTitle(m_other);
        m_hub.emitEvent({StateChange_DataSetTitle, {}, {}, {}, 0});
    }

    void revert() noexcept override { apply(); }

private:
    EventHub& m_hub;
    std::shared_ptr<DataSet> m_dataSet;
    std::string m_other;
};

} // namespace

bool Session::deleteVariables(DataSet& dataSet, NumberSet const& variables)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        char const* const reason = shown ? reasonAgainstDeletion(dataSet, variables) : notShown;
        if (reason != nullptr) {
            return refuse(reason);
        }
        m_history.perform("Delete Variable", std::make_shared<VariableDeletion>(m_events, shown, variables));
        return true;
    });
}

bool Session::renameZone(DataSet& dataSet, int zone, std::string const& name)
{
    return guarded(*this, [&] {
        std::shared_ptr<Zone> const found = owned(dataSet) ? dataSet.zone(zone) : nullptr;
        if (!found || name.empty()) {
            return refuse(found ? noName : noZone);
        }
        change("Rename Zone", found, found->name, name, {StateChange_ZonesRenamed, {zone}, {}, {}, 0});
        return true;
    });
}

bool Session::renameVariable(DataSet& dataSet, int variable, std::string const& name)
{
    return guarded(*this, [&] {
        std::shared_ptr<Variable> const found = owned(dataSet) ? dataSet.variable(variable) : nullptr;
        if (!found || name.empty()) {
            return refuse(found ? noName : noVariable);
        }
        change("Rename Variable", found, found->name, name, {StateChange_VariablesRenamed, {}, {variable}, {}, 0});
        return true;
    });
}

bool Session::setZoneEnabled(DataSet& dataSet, int zone, bool enabled)
{
    return guarded(*this, [&] {
        std::shared_ptr<Zone> const found = owned(dataSet) ? dataSet.zone(zone) : nullptr;
        if (!found) {
            return refuse(noZone);
        }
        change(enabled ? "Enable Zone" : "Disable Zone", found, found->enabled, enabled,
               {StateChange_ZonesEnabled, {zone}, {}, {}, 0});
        return true;
    });
}

bool Session::setVariableEnabled(DataSet& dataSet, int variable, bool enabled)
{
    return guarded(*this, [&] {
        std::shared_ptr<Variable> const found = owned(dataSet) ? dataSet.variable(variable) : nullptr;
        if (!found) {
            return refuse(noVariable);
        }
        change(enabled ? "Enable Variable" : "Disable Variable", found, found->enabled, enabled,
               {StateChange_VariablesEnabled, {}, {variable}, {}, 0});
        return true;
    });
}

bool Session::setTitle(DataSet& dataSet, std::string const& title)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        if (!shown) {
            return refuse(notShown);
        }
        if (dataSet.title() != title) {
            m_history.perform("Data Set Title", std::make_shared<TitleChange>(m_events, shown, title));
        }
        return true;
    });
}

void Session::setLock(DataSet& dataSet, std::string const& holder)
{
    guarded(*this, [&] {
        if (dataSet.lockHolder() != holder) {
            dataSet.setLockHolder(holder);
            m_events.emitEvent({StateChange_DataSetLock, {}, {}, {}, 0});
        }
        return true;
    });
}

} // namespace veldraw::kernel
