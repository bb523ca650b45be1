#include "kernel/frames/AuxiliaryOwner.h"

#include "kernel/frames/Pages.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

std::function<AuxiliaryData*()> findNothing()
{
    return [] { return nullptr; };
}

/// Owners that the finder keeps alive: history may bring them back.
template <typename Owner>
std::function<AuxiliaryData*()> findIn(std::shared_ptr<Owner> owner)
{
    if (!owner) {
        return findNothing();
    }
    return [owner] { return &owner->auxiliaryData; };
}

std::function<AuxiliaryData*()> findInDataSet(std::shared_ptr<DataSet> dataSet)
{
    if (!dataSet) {
        return findNothing();
    }
    return [dataSet] { return &dataSet->auxiliaryData(); };
}

std::function<AuxiliaryData*()> findInLineMap(std::shared_ptr<Frame> frame, int number)
{
    if (!frame || number < 1 || number > static_cast<int>(frame->lineMaps.size())) {
        return findNothing();
    }
    UniqueId const id = frame->lineMaps[static_cast<std::size_t>(number - 1)].id;
    return [frame, id]() -> AuxiliaryData* {
        auto const found = std::find_if(frame->lineMaps.begin(), frame->lineMaps.end(),
                                        [id](LineMap const& lineMap) { return lineMap.id == id; });
        return found == frame->lineMaps.end() ? nullptr : &found->auxiliaryData;
    };
}

std::function<AuxiliaryData*()> finder(Pages const& pages, AuxDataLocation_e location, int object)
{
    auto const dataSet = pages.activeDataSet();
    switch (location) {
    case AuxDataLocation_Zone:
        return findIn(dataSet ? dataSet->zone(object) : nullptr);
    case AuxDataLocation_DataSet:
        return findInDataSet(dataSet);
    case AuxDataLocation_Frame:
        return findIn(pages.activeFrame());
    case AuxDataLocation_Var:
        return findIn(dataSet ? dataSet->variable(object) : nullptr);
    case AuxDataLocation_LineMap:
        return findInLineMap(pages.activeFrame(), object);
    case AuxDataLocation_Page:
        return findIn(pages.activePage());
    case AuxDataLocation_Layout:
        return findIn(pages.layout());
    }
    return findNothing();
}

} // namespace

AuxiliaryOwner::AuxiliaryOwner(Pages const& pages, AuxDataLocation_e location, int object)
    : m_find(finder(pages, location, object))
{
}

AuxiliaryData* AuxiliaryOwner::data() const
{
    return m_find();
}

} // namespace veldraw::kernel
