#pragma once

#include "kernel/base/BackgroundWork.h"

#include <memory>
#include <pybind11/pybind11.h>

namespace veldraw::kernel {
class Session;
}

namespace veldraw::python {

/// Waits for long operations: other threads of Python run meanwhile, and Ctrl+C cancels the operation.
///
/// Whoever calls the session holds Python's global lock, which is given up here alone. So the lock guards the session, too.
class SignalWaiter : public kernel::Waiter
{
public:
    /// The waiter of the session behind the C functions, installed by the first call.
    static SignalWaiter& instance();

    void wait(std::string const& name, kernel::Progress& progress, std::shared_future<void> const& work) override;

    /// Lets other threads run until no operation does. @throws pybind11::error_already_set what a signal's handler raises
    void waitForOthers();

    /// To be called after each operation. @throws pybind11::error_already_set what a signal's handler has raised meanwhile
    void raisePending();

private:
    explicit SignalWaiter(kernel::Session& session);
    void hearSignals(kernel::Progress& progress);

    kernel::Session& m_session;
    std::unique_ptr<pybind11::error_already_set> m_raised;
};

} // namespace veldraw::python
