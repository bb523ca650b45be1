#pragma once

#include "app/plot/DepthOrders.h"
#include "app/plot/DrawingBatch.h"
#include "app/plot/GeometryWork.h"
#include "app/plot/ZoneDrawing.h"

#include <vtkRenderer.h>

#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace veldraw::app {

/// The zones of a field plot, and the cuts through them, in its renderer.
///
/// The geometry of a zone is kept until its cells or coordinates change. So a change of colours computes colours only, and a
/// zone that is added or removed does not touch the others. Large geometries are computed in the background; until one is
/// ready its zone is missing, or shown as before.
class ZoneScene
{
public:
    using Drawings = std::vector<std::unique_ptr<ZoneDrawing>>;
    /// A zone, or a cut through one.
    struct Item
    {
        int zone;                         ///< one-based number
        kernel::Cut const* cut = nullptr; ///< null for the zone itself
    };
    using Items = std::vector<Item>;
    using Geometries = std::unordered_map<kernel::UniqueId, std::shared_ptr<ZoneGeometry const>>;

    /// @param ready called on another thread when show() should be called again; empty: show() always does everything
    ZoneScene(vtkRenderer& stage, std::function<void()> ready);
    ~ZoneScene();

    /// Shows these things and no others. Zones are in ascending order.
    /// @return false when some geometries are still being computed in the background
    /// @throws std::bad_alloc, and what else ended the background job; nothing is shown then
    bool show(kernel::DataSet const& dataSet, Items const& items, FieldLook const& look);

    /// Shows nothing and discards the background job.
    void clear();

    /// Whether there is a background job.
    bool isWaiting() const { return m_work.hasJob(); }

    /// Waits until the background job is done; the next show() uses its result.
    void wait() { m_work.wait(); }

    Drawings const& drawings() const { return m_drawings; }
    std::vector<vtkActor*> const& actors() const { return m_actors; }

    ZoneScene(ZoneScene const&) = delete;
    ZoneScene& operator=(ZoneScene const&) = delete;

private:
    using ById = std::unordered_map<kernel::UniqueId, std::unique_ptr<ZoneDrawing>>;
    using Batches = std::map<kernel::UniqueId, std::unique_ptr<DrawingBatch>>;

    bool tryToShow(kernel::DataSet const& dataSet, Items const& items, FieldLook const& look);
    bool workOutMissing(kernel::DataSet const& dataSet, Items const& items, FieldLook const& look, Geometries& known);
    static std::unique_ptr<ZoneDrawing> drawingOf(kernel::UniqueId zone, GeometryKey const& key,
                                                  Geometries const& known, ById& drawn);
    void nameCuts(kernel::DataSet const& dataSet, Items const& items);
    kernel::UniqueId idOf(kernel::DataSet const& dataSet, Item const& item) const;
    void showColours(FieldLook const& look);
    void updateBatches(bool mesh);
    void orderActors(std::vector<vtkActor*> const& actors);

    vtkRenderer& m_stage;
    vtkSmartPointer<vtkLookupTable> m_colours; // over 0 to 1
    int m_bands = 0;                           // of these colours, 0: smooth
    kernel::ColourMapKind m_map = kernel::ColourMapKind::Viridis;
    std::map<std::pair<kernel::UniqueId, kernel::UniqueId>, kernel::UniqueId> m_cuts; // of zones and cuts
    Drawings m_drawings;                                                              // in the order of the zones
    Batches m_batches;                                                                // by the first zone of each
    std::vector<vtkActor*> m_actors; // of the batches, in the order of the zones
    DepthOrders m_depthOrders;
    GeometryWork m_work;
};

} // namespace veldraw::app
