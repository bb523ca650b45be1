#include "kernel/data/SpareValues.h"

#include "kernel/data/ZonesAndVariables.h"

#include <algorithm>

namespace veldraw::kernel {

DeferredUnload::DeferredUnload(std::set<ShareGroup*> groups, std::vector<std::shared_ptr<DataSet>> const& dataSets)
    : m_groups(std::move(groups))
{
    auto const goes = [this](ShareGroup* group) { return m_groups.count(group) > 0; };
    for (auto const& dataSet : dataSets) {
        ZonesAndVariables fields = fieldsWhere(*dataSet, goes);
        if (!fields.zones.empty()) {
            m_events.push_back(
                {StateChange_VariablesLoaded, std::move(fields.zones), std::move(fields.variables), {}, 0});
        }
    }
}

void DeferredUnload::commit() const noexcept
{
    for (ShareGroup* const group : m_groups) {
        group->unload();
    }
}

double SpareValues::Piece::bytes() const
{
    double sum = 0;
    double array = 0;
    for (ShareGroup const* const group : groups) {
        if (group->canUnload()) {
            sum += static_cast<double>(group->bytesInMemory());
            array = std::max(array, static_cast<double>(group->bytesOfArrayInMemory()));
        }
    }
    return std::max(sum, array);
}

void SpareValues::add(std::shared_ptr<DataSet> dataSet, Shown const& isShown, Predicate const& isNeeded)
{
    for (int number = 1; number <= dataSet->zoneCount(); ++number) {
        Zone const& zone = *dataSet->zone(number);
        for (int variable = 1; variable <= dataSet->variableCount(); ++variable) {
            ShareGroup* const group = zone.fields[static_cast<std::size_t>(variable - 1)].group().get();
            if (group == nullptr || group->bytesInMemory() == 0) {
                continue; // unloading it would free nothing
            }
            auto const& wanted = zone.wantedVariables;
            bool const isWanted = wanted && wanted->count(dataSet->variable(variable)->id) > 0;
            Piece& piece = m_pieces[group->buffer()->owner().get()];
            piece.groups.insert(group);
            piece.lastUse = std::max(piece.lastUse, group->lastUse());
            piece.isNeeded = piece.isNeeded || isWanted || !group->canUnload() || isShown(number, variable) ||
                             isNeeded(*group) || !group->loader()->canLoad();
        }
    }
    m_dataSets.push_back(std::move(dataSet));
}

double SpareValues::loadedBytes() const
{
    double sum = 0;
    for (auto const& [memory, piece] : m_pieces) {
        sum += piece.bytes();
    }
    return sum;
}

double SpareValues::bytes() const
{
    double sum = 0;
    for (auto const& [memory, piece] : m_pieces) {
        sum += piece.isNeeded ? 0 : piece.bytes();
    }
    return sum;
}

DeferredUnload SpareValues::leastRecentlyUsed(double bytes) const
{
    std::vector<Piece const*> spare;
    for (auto const& [memory, piece] : m_pieces) {
        if (!piece.isNeeded) {
            spare.push_back(&piece);
        }
    }
    std::sort(spare.begin(), spare.end(),
              [](Piece const* left, Piece const* right) { return left->lastUse < right->lastUse; });
    std::set<ShareGroup*> groups;
    double sum = 0;
    for (auto at = spare.begin(); at != spare.end() && sum < bytes; ++at) {
        groups.insert((*at)->groups.begin(), (*at)->groups.end());
        sum += (*at)->bytes();
    }
    return {std::move(groups), m_dataSets};
}

} // namespace veldraw::kernel
