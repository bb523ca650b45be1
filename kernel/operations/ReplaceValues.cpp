#include "kernel/operations/ReplaceValues.h"

#include "kernel/compute/CopyValues.h"
#include "kernel/data/ValueEdit.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

bool haveSameValues(Buffer const& one, Buffer const& other, Progress const& progress)
{
    constexpr std::int64_t valuesBetweenLooks = 1 << 16;
    for (std::int64_t first = 0; first < one.size(); first += valuesBetweenLooks) {
        progress.check();
        std::int64_t const end = std::min(first + valuesBetweenLooks, one.size());
        for (std::int64_t at = first; at < end; ++at) {
            if (one.bits(at) != other.bits(at)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

std::string ReplaceValues::reasonAgainst() const
{
    Field const* const found = dataSet()->field(m_zone, m_variable);
    if (found == nullptr) {
        return dataSet()->zone(m_zone) ? noVariable : noZone;
    }
    if (found->isPassive()) {
        return "The variable is passive in this zone: it has no values there, reads as 0 and cannot be edited.";
    }
    bool const fits = m_values->type() == found->type() && m_values->size() == found->group()->size();
    return fits ? "" : "The new values are of another type or number than the old ones.";
}

std::shared_ptr<DeferredLoad> ReplaceValues::needs()
{
    m_load = std::make_shared<DeferredLoad>(*dataSet());
    m_load->addField(m_zone, m_variable);
    return m_load;
}

void ReplaceValues::compute(Progress& progress)
{
    m_copy.reset();
    if (!haveSameValues(*m_load->valuesOf(*field().group()), *m_values, progress)) {
        m_copy = copyValues(*m_values, progress);
    }
}

/// Fields of a group in the place of those that are there.
std::vector<FieldReplacement::ZonePart> ReplaceValues::newFields(ZonesAndVariables const& places,
                                                                 std::shared_ptr<ShareGroup> const& group) const
{
    ShareGroup const* const old = field().group().get();
    std::vector<FieldReplacement::ZonePart> parts;
    for (int const zone : places.zones) {
        FieldReplacement::ZonePart part{dataSet()->zone(zone), {}};
        for (int const variable : places.variables) {
            Field const& shared = *dataSet()->field(zone, variable);
            if (shared.group().get() == old) {
                part.fields.push_back({static_cast<std::size_t>(variable - 1), Field(group, shared.location())});
            }
        }
        parts.push_back(std::move(part));
    }
    return parts;
}

std::shared_ptr<Change> ReplaceValues::makeChange(EventHub& events)
{
    if (!m_copy) {
        return nullptr;
    }
    ShareGroup const* const old = field().group().get();
    ZonesAndVariables places{{m_zone}, {m_variable}};
    ZonesAndVariables sharing;
    if (field().shareCount() > 1) {
        sharing = fieldsWhere(*dataSet(), [old](ShareGroup const* group) { return group == old; });
    }
    bool const branches = m_autoBranch && !sharing.zones.empty();
    if (!m_autoBranch && !sharing.zones.empty()) {
        places = sharing;
    }
    auto parts = newFields(places, std::make_shared<ShareGroup>(std::move(m_copy)));
    StateChangeEvent event{StateChange_ValuesAltered, places.zones, places.variables, {}, 0};
    if (branches) {
        return std::make_shared<BranchEdit>(events, std::move(parts), std::move(sharing), std::move(event));
    }
    return std::make_shared<FieldReplacement>(events, std::move(parts), std::move(event));
}

} // namespace veldraw::kernel
