#include "tests/app/window/StormKernel.h"

#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"

#include <cmath>
#include <memory>
#include <string>

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr int mostZones = 9;
constexpr int mostVariables = 12;
constexpr std::size_t mostFrames = 4;

/// Brings values when they are wanted.
class WavesLoader : public ValueLoader
{
public:
    explicit WavesLoader(std::int64_t size)
        : m_size(size)
    {
    }

    std::shared_ptr<Buffer> load(Progress&) override
    {
        auto const values = Buffer::allocate(FieldDataType_Double, m_size);
        for (std::int64_t at = 0; at < m_size; ++at)
            values->setValue(at, std::sin(static_cast<double>(at)));
        return values;
    }

private:
    std::int64_t m_size;
};

Field loaded(std::int64_t size, ValueLocation_e location)
{
    Progress progress;
    return Field(std::make_shared<ShareGroup>(WavesLoader(size).load(progress)), location);
}

Field deferred(std::int64_t size)
{
    return Field(std::make_shared<ShareGroup>(FieldDataType_Double, size, std::make_shared<WavesLoader>(size)),
                 ValueLocation_Nodal);
}

std::shared_ptr<Zone> block(std::string const& name, int i, int j, int k)
{
    auto const zone = std::make_shared<Zone>(name, ZoneType_Ordered, i, j, k);
    std::int64_t const points = zone->pointCount();
    for (int const period : {i, i * j, i * j * k}) {
        auto const places = Buffer::allocate(FieldDataType_Double, points);
        int const step = period == i ? 1 : period == i * j ? i : i * j;
        for (int point = 0; point < points; ++point)
            places->setValue(point, point % period / step);
        zone->fields.emplace_back(std::make_shared<ShareGroup>(places), ValueLocation_Nodal);
    }
    zone->fields.push_back(loaded(points, ValueLocation_Nodal));
    zone->fields.push_back(loaded(points, ValueLocation_CellCentered));
    zone->fields.push_back(deferred(points));
    return zone;
}

std::shared_ptr<DataSet> named(std::string const& title, std::vector<std::string> const& variables)
{
    auto const dataSet = std::make_shared<DataSet>(title);
    for (std::string const& name : variables)
        dataSet->addVariable(std::make_shared<Variable>(name));
    return dataSet;
}

std::shared_ptr<DataSet> flow()
{
    auto const dataSet = named("flow", {"X", "Y", "Z", "P", "T", "U"});
    dataSet->addZone(block("plane", 5, 4, 1));
    dataSet->addZone(block("volume", 3, 3, 3));
    dataSet->addZone(block("line", 7, 1, 1));
    auto const second = block("later plane", 5, 4, 1);
    second->strand = 1;
    second->fields[3] = dataSet->zone(1)->fields[3];
    dataSet->addZone(second);
    return dataSet;
}

std::shared_ptr<DataSet> series()
{
    auto const dataSet = named("series", {"t", "v"});
    auto const zone = block("probe", 16, 1, 1);
    zone->fields.resize(4);
    zone->fields.erase(zone->fields.begin() + 1, zone->fields.begin() + 3);
    dataSet->addZone(zone);
    return dataSet;
}

} // namespace

void StormKernel::openPage()
{
    auto const first = std::make_shared<Frame>("flow", Rectangle{0, 0, 4, 3});
    first->dataSet = flow();
    auto const second = std::make_shared<Frame>("series", Rectangle{4, 0, 4, 3});
    second->dataSet = series();
    auto const third = std::make_shared<Frame>("empty", Rectangle{0, 3, 4, 3});
    m_session.openPage({third, second, first});
    m_session.activateFrame(first->id);
    m_session.history().clear();
}

void StormKernel::act()
{
    int const kind = m_dice.below(10);
    if (kind == 0 || !m_session.activeDataSet())
        return changeFrames();
    if (kind <= 2)
        return takeBack();
    kind <= 5 ? changeThings() : kind <= 7 ? changeValues() : changeDataSet();
}

void StormKernel::keepSmall()
{
    while (m_session.activeDataSet() &&
           (dataSet().zoneCount() > mostZones || dataSet().variableCount() > mostVariables)) {
        m_session.setLock(dataSet(), "");
        if (!m_session.undo())
            return openPage();
    }
}

void StormKernel::changeThings()
{
    std::string const name = "name" + std::to_string(m_dice.below(20));
    int const zone = m_dice.oneOf(dataSet().zoneCount());
    int const variable = m_dice.oneOf(dataSet().variableCount());
    switch (m_dice.below(6)) {
    case 0:
        m_session.perform(RenameZone(dataSet(), zone, name));
        return;
    case 1:
        m_session.perform(RenameVariable(dataSet(), variable, name));
        return;
    case 2:
        m_session.perform(EnableZone(dataSet(), zone, m_dice.below(3) != 0));
        return;
    case 3:
        m_session.perform(EnableVariable(dataSet(), variable, m_dice.below(3) != 0));
        return;
    case 4:
        m_session.perform(DuplicateZones(dataSet(), {zone}));
        return;
    default:
        if (dataSet().variableCount() > 2) {
            m_session.perform(DeleteVariables(dataSet(), {variable}));
        }
    }
}

void StormKernel::changeValues()
{
    int const zone = m_dice.oneOf(dataSet().zoneCount());
    int const variable = m_dice.oneOf(dataSet().variableCount());
    switch (m_dice.below(3)) {
    case 0:
        m_session.perform(
            SetValue(dataSet(), zone, variable, m_dice.below(8), m_dice.below(100), m_dice.below(2) == 0));
        return;
    case 1:
        m_session.perform(LoadVariables(dataSet(), {zone}, {variable}));
        return;
    default:
        m_session.perform(MakeVariablesAvailable(dataSet(), {zone}, {variable}));
    }
}

void StormKernel::changeDataSet()
{
    UniqueId const frame = m_session.activeFrame()->id;
    int const variable = m_dice.below(dataSet().variableCount() + 1);
    switch (m_dice.below(6)) {
    case 0:
        m_session.perform(SetPlotType(
            frame, m_dice.pick(std::vector<PlotType_e>{PlotType_Cartesian2D, PlotType_Cartesian3D, PlotType_XYLine})));
        return;
    case 1:
        m_session.perform(
            AssignVariable(frame, m_dice.pick(std::vector<char>{'X', 'Y', 'Z', 'U', 'V', 'W'}), variable));
        return;
    case 2:
        m_session.perform(CreateLineMap(frame));
        return;
    case 3:
        m_session.perform(DeleteLineMaps(frame, {1}));
        return;
    case 4:
        m_session.perform(SetTitle(dataSet(), "title" + std::to_string(m_dice.below(5))));
        return;
    default:
        m_session.setLock(dataSet(), m_dice.below(4) == 0 ? "somebody" : "");
    }
}

void StormKernel::changeFrames()
{
    if (!m_session.activePage())
        return openPage();
    auto const frames = m_session.activePage()->frames;
    switch (m_dice.below(6)) {
    case 0:
        if (frames.size() < mostFrames) {
            m_session.createFrame("another", {1, 1, 2, 2});
        }
        return;
    case 1:
        if (frames.size() > 1)
            m_session.perform(DeleteFrame(m_dice.pick(frames)->id));
        return;
    case 2:
        m_session.setFrameDataSet(m_dice.pick(frames)->id, m_dice.below(2) == 0 ? flow() : series());
        return;
    case 3:
        if (m_dice.below(10) == 0)
            return openPage();
        m_session.perform(RenameFrame(m_dice.pick(frames)->id, "frame" + std::to_string(m_dice.below(5))));
        return;
    default:
        if (!frames.empty())
            m_session.activateFrame(m_dice.pick(frames)->id);
    }
}

void StormKernel::takeBack()
{
    int steps = m_dice.below(20) == 0 ? 100 : m_dice.oneOf(3);
    while (steps-- > 0 && (m_dice.below(3) == 0 ? m_session.redo() : m_session.undo())) {
    }
}

} // namespace veldraw::tests
