#include "python/SignalWaiter.h"

#include "kernel/session/Session.h"

#include <chrono>
#include <thread>

namespace py = pybind11;

namespace veldraw::python {

namespace {

constexpr std::chrono::milliseconds betweenLooks(20); // for signals
constexpr std::chrono::milliseconds betweenTries(1);  // while another thread's operation runs

} // namespace

SignalWaiter::SignalWaiter(kernel::Session& session)
    : m_session(session)
{
    m_session.setWaiter(this);
}

SignalWaiter& SignalWaiter::instance()
{
    static auto* const waiter = new SignalWaiter(kernel::Session::instance()); // never destroyed, as the session
    return *waiter;
}

void SignalWaiter::wait(std::string const&, kernel::Progress& progress, std::shared_future<void> const& work)
{
    while (true) {
        {
            py::gil_scoped_release const others;
            if (work.wait_for(betweenLooks) == std::future_status::ready)
                break;
        }
        hearSignals(progress);
    }
}

void SignalWaiter::hearSignals(kernel::Progress& progress)
{
    if (PyErr_CheckSignals() == 0)
        return;
    m_raised = std::make_unique<py::error_already_set>();
    m_session.setInterrupted(true);
    progress.interrupt();
}

void SignalWaiter::waitForOthers()
{
    while (m_session.isBusy()) {
        {
            py::gil_scoped_release const others;
            std::this_thread::sleep_for(betweenTries);
        }
        if (PyErr_CheckSignals() != 0)
            throw py::error_already_set();
    }
}

void SignalWaiter::raisePending()
{
    if (!m_raised)
        return;
    py::error_already_set const raised = std::move(*m_raised);
    m_raised.reset();
    throw raised;
}

} // namespace veldraw::python
