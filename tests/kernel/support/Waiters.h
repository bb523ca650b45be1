#pragma once

#include "kernel/base/BackgroundWork.h"
#include "kernel/base/Progress.h"

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace veldraw::tests {

/// Lets work run on a thread of its own, and notes how far it came. Asks for no memory.
class PlainWaiter : public kernel::Waiter
{
public:
    void wait(std::string const&, kernel::Progress& progress, std::shared_future<void> const& work) override
    {
        work.wait();
        total = progress.total();
        done = progress.done();
        fraction = progress.fraction();
    }

    std::int64_t total = 0; ///< units of the last work
    std::int64_t done = 0;
    double fraction = 0;
};

/// Does something while the work goes on, and notes what work it was.
class ActingWaiter : public PlainWaiter
{
public:
    explicit ActingWaiter(std::function<void(kernel::Progress&)> action = [](kernel::Progress&) {})
        : m_action(std::move(action))
    {
    }

    void wait(std::string const& name, kernel::Progress& progress, std::shared_future<void> const& work) override
    {
        names.push_back(name);
        m_action(progress);
        PlainWaiter::wait(name, progress, work);
    }

    std::vector<std::string> names;

private:
    std::function<void(kernel::Progress&)> m_action;
};

/// Cancels work in its middle.
class CancellingWaiter : public PlainWaiter
{
public:
    void wait(std::string const& name, kernel::Progress& progress, std::shared_future<void> const& work) override
    {
        auto const noTime = std::chrono::seconds(0);
        while (progress.fraction() < 0.2 && work.wait_for(noTime) != std::future_status::ready) {
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
        progress.interrupt();
        PlainWaiter::wait(name, progress, work);
    }
};

} // namespace veldraw::tests
