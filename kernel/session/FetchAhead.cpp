#include "kernel/session/FetchAhead.h"

#include "kernel/base/SystemMemory.h"

#include <algorithm>
#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace veldraw::kernel {

class FetchAhead::Job
{
public:
    /// @throws std::bad_alloc; std::system_error where no thread is to be had
    explicit Job(MissingValues wishes)
        : m_wishes(std::move(wishes))
        , m_thread([this] { run(); })
    {
    }

    ~Job()
    {
        m_progress.interrupt();
        m_thread.join();
    }

    void wait(Progress const& progress) const
    {
        while (m_end.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready) {
            progress.check();
        }
    }

    MissingValues const& wishes() const { return m_wishes; }
    FetchedValues const& fetched() const { return m_fetched; }

    Job(Job const&) = delete;
    Job& operator=(Job const&) = delete;

private:
    void run() noexcept
    {
        try {
            fetch();
        } catch (...) {
            // Whoever wants it loads it himself, and hears of the reason.
        }
        m_promise.set_value();
    }

    void fetch()
    {
        for (auto const& loader : m_wishes.dimensions) {
            m_progress.check();
            ZoneDimensions dimensions = loader->load(m_progress);
            m_fetched.dimensions.emplace(loader, std::move(dimensions));
        }
        for (MissingValues::Values const& wish : m_wishes.values) {
            m_progress.check();
            requireMemory(2.0 * static_cast<double>(wish.bytes)); // the user's next operation is to have some as well
            std::shared_ptr<Buffer> buffer = wish.loader->load(m_progress);
            m_fetched.values.emplace(wish.loader, std::move(buffer));
        }
    }

    MissingValues const m_wishes;
    FetchedValues m_fetched;
    Progress m_progress;
    std::promise<void> m_promise;
    std::future<void> m_end = m_promise.get_future();
    std::thread m_thread;
};

FetchAhead::FetchAhead() = default;
FetchAhead::~FetchAhead() = default;

void FetchAhead::start(DeferredLoad const& load) noexcept
{
    end();
    try {
        MissingValues wishes = load.missing();
        if (!wishes.values.empty() || !wishes.dimensions.empty()) {
            m_job = std::make_unique<Job>(std::move(wishes));
        }
    } catch (...) {
        // It is loaded when it is wanted.
    }
}

bool FetchAhead::isFor(DeferredLoad const& load) const
{
    if (!m_job) {
        return false;
    }
    MissingValues const needed = load.missing();
    auto const isWished = [this](MissingValues::Values const& values) {
        auto const& wishes = m_job->wishes().values;
        return std::any_of(wishes.begin(), wishes.end(),
                           [&](auto const& wish) { return wish.loader == values.loader; });
    };
    return std::any_of(needed.values.begin(), needed.values.end(), isWished);
}

void FetchAhead::wait(Progress const& progress) const
{
    if (m_job) {
        m_job->wait(progress);
    }
}

FetchedValues const& FetchAhead::fetched() const
{
    static FetchedValues const nothing;
    return m_job ? m_job->fetched() : nothing;
}

void FetchAhead::end() noexcept
{
    m_job.reset();
}

} // namespace veldraw::kernel
