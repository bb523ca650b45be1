#include "dialogs/models/LineMapListModel.h"

#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkcommon/FrameQueries.h"
#include "platform/vdsdkcommon/Names.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

bool concernsLineMaps(toolbox::StateChangeEventInterface const& event)
{
    switch (event.kind()) {
    case StateChange_LineMaps:
    case StateChange_FrameDataSet:
        return true;
    default:
        return common::isNewActiveFrameStateChange(event);
    }
}

} // namespace

LineMapListModel::LineMapListModel()
    : m_watcher([this] { sourceChanged(); }, &concernsLineMaps)
{
    readNow();
}

void LineMapListModel::readAnew() const
{
    long long const frame = propertymanager::currentFrameID();
    int const count = frame == 0 ? 0 : lineMapCountOfActiveFrame();
    NamedNumbers snapshot;
    for (int number = 1; number <= count; ++number) {
        snapshot.numbers.push_back(number);
        snapshot.names.push_back(lineMapNameForFrame(frame, number));
    }
    show(std::move(snapshot));
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
