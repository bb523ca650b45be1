#include "host/AuxDataOwner.h"

#include "kernel/frames/Session.h"

#include <algorithm>

namespace veldraw::host {

using kernel::AuxiliaryData;
using kernel::Session;

namespace {

std::function<AuxiliaryData*()> findNothing()
{
    return [] { return nullptr; };
}

/// Owners that the finder keeps alive: history may bring them back.
template <typename Owner>
std::function<AuxiliaryData*()> findIn(std::shared_ptr<Owner> owner)
{
    if (!owner)
        return findNothing();
    return [owner] { return &owner->auxiliaryData; };
}

std::function<AuxiliaryData*()> findInDataSet(std::shared_ptr<kernel::DataSet> dataSet)
{
    if (!dataSet)
        return findNothing();
    return [dataSet] { return &dataSet->auxiliaryData(); };
}

std::function<AuxiliaryData*()> findInLineMap(std::shared_ptr<kernel::Frame> frame, int number)
{
    if (!frame || number < 1 || number > static_cast<int>(frame->lineMaps.size()))
        return findNothing();
    kernel::UniqueId const id = frame->lineMaps[static_cast<std::size_t>(number - 1)].id;
    return [frame, id]() -> AuxiliaryData* {
        auto const found = std::find_if(frame->lineMaps.begin(), frame->lineMaps.end(),
                                        [id](kernel::LineMap const& lineMap) { return lineMap.id == id; });
        return found == frame->lineMaps.end() ? nullptr : &found->auxiliaryData;
    };
}

std::function<AuxiliaryData*()> finder(AuxDataLocation_e location, int object)
{
    Session const& session = Session::instance();
    auto const dataSet = session.activeDataSet();
    switch (location) {
    case AuxDataLocation_Zone:
        return findIn(dataSet ? dataSet->zone(object) : nullptr);
    case AuxDataLocation_DataSet:
        return findInDataSet(dataSet);
    case AuxDataLocation_Frame:
        return findIn(session.activeFrame());
    case AuxDataLocation_Var:
        return findIn(dataSet ? dataSet->variable(object) : nullptr);
    case AuxDataLocation_LineMap:
        return findInLineMap(session.activeFrame(), object);
    case AuxDataLocation_Page:
        return findIn(session.activePage());
    case AuxDataLocation_Layout:
        break; // the kernel has no layout of its own beside its pages
    }
    return findNothing();
}

} // namespace

AuxDataOwner::AuxDataOwner(AuxDataLocation_e location, int object)
    : m_find(finder(location, object))
{
}

AuxiliaryData* AuxDataOwner::data() const
{
    return m_find();
}

} // namespace veldraw::host
