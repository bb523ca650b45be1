#include "app/import/formats/vtkxml/ArrayChoice.h"

#include "app/files/ImportError.h"
#include "app/import/formats/vtkxml/XmlArrayLoader.h"
#include "app/import/raw/RawArrayLoader.h"

#include <set>

namespace veldraw::app {

namespace {

// A zone without coordinates or cells is in no plot, and reading as few takes some milliseconds.
constexpr double smallestDeferral = 1 << 24;

// What is hidden has to be known as soon as something is shown, or a range is asked for. VTK renames the older array.
bool hasMarks(XmlArrayList::Array const& array)
{
    return (array.name == "vtkGhostType" || array.name == "vtkGhostLevels") && array.type == RawType::UInt8 &&
           array.components == 1;
}

// The reader's names stand in the order of the file; they can be chosen by when each is there once.
bool areKnown(vtkDataArraySelection& selection, std::size_t count)
{
    std::set<std::string> names;
    for (int n = 0; n < selection.GetNumberOfArrays(); ++n) {
        char const* const name = selection.GetArrayName(n);
        names.insert(name ? name : "");
    }
    return names.size() == count && names.count("") == 0;
}

} // namespace

ArrayChoice::ArrayChoice(vtkDataArraySelection& ofPoints, vtkDataArraySelection& ofCells, GridArrays arrays,
                         LoadingPlan& plan)
    : m_ofPoints(ofPoints)
    , m_ofCells(ofCells)
    , m_arrays(std::move(arrays))
    , m_list(m_arrays.list())
    , m_plan(plan)
{
}

void ArrayChoice::run(DeferredArrays& deferred)
{
    if (!m_plan.hasTotal())
        m_plan.setTotal(m_arrays.bytesToLoad(m_plan));
    deferred.coordinates = m_arrays.storesNoPoints() &&
                           !(m_plan.mayCompute(m_list.pointCount()) &&
                             m_plan.loadsNow(m_arrays.bytesOfComputedCoordinates(), LoadingPlan::Need::FirstPlot));
    bool const canWait = areKnown(m_ofPoints, m_list.ofPoints().size()) && areKnown(m_ofCells, m_list.ofCells().size());
    if (!canWait && m_list.isReordered())
        throw ImportError("its pieces have their arrays in different orders, and two arrays have one name");
    if (m_list.isConsistent()) {
        if (canWait)
            chooseCells(deferred);
        choosePoints(deferred);
    }
    if (!canWait)
        return;
    deferred.ofPoints = choose(m_ofPoints, m_list.ofPoints(), XmlSection::PointData);
    deferred.ofCells = choose(m_ofCells, m_list.ofCells(), XmlSection::CellData);
}

void ArrayChoice::chooseCells(DeferredArrays& deferred)
{
    double const bytes = m_arrays.bytesOfCells();
    bool const canPointsWait = m_list.coordinates().size() == 1 && m_list.coordinates().front().type &&
                               m_list.coordinates().front().components == 3;
    if (bytes < smallestDeferral || !canPointsWait || m_plan.loadsNow(bytes, LoadingPlan::Need::FirstPlot))
        return;
    deferred.cells = m_arrays.plainCells();
    m_leavesAll = deferred.cells.has_value();
}

bool ArrayChoice::loadsNow(XmlArrayList::Array const& array, bool isMapped, LoadingPlan::Need need)
{
    return !m_leavesAll && m_plan.loadsNow(isMapped ? 0.0 : array.bytes(), need);
}

void ArrayChoice::choosePoints(DeferredArrays& deferred)
{
    if (m_list.coordinates().size() != 1)
        return;
    XmlArrayList::Array const& array = m_list.coordinates().front();
    bool const areFew = array.bytes() < smallestDeferral && !m_leavesAll;
    if (!array.type || array.components != 3 || areFew)
        return;
    bool const isMapped = m_arrays.canBeMapped(array);
    bool const now = loadsNow(array, isMapped, LoadingPlan::Need::FirstPlot);
    if (now && !isMapped)
        return;
    deferred.points = described(array, "Points", XmlSection::Points);
    deferred.points->isLoadedAtOnce = now;
    deferred.pointCount = m_list.pointCount();
}

std::vector<DeferredArray> ArrayChoice::choose(vtkDataArraySelection& selection, Arrays const& arrays,
                                               XmlSection section)
{
    bool const inCells = section == XmlSection::CellData;
    std::vector<DeferredArray> result;
    int position = -1;
    for (int n = 0; n < static_cast<int>(arrays.size()); ++n) {
        XmlArrayList::Array const& array = arrays[static_cast<std::size_t>(n)];
        if (!selection.ArrayIsEnabled(selection.GetArrayName(n)))
            continue;
        ++position;
        if (!array.type && m_list.isReordered()) {
            selection.DisableArray(selection.GetArrayName(n));
            --position;
        }
        if (!array.type || hasMarks(array))
            continue;
        bool const isMapped = !inCells && m_arrays.canBeMapped(array);
        bool const isFirst = position == 0 && !inCells;
        bool const now = loadsNow(array, isMapped, isFirst ? LoadingPlan::Need::FirstPlot : LoadingPlan::Need::Later);
        if (now && !isMapped && !m_list.isReordered())
            continue;
        result.push_back(described(array, selection.GetArrayName(n), section));
        result.back().position = position;
        result.back().isLoadedAtOnce = now;
    }
    for (DeferredArray const& array : result)
        selection.DisableArray(array.name.c_str());
    return result;
}

DeferredArray ArrayChoice::described(XmlArrayList::Array const& array, std::string const& name,
                                     XmlSection section) const
{
    DeferredArray result;
    result.name = name;
    result.type = *array.type;
    result.components = array.components;
    result.componentNames = array.componentNames;
    result.purposes = array.purposes;
    auto const whole = std::make_shared<SharedArray>();
    if (array.offset) {
        result.makeLoader = [raw = m_arrays.rawArray(array), whole, range = array.range](int component,
                                                                                         std::int64_t tuples) {
            RawArray one = raw;
            one.component = component;
            one.tuples = tuples;
            return std::make_shared<RawArrayLoader>(one, whole, range);
        };
        return result;
    }
    XmlArrayLoader::Place const place{m_arrays.file(), m_arrays.extension(), section, name, array.components, 0};
    result.makeLoader = [place, type = *array.type, whole, range = array.range](int component, std::int64_t tuples) {
        XmlArrayLoader::Place one = place;
        one.component = component;
        return std::make_shared<XmlArrayLoader>(one, type, tuples, whole, range);
    };
    return result;
}

} // namespace veldraw::app
