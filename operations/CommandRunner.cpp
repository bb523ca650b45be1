#include "operations/CommandRunner.h"

#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <optional>

namespace veldraw::operations {

namespace {

// A failure's own words may end with a full stop or without.
std::string withReason(std::string failure, std::string const& reason)
{
    if (reason.empty() || failure == reason)
        return failure;
    if (failure.empty())
        return reason;
    return failure + (failure.back() == '.' ? " " : ": ") + reason;
}

} // namespace

void CommandRunner::checkForm(Command const& command) const
{
    readArguments(m_registry.entryOf(command).parameters, command, nullptr);
}

void CommandRunner::Foresight::check(Command const& command)
{
    OperationEntry const& entry = m_runner.m_registry.entryOf(command);
    kernel::DataSet const* const dataSet = m_isKnown ? m_runner.dataFor(entry, command) : nullptr;
    readArguments(entry.parameters, command, dataSet);
    m_isKnown = m_isKnown && entry.renews == OperationEntry::Renews::Nothing;
}

kernel::DataSet const* CommandRunner::dataFor(OperationEntry const& entry, Command const& command) const
{
    auto const dataSet = m_session.activeDataSet();
    if (!dataSet && entry.needsData)
        throw CommandError("\"" + command.name + "\" needs a data set, and none is open.", command.place);
    return dataSet.get();
}

Outcome CommandRunner::run(Command const& command) const
{
    OperationEntry const& entry = m_registry.entryOf(command);
    Arguments const arguments = readArguments(entry.parameters, command, dataFor(entry, command));
    m_session.setLastError({});
    try {
        std::optional<sdk::AppLock> lock;
        if (entry.isLocking)
            lock.emplace(sdk::AppLock::RecordAsUsual);
        if (entry.run(arguments))
            return {true, entry.success};
    } catch (CommandError const&) {
        throw;
    } catch (std::bad_alloc const&) {
        return {false, withReason(entry.failure, "There is not enough memory.")};
    } catch (std::exception const& error) {
        return {false, withReason(entry.failure, error.what())};
    }
    return {false, withReason(entry.failure, m_session.lastError())};
}

} // namespace veldraw::operations
