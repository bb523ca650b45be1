#pragma once

#include "operations/Registry.h"

#include <string>

namespace veldraw::kernel {
class Session;
}

namespace veldraw::operations {

/// What came of a command.
struct Outcome
{
    bool isDone = false;
    std::string
        text; ///< what the user is told: on success what the dialog tells, which may be nothing; otherwise with the reason
};

/// Runs commands in a session, one after the other, as if each had been chosen in the window.
class CommandRunner
{
public:
    CommandRunner(kernel::Session& session, Registry const& registry)
        : m_session(session)
        , m_registry(registry)
    {
    }

    /// Checks the name of the operation, the parameters and their limits, not what is about data. @throws CommandError
    void checkForm(Command const& command) const;

    /// Checks commands that will run one after the other, as far as that can be done without running them.
    class Foresight
    {
    public:
        explicit Foresight(CommandRunner const& runner)
            : m_runner(runner)
        {
        }

        /// What is about data is checked as long as no earlier command will have changed what there is. @throws CommandError
        void check(Command const& command);

    private:
        CommandRunner const& m_runner;
        bool m_isKnown = true; // what there is when the next command comes
    };

    Foresight foresight() const { return Foresight(*this); }

    /// @throws CommandError when the command does not fit what is there; nothing has changed then
    Outcome run(Command const& command) const;

private:
    kernel::DataSet const* dataFor(OperationEntry const& entry, Command const& command) const;

    kernel::Session& m_session;
    Registry const& m_registry;
};

} // namespace veldraw::operations
