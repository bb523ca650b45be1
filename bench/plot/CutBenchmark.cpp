// How long it takes until a slice or an iso-surface through a large block is there, and until it is seen. Needs a display.
#include "app/plot/FieldView.h"
#include "app/plot/PageView.h"
#include "app/plot/ZoneGeometry.h"
#include "kernel/frames/CutDefaults.h"
#include "kernel/operations/CutOperation.h"
#include "kernel/operations/SetPlotType.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>

using namespace veldraw;

namespace {

using kernel::Cut;
using kernel::CutKind;

constexpr std::int64_t edge = 216; // points; cubed: 10 million

double atPoint(int variable, std::int64_t i, std::int64_t j, std::int64_t k)
{
    double const scale = 1.0 / static_cast<double>(edge - 1);
    double const x = static_cast<double>(i) * scale;
    double const y = static_cast<double>(j) * scale + 0.05 * std::sin(6.0 * x);
    double const z = static_cast<double>(k) * scale + 0.05 * std::sin(5.0 * y);
    switch (variable) {
    case 0:
        return x;
    case 1:
        return y;
    case 2:
        return z;
    default:
        return std::hypot(x - 0.5, y - 0.5, z - 0.5);
    }
}

/// A bent structured block of 10 million points; P grows from its middle on.
std::shared_ptr<kernel::DataSet> const& block()
{
    static std::shared_ptr<kernel::DataSet> const set = [] {
        auto made = std::make_shared<kernel::DataSet>("block");
        auto zone = std::make_shared<kernel::Zone>("block", ZoneType_Ordered, edge, edge, edge);
        for (char const* name : {"X", "Y", "Z", "P"})
            made->addVariable(std::make_shared<kernel::Variable>(name));
        for (int variable = 0; variable < 4; ++variable) {
            auto const buffer = kernel::Buffer::allocate(FieldDataType_Float, edge * edge * edge);
            std::int64_t point = 0;
            for (std::int64_t k = 0; k < edge; ++k)
                for (std::int64_t j = 0; j < edge; ++j)
                    for (std::int64_t i = 0; i < edge; ++i)
                        buffer->setValue(point++, atPoint(variable, i, j, k));
            zone->fields.emplace_back(std::make_shared<kernel::ShareGroup>(buffer), ValueLocation_Nodal);
        }
        made->addZone(zone);
        return made;
    }();
    return set;
}

std::shared_ptr<kernel::Frame> frameOfBlock()
{
    auto frame = std::make_shared<kernel::Frame>("block", kernel::Rectangle{0.0, 0.0, 11.0, 8.5});
    frame->dataSet = block();
    frame->plotType = PlotType_Cartesian3D;
    for (std::size_t axis = 0; axis < 3; ++axis)
        frame->axes3D[axis] = block()->variable(static_cast<int>(axis) + 1)->id;
    frame->contourVariable = block()->variable(4)->id;
    return frame;
}

/// A page on the screen; what is worked out aside is waited for.
class BlockPage
{
public:
    BlockPage()
    {
        m_session.openPage({m_frame});
        m_view.resize(1000, 800);
        m_view.show();
    }

    void draw() { benchmark::DoNotOptimize(m_view.grabImage()); }

    Cut add(CutKind kind)
    {
        Cut const cut = kernel::defaultCut(kind, *m_frame);
        m_session.perform(kernel::AddCut(m_frame->id, cut));
        return cut;
    }

    void move(Cut const& cut, double position)
    {
        m_session.perform(
            kernel::ChangeCut(m_frame->id, cut.id, [position](Cut& moved) { moved.position = position; }));
    }

private:
    std::shared_ptr<kernel::Frame> m_frame = frameOfBlock();
    kernel::Session m_session;
    app::PageView m_view{m_session};
};

app::FieldLook lookOfBlock()
{
    app::FieldLook look;
    look.inSpace = true;
    look.axes = {1, 2, 3};
    look.space = app::PlotSpace({0, 0, 0}, {1, 1, 1}, false);
    return look;
}

/// The shape alone, moved on a little each time.
void cutGeometry(benchmark::State& state)
{
    auto const frame = frameOfBlock();
    Cut cut = kernel::defaultCut(static_cast<CutKind>(state.range(0)), *frame);
    double const start = cut.position;
    double const step = cut.isOfIndex() ? 1.0 : 0.003;
    int n = 0;
    long long cells = 0;
    for (auto _ : state) {
        cut.position = start + step * (n++ % 20);
        auto const geometry =
            app::ZoneGeometry::create(app::ZoneSource(*block(), 1, lookOfBlock(), &cut), nullptr, {});
        cells = geometry->drawing().GetNumberOfCells();
    }
    state.counters["cells"] = static_cast<double>(cells);
}
BENCHMARK(cutGeometry)->DenseRange(0, 7)->Unit(benchmark::kMillisecond)->UseRealTime();

/// From the change to the picture.
void cutIsMoved(benchmark::State& state)
{
    BlockPage page;
    Cut const cut = page.add(static_cast<CutKind>(state.range(0)));
    page.draw();
    int n = 0;
    for (auto _ : state) {
        page.move(cut, cut.position + (cut.isOfIndex() ? 1.0 : 0.003) * (n++ % 20 + 1));
        page.draw();
    }
}
BENCHMARK(cutIsMoved)->DenseRange(0, 7)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The first picture of the block as a whole, and cut.
void firstPicture(benchmark::State& state)
{
    block();
    for (auto _ : state) {
        BlockPage page;
        if (state.range(0) != 0)
            page.add(CutKind::X);
        page.draw();
    }
}
BENCHMARK(firstPicture)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
