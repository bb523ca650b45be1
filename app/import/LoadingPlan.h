#pragma once

#include "app/import/Deferral.h"
#include "kernel/data/ShareGroup.h"

#include <functional>
#include <memory>

namespace veldraw::app {

/// Decides during an import which fields get their values at once, and loads those.
class LoadingPlan
{
public:
    enum class Need
    {
        FirstPlot, ///< coordinates, and the variable that is shown first
        Later
    };

    /// @param progress may be empty; its answer false cancels
    LoadingPlan(Deferral deferral, std::function<bool(double)> progress);

    Deferral deferral() const { return m_deferral; }

    /// Tells how many bytes of memory all values would take that are not mapped; to be called once, before group().
    void setTotal(double bytes);

    /// Whether values of @p bytes are to be loaded now; counts them if so.
    bool loadsNow(double bytes, Need need);

    /// The group of a field, its values loaded or left to the loader.
    /// @param bytes of memory that loading takes; 0 for values that are mapped
    /// @throws ImportError, ImportCancelled
    std::shared_ptr<kernel::ShareGroup> group(FieldDataType_e type, std::int64_t size,
                                              std::shared_ptr<kernel::ValueLoader> loader, double bytes, Need need);

    /// How many groups were left to their loaders.
    int deferredCount() const { return m_deferredCount; }

private:
    std::shared_ptr<kernel::Buffer> load(kernel::ValueLoader& loader, std::int64_t size) const;

    Deferral m_deferral;
    std::function<bool(double)> m_progress;
    double m_free; // bytes that may still be taken
    bool m_loadsAll = true;
    int m_deferredCount = 0;
};

} // namespace veldraw::app
