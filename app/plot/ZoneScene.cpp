#include "app/plot/ZoneScene.h"

#include "app/plot/ColourMap.h"

#include <vtkPropCollection.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <set>
#include <utility>

namespace veldraw::app {

namespace {

// Work for some tens of milliseconds, in points and corners of cells.
constexpr std::int64_t mostWorkAtOnce = 400000;

// A change of one zone has its batch put together anew, so batches are small beside the whole and large beside a zone.
constexpr int zonesInBatch = 64;
constexpr vtkIdType mostPointsInBatch = 4096; // of each zone

using Geometries = ZoneScene::Geometries;
using GeometriesByCells = std::unordered_map<kernel::Connectivity const*, std::shared_ptr<ZoneGeometry const>>;

GeometriesByCells byCells(Geometries const& known)
{
    GeometriesByCells cells;
    for (auto const& [zone, geometry] : known)
        if (geometry->key().cells)
            cells.emplace(geometry->key().cells.get(), geometry);
    return cells;
}

// A geometry to reuse parts of: the zone's own, or that of another zone with the same cells, such as a copy.
std::shared_ptr<ZoneGeometry const> nearestTo(GeometryKey const& key, kernel::UniqueId zone, Geometries const& known,
                                              GeometriesByCells const& cells)
{
    auto const own = known.find(zone);
    if (own != known.end() && key.hasSameCells(own->second->key()))
        return own->second;
    auto const other = cells.find(key.cells.get());
    return other != cells.end() && key.hasSameCells(other->second->key()) ? other->second : nullptr;
}

std::int64_t workOf(GeometryWork::Requests const& requests)
{
    return std::accumulate(requests.begin(), requests.end(), std::int64_t{0},
                           [](std::int64_t sum, GeometryRequest const& request) {
                               return sum + ZoneGeometry::work(request.source.key(), request.before.get());
                           });
}

bool standsAlone(ZoneDrawing const& drawing, std::size_t count)
{
    return count <= static_cast<std::size_t>(zonesInBatch) || drawing.surface().GetNumberOfPoints() > mostPointsInBatch;
}

bool canShareBatch(ZoneDrawing const& a, ZoneDrawing const& b, std::size_t count)
{
    // By the numbers, so that a zone that comes or goes moves no border.
    return (a.zoneNumber() - 1) / zonesInBatch == (b.zoneNumber() - 1) / zonesInBatch && !standsAlone(a, count) &&
           !standsAlone(b, count) && a.style() == b.style();
}

std::vector<DepthOrders::Place> placesOf(ZoneScene::Drawings const& drawings)
{
    std::vector<DepthOrders::Place> places;
    for (auto const& drawing : drawings)
        places.push_back({drawing->zone(), drawing->geometry()->bounds()});
    return places;
}

} // namespace

ZoneScene::ZoneScene(vtkRenderer& stage, std::function<void()> ready)
    : m_stage(stage)
    , m_colours(ColourMap::create(0.0, 1.0))
    , m_work(std::move(ready))
{
}

ZoneScene::~ZoneScene() = default;

bool ZoneScene::show(kernel::DataSet const& dataSet, Items const& items, FieldLook const& look)
{
    try {
        return tryToShow(dataSet, items, look);
    } catch (...) {
        clear(); // what is not seen must not stay in memory, which may be what is missing
        throw;
    }
}

bool ZoneScene::tryToShow(kernel::DataSet const& dataSet, Items const& items, FieldLook const& look)
{
    nameCuts(dataSet, items);
    Geometries known;
    for (auto const& drawing : m_drawings)
        known[drawing->zone()] = drawing->geometry();
    for (GeometryResult& result : m_work.take())
        known[result.zone] = std::move(result.geometry);
    bool const isComplete = workOutMissing(dataSet, items, look, known);

    ById drawn;
    for (std::unique_ptr<ZoneDrawing>& drawing : m_drawings)
        drawn[drawing->zone()] = std::move(drawing);
    m_drawings.clear();
    for (Item const& item : items) {
        auto drawing = drawingOf(idOf(dataSet, item), geometryKeyOf(dataSet, item.zone, look, item.cut), known, drawn);
        if (!drawing)
            continue;
        drawing->colour(dataSet, item.zone, look);
        m_drawings.push_back(std::move(drawing));
    }
    showColours(look);
    updateBatches(look.mesh);
    return isComplete;
}

// All batches have this one table.
void ZoneScene::showColours(FieldLook const& look)
{
    if (look.contourBands == m_bands && look.contourMap == m_map)
        return;
    m_colours->DeepCopy(ColourMap::create(0.0, 1.0, look.contourBands, look.contourMap));
    m_bands = look.contourBands;
    m_map = look.contourMap;
}

// A cut through a zone keeps its identifier as long as it is shown.
void ZoneScene::nameCuts(kernel::DataSet const& dataSet, Items const& items)
{
    decltype(m_cuts) const before = std::exchange(m_cuts, {});
    for (Item const& item : items) {
        if (!item.cut)
            continue;
        std::pair const key(dataSet.zones()[static_cast<std::size_t>(item.zone - 1)]->id, item.cut->id);
        auto const known = before.find(key);
        m_cuts[key] = known == before.end() ? kernel::nextUniqueId() : known->second;
    }
}

kernel::UniqueId ZoneScene::idOf(kernel::DataSet const& dataSet, Item const& item) const
{
    kernel::UniqueId const zone = dataSet.zones()[static_cast<std::size_t>(item.zone - 1)]->id;
    return item.cut ? m_cuts.at({zone, item.cut->id}) : zone;
}

// Computes all missing and outdated geometries, now or in the background. @return false when some are not ready yet
bool ZoneScene::workOutMissing(kernel::DataSet const& dataSet, Items const& items, FieldLook const& look,
                               Geometries& known)
{
    GeometryWork::Requests requests;
    GeometriesByCells cells;
    for (Item const& item : items) {
        kernel::UniqueId const zone = idOf(dataSet, item);
        GeometryKey const key = geometryKeyOf(dataSet, item.zone, look, item.cut);
        auto const own = known.find(zone);
        if (own != known.end() && own->second->key() == key)
            continue;
        if (requests.empty())
            cells = byCells(known);
        auto before = nearestTo(key, zone, known, cells);
        if (before && before->key() == key)
            known[zone] = std::move(before);
        else
            requests.push_back({zone, ZoneSource(dataSet, item.zone, look, item.cut), std::move(before)});
    }
    if (requests.empty()) {
        m_work.drop();
        return true;
    }
    if (m_work.isWanted(requests))
        return false; // what else there is to do is seen when that is done
    if (m_work.canWorkAside() && workOf(requests) > mostWorkAtOnce) {
        m_work.start(std::move(requests));
        return false;
    }
    m_work.drop();
    for (GeometryResult& result : GeometryWork::run(requests, {}))
        known[result.zone] = std::move(result.geometry);
    return true;
}

// While a geometry is computed, the former one is shown, unless its place is wrong.
std::unique_ptr<ZoneDrawing> ZoneScene::drawingOf(kernel::UniqueId zone, GeometryKey const& key,
                                                  Geometries const& known, ById& drawn)
{
    auto const before = drawn.find(zone);
    auto const found = known.find(zone);
    if (found != known.end() && found->second->key() == key) {
        if (before == drawn.end())
            return std::make_unique<ZoneDrawing>(zone, found->second);
        before->second->setGeometry(found->second);
        return std::move(before->second);
    }
    bool const canStay = before != drawn.end() && before->second->geometry()->key().space == key.space &&
                         before->second->geometry()->key().inSpace == key.inSpace;
    return canStay ? std::move(before->second) : nullptr;
}

void ZoneScene::clear()
{
    m_work.drop();
    m_drawings.clear();
    m_cuts.clear();
    updateBatches(false);
}

void ZoneScene::updateBatches(bool mesh)
{
    std::vector<float> const& orders = m_depthOrders.of(placesOf(m_drawings));
    Batches batches;
    std::vector<vtkActor*> actors;
    for (auto first = m_drawings.begin(); first != m_drawings.end();) {
        auto const last = std::find_if(first + 1, m_drawings.end(), [&](auto const& drawing) {
            return !canShareBatch(**first, *drawing, m_drawings.size());
        });
        DrawingBatch::Drawings together;
        std::transform(first, last, std::back_inserter(together), [](auto const& drawing) { return drawing.get(); });
        kernel::UniqueId const id = together.front()->zone();
        auto const old = m_batches.find(id);
        auto batch = old == m_batches.end() ? std::make_unique<DrawingBatch>(*m_colours) : std::move(old->second);
        batch->show(together, mesh);
        if (orders.empty())
            batch->setDepthOrders({});
        else
            batch->setDepthOrders(
                {orders.begin() + (first - m_drawings.begin()), orders.begin() + (last - m_drawings.begin())});
        actors.push_back(batch->actor());
        batches[id] = std::move(batch);
        first = last;
    }
    orderActors(actors);
    m_batches = std::move(batches);
}

// What is drawn last lies on top, so that zones at one place have to be drawn in their order. Actors are moved within the list
// itself, since the renderer throws away what it has on the graphics card when it removes one.
void ZoneScene::orderActors(std::vector<vtkActor*> const& actors)
{
    std::set<vtkActor*> const wanted(actors.begin(), actors.end());
    std::vector<vtkActor*> present;
    for (vtkActor* const actor : m_actors)
        if (wanted.count(actor) != 0)
            present.push_back(actor);
        else
            m_stage.RemoveActor(actor);
    std::set<vtkActor*> const old(present.begin(), present.end());
    for (vtkActor* const actor : actors)
        if (old.count(actor) == 0) {
            m_stage.AddActor(actor);
            present.push_back(actor);
        }
    m_actors = actors;
    if (present == actors)
        return;
    for (vtkActor* const actor : actors) {
        m_stage.GetViewProps()->RemoveItem(actor);
        m_stage.GetViewProps()->AddItem(actor);
    }
}

} // namespace veldraw::app
