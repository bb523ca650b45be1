// How long a plot of many points takes to follow an edit, the drawing itself left out.
#include "app/plot/PlaneView.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"
#include "kernel/session/Session.h"

#include <benchmark/benchmark.h>
#include <stdexcept>

using namespace veldraw;

namespace {

constexpr std::int64_t pointsAlongEdge = 3163; // squared: 10 million
constexpr int variableX = 1;
constexpr int variableP = 3;

kernel::Field fieldOf(FieldDataType_e type, double (*formula)(std::int64_t i, std::int64_t j))
{
    auto const buffer = kernel::Buffer::allocate(type, pointsAlongEdge * pointsAlongEdge);
    for (std::int64_t j = 0; j < pointsAlongEdge; ++j)
        for (std::int64_t i = 0; i < pointsAlongEdge; ++i)
            buffer->setValue(i + j * pointsAlongEdge, formula(i, j));
    return kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), ValueLocation_Nodal);
}

/// A sheet of 10 million points in the plane, shown with the contour flood of P.
class LargeSheet
{
public:
    LargeSheet()
        : m_frame(std::make_shared<kernel::Frame>("sheet", kernel::Rectangle{}))
    {
        auto const dataSet = std::make_shared<kernel::DataSet>("sheet");
        for (char const* name : {"X", "Y", "P"})
            dataSet->addVariable(std::make_shared<kernel::Variable>(name));
        auto const zone =
            std::make_shared<kernel::Zone>("sheet", ZoneType_Ordered, pointsAlongEdge, pointsAlongEdge, 1);
        zone->fields = {
            fieldOf(FieldDataType_Float, [](std::int64_t i, std::int64_t) { return static_cast<double>(i); }),
            fieldOf(FieldDataType_Float, [](std::int64_t, std::int64_t j) { return static_cast<double>(j); }),
            fieldOf(FieldDataType_Float, [](std::int64_t i, std::int64_t j) { return static_cast<double>(i + j); })};
        dataSet->addZone(zone);
        m_frame->dataSet = dataSet;
        m_session.openPage({m_frame});
        m_session.perform(kernel::SetPlotType(m_frame->id, PlotType_Cartesian2D));
        m_session.perform(kernel::AssignVariable(m_frame->id, 'C', variableP));
        m_view.show(*m_frame);
        if (m_view.zones().size() != 1)
            throw std::runtime_error("the sheet is not shown");
    }

    void edit(int variable, double value)
    {
        if (!m_session.perform(kernel::SetValue(*m_frame->dataSet, 1, variable, 5000000, value, false)))
            throw std::runtime_error(m_session.lastError());
    }
    void show() { m_view.show(*m_frame); }

private:
    kernel::Session m_session;
    std::shared_ptr<kernel::Frame> m_frame;
    app::PlaneView m_view;
};

LargeSheet& sheet()
{
    static LargeSheet instance;
    return instance;
}

// As after an edit of a coordinate.
void showTenMillionPointsAnew(benchmark::State& state)
{
    LargeSheet& shown = sheet();
    double place = 0.0;
    for (auto _ : state) {
        shown.edit(variableX, place += 0.5);
        shown.show();
    }
}
BENCHMARK(showTenMillionPointsAnew)->Unit(benchmark::kMillisecond);

void followAnEditInTenMillionPoints(benchmark::State& state)
{
    LargeSheet& shown = sheet();
    double value = 0.0;
    for (auto _ : state) {
        shown.edit(variableP, value += 1.0);
        shown.show();
    }
}
BENCHMARK(followAnEditInTenMillionPoints)->Unit(benchmark::kMillisecond);

// The largest value becomes another one each time, so that it has to be looked for, and all colours change.
void followAnEditOfTheLargestOfTenMillionValues(benchmark::State& state)
{
    LargeSheet& shown = sheet();
    double value = 1e6;
    for (auto _ : state) {
        shown.edit(variableP, value -= 1.0);
        shown.show();
    }
}
BENCHMARK(followAnEditOfTheLargestOfTenMillionValues)->Unit(benchmark::kMillisecond);

} // namespace
