#pragma once

#include "app/files/SizeCheck.h"
#include "app/import/reading/Deferral.h"
#include "kernel/storage/ShareGroup.h"

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

    /// @param memory bytes that are free
    explicit LoadingPlan(Deferral deferral, double memory = availableMemory());

    Deferral deferral() const { return m_deferral; }

    /// Tells how many bytes of memory all values of all files of the import would take that are not mapped; to be called
    /// once, before anything is loaded.
    void setTotal(double bytes);
    bool hasTotal() const { return m_hasTotal; }

    /// Whether values of @p bytes are to be loaded now; counts them if so.
    bool loadsNow(double bytes, Need need);

    /// Whether coordinates of so many points may be computed at all without being asked for: opening is to be quick, whatever
    /// memory there is.
    bool mayCompute(std::int64_t points) const;

    /// The group of a field, its values loaded or left to the loader.
    /// @param bytes of memory that loading takes; 0 for values that are mapped
    /// @param progress gets the size as its total
    /// @throws ImportError, kernel::Interrupted
    std::shared_ptr<kernel::ShareGroup> group(FieldDataType_e type, std::int64_t size,
                                              std::shared_ptr<kernel::ValueLoader> loader, double bytes, Need need,
                                              kernel::Progress& progress);

private:
    Deferral m_deferral;
    double m_free; // bytes that may still be taken
    bool m_loadsAll = true;
    bool m_hasTotal = false;
};

} // namespace veldraw::app
