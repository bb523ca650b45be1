#include "app/import/reading/LoadingPlan.h"

#include <limits>

namespace veldraw::app {

namespace {

constexpr double shareForValues = 0.4; // plots and operations need some as well
constexpr std::int64_t mostPointsToCompute = 100000000;

} // namespace

LoadingPlan::LoadingPlan(Deferral deferral, double memory)
    : m_deferral(deferral)
    , m_free(deferral == Deferral::Auto ? shareForValues * memory : std::numeric_limits<double>::infinity())
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
                                                       Need need, kernel::Progress& progress)
{
    auto group = std::make_shared<kernel::ShareGroup>(type, size, loader);
    progress.setTotal(size);
    if (loadsNow(bytes, need))
        group->setLoaded(loader->load(progress));
    return group;
}

} // namespace veldraw::app
