#include "app/import/LoadingPlan.h"

#include "app/import/ImportError.h"
#include "kernel/compute/Interrupted.h"

#include <chrono>
#include <future>
#include <limits>

namespace veldraw::app {

namespace {

constexpr double shareOfMemory = 0.4; // plots and operations need some as well
constexpr std::chrono::milliseconds pause(20);
constexpr std::int64_t mostPointsToCompute = 100000000;

} // namespace

LoadingPlan::LoadingPlan(Deferral deferral, std::function<bool(double)> progress, double memory)
    : m_deferral(deferral)
    , m_progress(std::move(progress))
    , m_free(deferral == Deferral::Auto ? shareOfMemory * memory : std::numeric_limits<double>::infinity())
{
}

void LoadingPlan::setTotal(double bytes)
{
    m_hasTotal = true;
    m_loadsAll = bytes <= m_free;
    if (m_deferral == Deferral::Never)
        checkMemoryFor(bytes);
}

bool LoadingPlan::mayCompute(std::int64_t points) const
{
    return m_deferral == Deferral::Never || points <= mostPointsToCompute;
}

bool LoadingPlan::loadsNow(double bytes, Need need)
{
    if (m_deferral == Deferral::Always)
        return false;
    bool const now = bytes <= 0.0 || ((m_loadsAll || need == Need::FirstPlot) && bytes <= m_free);
    if (now)
        m_free -= bytes;
    return now;
}

std::shared_ptr<kernel::ShareGroup> LoadingPlan::group(FieldDataType_e type, std::int64_t size,
                                                       std::shared_ptr<kernel::ValueLoader> loader, double bytes,
                                                       Need need)
{
    auto group = std::make_shared<kernel::ShareGroup>(type, size, loader);
    if (loadsNow(bytes, need))
        group->setLoaded(load(*loader, size));
    return group;
}

std::shared_ptr<kernel::Buffer> LoadingPlan::load(kernel::ValueLoader& loader, std::int64_t size) const
{
    kernel::Progress progress;
    progress.setTotal(size);
    auto work = std::async(std::launch::async, [&] { return loader.load(progress); });
    while (work.wait_for(pause) != std::future_status::ready) {
        if (m_progress && !m_progress(progress.fraction()))
            progress.interrupt();
    }
    try {
        return work.get();
    } catch (kernel::Interrupted const&) {
        throw ImportCancelled("the import was cancelled");
    }
}

} // namespace veldraw::app
