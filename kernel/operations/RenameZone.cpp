#include "kernel/operations/RenameZone.h"

#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

namespace {

constexpr char noName[] = "A name must not be empty.";

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

std::string RenameZone::reasonAgainst() const
{
    if (!dataSet()->zone(m_zone)) {
        return noZone;
    }
    return m_newName.empty() ? noName : "";
}

std::shared_ptr<Change> RenameZone::makeChange(EventHub& events)
{
    std::shared_ptr<Zone> const zone = dataSet()->zone(m_zone);
    return changeTo(events, zone, zone->name, m_newName, {StateChange_ZonesRenamed, {m_zone}, {}, {}, 0});
}

std::string RenameVariable::reasonAgainst() const
{
    if (!dataSet()->variable(m_variable)) {
        return noVariable;
    }
    return m_newName.empty() ? noName : "";
}

std::shared_ptr<Change> RenameVariable::makeChange(EventHub& events)
{
    std::shared_ptr<Variable> const variable = dataSet()->variable(m_variable);
    return changeTo(events, variable, variable->name, m_newName,
                    {StateChange_VariablesRenamed, {}, {m_variable}, {}, 0});
}

std::shared_ptr<Change> SetTitle::makeChange(EventHub& events)
{
    bool const isNew = dataSet()->title() != m_title;
    return isNew ? std::make_shared<TitleChange>(events, dataSet(), m_title) : nullptr;
}

CommandText RenameZone::command() const
{
    return CommandText("rename-zone").number("zone", m_zone).quoted("name", m_newName);
}

CommandText RenameVariable::command() const
{
    return CommandText("rename-variable").number("variable", m_variable).quoted("name", m_newName);
}

CommandText SetTitle::command() const
{
    return CommandText("set-title").quoted("title", m_title);
}

} // namespace veldraw::kernel
