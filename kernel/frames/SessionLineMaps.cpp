// Line maps of a frame.
#include "kernel/frames/FrameDefaults.h"
#include "kernel/frames/RefusalReasons.h"
#include "kernel/frames/SessionGuard.h"
#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

namespace {

bool allExist(NumberSet const& numbers, std::size_t count)
{
    return numbers.empty() || (*numbers.begin() >= 1 && *numbers.rbegin() <= static_cast<int>(count));
}

} // namespace

void Session::replaceLineMaps(char const* step, std::shared_ptr<Frame> const& frame, std::vector<LineMap> maps)
{
    std::vector<StateChangeEvent> events{{StateChange_LineMaps, {}, {}, {}, frame->id}};
    m_history.perform(step, std::make_shared<SwapChange<std::vector<LineMap>>>(m_events, frame, frame->lineMaps,
                                                                               std::move(maps), std::move(events)));
}

bool Session::createLineMap(UniqueId frame)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found || !found->dataSet) {
            return refuse(found ? frameWithoutData : noFrame);
        }
        std::vector<LineMap> maps = found->lineMaps;
        maps.push_back(defaultLineMap(*found->dataSet, maps.size() + 1));
        replaceLineMaps("New Line Map", found, std::move(maps));
        return true;
    });
}

bool Session::deleteLineMaps(UniqueId frame, NumberSet const& maps)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found || !allExist(maps, found->lineMaps.size())) {
            return refuse(found ? "There is no such line map." : noFrame);
        }
        if (maps.empty()) {
            return true;
        }
        std::vector<LineMap> kept;
        for (std::size_t at = 0; at < found->lineMaps.size(); ++at) {
            if (maps.count(static_cast<int>(at) + 1) == 0) {
                kept.push_back(found->lineMaps[at]);
            }
        }
        replaceLineMaps("Delete Line Map", found, std::move(kept));
        return true;
    });
}

bool Session::changeLineMaps(UniqueId frame, NumberSet const& maps, std::function<void(LineMap&)> const& alter)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found || maps.empty() || !allExist(maps, found->lineMaps.size())) {
            return refuse(found ? "There is no such line map." : noFrame);
        }
        std::vector<LineMap> changed = found->lineMaps;
        for (int const number : maps) {
            alter(changed[static_cast<std::size_t>(number - 1)]);
        }
        replaceLineMaps("Line Map", found, std::move(changed));
        return true;
    });
}

bool Session::setLinePlot(UniqueId frame, int zone, int x, int y)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found || !found->dataSet) {
            return refuse(found ? frameWithoutData : noFrame);
        }
        DataSet const& dataSet = *found->dataSet;
        if (dataSet.field(zone, x) == nullptr || dataSet.field(zone, y) == nullptr) {
            return refuse("There is no such zone or variable.");
        }
        std::vector<LineMap> maps = found->lineMaps;
        if (maps.empty()) {
            maps.push_back(defaultLineMap(dataSet, 1));
        }
        maps.front().zone = dataSet.zone(zone)->id;
        maps.front().xVariable = dataSet.variable(x)->id;
        maps.front().yVariable = dataSet.variable(y)->id;
        replaceLineMaps("Line Map", found, std::move(maps));
        return true;
    });
}

} // namespace veldraw::kernel
