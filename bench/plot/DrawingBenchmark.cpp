// How long a person waits for a picture of many zones, or of many cells, drawing included. Needs a display.
#include "app/plot/FieldView.h"
#include "app/plot/PageView.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"

#include <QApplication>

#include <array>
#include <benchmark/benchmark.h>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace veldraw;

namespace {

constexpr int zoneCount = 5000;
constexpr std::int64_t zoneEdge = 10;        // points
constexpr std::int64_t cubesAlongEdge = 120; // cubed and cut into five: 8.64 million tetrahedra

kernel::Field fieldOf(std::vector<float> const& values)
{
    auto const buffer = kernel::Buffer::allocate(FieldDataType_Float, static_cast<std::int64_t>(values.size()));
    for (std::size_t n = 0; n < values.size(); ++n)
        buffer->setValue(static_cast<std::int64_t>(n), static_cast<double>(values[n]));
    return kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), ValueLocation_Nodal);
}

std::shared_ptr<kernel::DataSet> emptySet()
{
    auto set = std::make_shared<kernel::DataSet>("large");
    for (char const* name : {"X", "Y", "Z", "P", "Q"})
        set->addVariable(std::make_shared<kernel::Variable>(name));
    return set;
}

// Coordinates, and two fields made of them.
void addFields(kernel::Zone& zone, std::vector<float> const& x, std::vector<float> const& y,
               std::vector<float> const& z)
{
    std::vector<float> p;
    std::vector<float> q;
    for (std::size_t n = 0; n < x.size(); ++n) {
        p.push_back(x[n] + 2.0F * y[n]);
        q.push_back(y[n] - z[n]);
    }
    zone.fields = {fieldOf(x), fieldOf(y), fieldOf(z), fieldOf(p), fieldOf(q)};
}

void addSheet(kernel::DataSet& set, std::array<float, 3> const& corner, float width)
{
    std::vector<float> x;
    std::vector<float> y;
    for (std::int64_t point = 0; point < zoneEdge * zoneEdge; ++point) {
        x.push_back(corner[0] + width * static_cast<float>(point % zoneEdge) / zoneEdge);
        y.push_back(corner[1] + width * static_cast<float>(point / zoneEdge) / zoneEdge);
    }
    auto zone = std::make_shared<kernel::Zone>("sheet", ZoneType_Ordered, zoneEdge, zoneEdge, 1);
    addFields(*zone, x, y, std::vector<float>(x.size(), corner[2]));
    set.addZone(zone);
}

// Small sheets side by side.
std::shared_ptr<kernel::DataSet> manySheets()
{
    auto set = emptySet();
    for (int n = 0; n < zoneCount; ++n)
        addSheet(*set, {static_cast<float>(n % 100), static_cast<float>(n / 100), static_cast<float>(n % 7)}, 1.0F);
    return set;
}

// Sheets that lie on each other, each a little larger than the one below.
std::shared_ptr<kernel::DataSet> pileOfSheets()
{
    auto set = emptySet();
    for (int n = 0; n < zoneCount; ++n)
        addSheet(*set, {0.0F, 0.0F, 0.0F}, 1.0F + static_cast<float>(n) / zoneCount);
    return set;
}

std::shared_ptr<kernel::Connectivity const> cubesCutIntoFive()
{
    struct Arrays
    {
        std::vector<std::int64_t> offsets = {0};
        std::vector<std::int64_t> indices;
    };
    auto arrays = std::make_shared<Arrays>();
    std::int64_t const m = cubesAlongEdge + 1;
    // Corners of a cube by the bits of their numbers; every second cube is cut the other way, so that faces meet.
    constexpr int cuts[2][5][4] = {{{0, 1, 3, 5}, {0, 3, 2, 6}, {0, 5, 4, 6}, {3, 5, 7, 6}, {0, 3, 5, 6}},
                                   {{1, 3, 2, 7}, {1, 0, 2, 4}, {1, 5, 4, 7}, {2, 6, 7, 4}, {1, 2, 4, 7}}};
    for (std::int64_t cube = 0; cube < cubesAlongEdge * cubesAlongEdge * cubesAlongEdge; ++cube) {
        std::int64_t const i = cube % cubesAlongEdge;
        std::int64_t const j = cube / cubesAlongEdge % cubesAlongEdge;
        std::int64_t const k = cube / cubesAlongEdge / cubesAlongEdge;
        for (auto const& cell : cuts[(i + j + k) % 2]) {
            for (int const corner : cell)
                arrays->indices.push_back(i + (corner & 1) + m * (j + (corner >> 1 & 1) + m * (k + (corner >> 2))));
            arrays->offsets.push_back(static_cast<std::int64_t>(arrays->indices.size()));
        }
    }
    auto cells = std::make_shared<kernel::Connectivity>();
    cells->cellCount = static_cast<std::int64_t>(arrays->offsets.size()) - 1;
    cells->indexCount = static_cast<std::int64_t>(arrays->indices.size());
    cells->offsets = arrays->offsets.data();
    cells->indices = arrays->indices.data();
    cells->owner = arrays;
    return cells;
}

std::shared_ptr<kernel::DataSet> manyTetrahedra()
{
    auto set = emptySet();
    std::int64_t const m = cubesAlongEdge + 1;
    std::vector<float> x;
    std::vector<float> y;
    std::vector<float> z;
    for (std::int64_t point = 0; point < m * m * m; ++point) {
        x.push_back(static_cast<float>(point % m));
        y.push_back(static_cast<float>(point / m % m));
        z.push_back(static_cast<float>(point / m / m));
    }
    auto const cells = cubesCutIntoFive();
    auto zone = std::make_shared<kernel::Zone>("solid", ZoneType_FETetra, m * m * m, cells->cellCount, 0);
    zone->connectivity = cells;
    addFields(*zone, x, y, z);
    set->addZone(zone);
    return set;
}

/// A page on the display with one frame in space.
class Page
{
public:
    explicit Page(std::shared_ptr<kernel::DataSet> dataSet)
        : m_frame(std::make_shared<kernel::Frame>("large", kernel::Rectangle{}))
    {
        m_frame->dataSet = std::move(dataSet);
        m_frame->plotType = PlotType_Cartesian3D;
        for (std::size_t axis = 0; axis < 3; ++axis)
            m_frame->axes3D[axis] = m_frame->dataSet->variable(static_cast<int>(axis) + 1)->id;
        m_frame->contourVariable = m_frame->dataSet->variable(4)->id;
        m_session.openPage({m_frame});
        open();
        m_view->grabImage();
    }

    void open()
    {
        m_view = std::make_unique<app::PageView>(m_session);
        m_view->resize(1000, 800);
        m_view->show();
        QApplication::processEvents();
    }
    void close() { m_view.reset(); }

    /// The picture as it is on the screen when nothing is left to be drawn.
    void draw()
    {
        m_view->scheduleRefresh();
        if (m_view->grabImage().isNull())
            throw std::runtime_error("there is no picture");
    }

    /// As far as the picture, but without it.
    void prepare() { benchmark::DoNotOptimize(m_view->frameView(m_frame->id)); }

    app::FieldView& view() { return dynamic_cast<app::FieldView&>(*m_view->frameView(m_frame->id)); }
    std::size_t shownZones() { return view().zones().size(); }
    std::size_t markedZones() { return view().markedZones().size(); }

    kernel::Session& session() { return m_session; }
    kernel::DataSet& dataSet() { return *m_frame->dataSet; }
    kernel::UniqueId frame() const { return m_frame->id; }

private:
    kernel::Session m_session;
    std::shared_ptr<kernel::Frame> m_frame;
    std::unique_ptr<app::PageView> m_view;
};

// Pages stay until the process ends: widgets must not go after the application.
Page& zones()
{
    static Page& page = *new Page(manySheets());
    return page;
}

Page& pile()
{
    static Page& page = *new Page(pileOfSheets());
    return page;
}

Page& tetrahedra()
{
    static Page& page = *new Page(manyTetrahedra());
    return page;
}

/// Drawing runs on threads of its own: the clock counts, and the processor time is that of the whole program.
void byTheClock(benchmark::internal::Benchmark* figure)
{
    figure->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

void drawFiveThousandZonesAgain(benchmark::State& state)
{
    Page& page = zones();
    for (auto _ : state)
        page.draw();
}
BENCHMARK(drawFiveThousandZonesAgain)->Apply(byTheClock);

template <bool isDrawn>
void hideOneOf(Page& page, benchmark::State& state)
{
    int zone = 0;
    for (auto _ : state) {
        zone = zone % zoneCount + 1;
        page.session().perform(kernel::EnableZone(page.dataSet(), zone, !page.dataSet().zone(zone)->enabled));
        page.prepare();
        if (isDrawn)
            page.draw();
    }
    while (page.session().undo())
        ;
    page.draw();
}

template <bool isDrawn>
void hideOneOfFiveThousandZones(benchmark::State& state)
{
    hideOneOf<isDrawn>(zones(), state);
}
BENCHMARK_TEMPLATE(hideOneOfFiveThousandZones, false)->Apply(byTheClock);
BENCHMARK_TEMPLATE(hideOneOfFiveThousandZones, true)->Apply(byTheClock);

template <bool isDrawn>
void hideOneOfFiveThousandZonesThatLieOnEachOther(benchmark::State& state)
{
    hideOneOf<isDrawn>(pile(), state);
}
BENCHMARK_TEMPLATE(hideOneOfFiveThousandZonesThatLieOnEachOther, false)->Apply(byTheClock);
BENCHMARK_TEMPLATE(hideOneOfFiveThousandZonesThatLieOnEachOther, true)->Apply(byTheClock);

template <bool isDrawn>
void undoTheDuplicationOfFiveThousandZones(benchmark::State& state)
{
    Page& page = zones();
    kernel::NumberSet const all = page.dataSet().enabledZones();
    for (auto _ : state) {
        state.PauseTiming();
        page.session().perform(kernel::DuplicateZones(page.dataSet(), all));
        page.draw();
        if (page.shownZones() != 2 * zoneCount)
            throw std::runtime_error("the copies are not shown");
        state.ResumeTiming();
        page.session().undo();
        page.prepare();
        if (isDrawn)
            page.draw();
    }
}
BENCHMARK_TEMPLATE(undoTheDuplicationOfFiveThousandZones, false)->Apply(byTheClock);
BENCHMARK_TEMPLATE(undoTheDuplicationOfFiveThousandZones, true)->Apply(byTheClock);

template <bool isDrawn>
void pickAllOfFiveThousandZones(benchmark::State& state)
{
    Page& page = zones();
    std::vector<kernel::Pick> all;
    for (auto const& zone : page.dataSet().zones())
        all.push_back({kernel::Pick::zoneType, zone->id});
    for (auto _ : state) {
        page.session().setPicks(all);
        page.prepare();
        if (isDrawn)
            page.draw();
        state.PauseTiming();
        if (page.markedZones() != zoneCount)
            throw std::runtime_error("the picks are not marked");
        page.session().setPicks({});
        page.draw();
        state.ResumeTiming();
    }
}
BENCHMARK_TEMPLATE(pickAllOfFiveThousandZones, false)->Apply(byTheClock);
BENCHMARK_TEMPLATE(pickAllOfFiveThousandZones, true)->Apply(byTheClock);

void openAndDraw(benchmark::State& state, Page& page)
{
    for (auto _ : state) {
        state.PauseTiming();
        page.close();
        state.ResumeTiming();
        page.open();
        page.draw();
    }
}

void openFiveThousandZones(benchmark::State& state)
{
    openAndDraw(state, zones());
}
BENCHMARK(openFiveThousandZones)->Apply(byTheClock);

void firstPictureOfManyTetrahedra(benchmark::State& state)
{
    openAndDraw(state, tetrahedra());
}
BENCHMARK(firstPictureOfManyTetrahedra)->Apply(byTheClock);

void drawManyTetrahedraAgain(benchmark::State& state)
{
    Page& page = tetrahedra();
    for (auto _ : state)
        page.draw();
}
BENCHMARK(drawManyTetrahedraAgain)->Apply(byTheClock);

template <bool isDrawn>
void changeTheContourOfManyTetrahedra(benchmark::State& state)
{
    Page& page = tetrahedra();
    int variable = 4;
    for (auto _ : state) {
        variable = 9 - variable;
        page.session().perform(kernel::AssignVariable(page.frame(), 'C', variable));
        page.prepare();
        if (isDrawn)
            page.draw();
    }
}
BENCHMARK_TEMPLATE(changeTheContourOfManyTetrahedra, false)->Apply(byTheClock);
BENCHMARK_TEMPLATE(changeTheContourOfManyTetrahedra, true)->Apply(byTheClock);

void switchTheMeshOfManyTetrahedra(benchmark::State& state)
{
    Page& page = tetrahedra();
    bool isOn = false;
    for (auto _ : state) {
        isOn = !isOn;
        page.session().perform(kernel::SetPlotOption(page.frame(), &kernel::Frame::showMesh, isOn));
        page.draw();
    }
    page.session().perform(kernel::SetPlotOption(page.frame(), &kernel::Frame::showMesh, false));
}
BENCHMARK(switchTheMeshOfManyTetrahedra)->Apply(byTheClock);

} // namespace
