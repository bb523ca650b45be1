#include "kernel/operations/CutOperation.h"

#include "kernel/operations/DataSetOperation.h"
#include "kernel/undo/SwapChange.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

/// Why a cut is nowhere in the data; empty when it may be somewhere.
std::string reasonAgainstCut(Cut const& cut, DataSet const* dataSet)
{
    auto const isFinite = [](double number) { return std::isfinite(number); };
    if (static_cast<int>(cut.kind) < 0 || static_cast<int>(cut.kind) >= cutKindCount) {
        return "There is no such kind of slice.";
    }
    bool const areFinite = isFinite(cut.position) && std::all_of(cut.normal.begin(), cut.normal.end(), isFinite) &&
                           std::all_of(cut.origin.begin(), cut.origin.end(), isFinite);
    if (!areFinite) {
        return "The place of a slice takes finite numbers.";
    }
    double const length = std::hypot(cut.normal[0], cut.normal[1], cut.normal[2]);
    if (cut.kind == CutKind::Plane && !(length > 0.0 && std::isfinite(length))) {
        return "The normal of a plane needs a direction: it must not be 0.";
    }
    bool const needsVariable = cut.kind == CutKind::IsoSurface && dataSet != nullptr;
    return needsVariable && dataSet->variableNumber(cut.variable) == 0 ? noVariable : "";
}

} // namespace

std::string CutOperation::reasonAgainst() const
{
    std::vector<Cut> const& before = frame()->cuts;
    for (Cut const& cut : alteredCuts()) {
        bool const isAltered = std::find(before.begin(), before.end(), cut) == before.end();
        std::string reason = isAltered ? reasonAgainstCut(cut, frame()->dataSet.get()) : std::string();
        if (!reason.empty()) {
            return reason;
        }
    }
    return {};
}

std::shared_ptr<Change> CutOperation::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->cuts, alteredCuts(), styleEvent(alteredStyle()));
}

bool CutOperation::hasCut(UniqueId cut) const
{
    std::vector<Cut> const& cuts = frame()->cuts;
    return std::any_of(cuts.begin(), cuts.end(), [cut](Cut const& present) { return present.id == cut; });
}

std::string AddCut::reasonAgainst() const
{
    return frame()->dataSet ? CutOperation::reasonAgainst() : "The frame has no data set.";
}

std::vector<Cut> AddCut::alteredCuts() const
{
    std::vector<Cut> cuts = frame()->cuts;
    cuts.push_back(m_cut);
    return cuts;
}

std::vector<Cut> DeleteCut::alteredCuts() const
{
    std::vector<Cut> kept;
    std::copy_if(frame()->cuts.begin(), frame()->cuts.end(), std::back_inserter(kept),
                 [this](Cut const& cut) { return cut.id != m_cut; });
    return kept;
}

std::string ChangeCut::reasonAgainst() const
{
    return hasCut(m_cut) ? CutOperation::reasonAgainst() : noCut;
}

std::vector<Cut> ChangeCut::alteredCuts() const
{
    std::vector<Cut> cuts = frame()->cuts;
    for (Cut& cut : cuts) {
        if (cut.id == m_cut) {
            m_alter(cut);
            cut.id = m_cut;
        }
    }
    return cuts;
}

} // namespace veldraw::kernel
