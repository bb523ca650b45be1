#include "kernel/operations/SetValue.h"

#include "kernel/base/Text.h"
#include "kernel/compute/CopyValues.h"
#include "kernel/data/ValueEdit.h"
#include "kernel/storage/CellSlots.h"
#include "kernel/storage/ValueType.h"

#include <cmath>

namespace veldraw::kernel {

namespace {

constexpr char noValues[] =
    "The variable is passive in this zone: it has no values there, reads as 0 and cannot be edited.";

bool fits(double value, FieldDataType_e type)
{
    if (type == FieldDataType_Double || type == FieldDataType_Float) {
        return type == FieldDataType_Double || !std::isfinite(value) || std::isfinite(static_cast<float>(value));
    }
    double const stored =
        type == FieldDataType_Bit ? value : std::round(value); // anything between 0 and 1 sets the bit
    return stored >= leastOf(type) && stored <= largestOf(type);
}

/// Why a number is beyond the limits of @p type, with these limits; empty when it can be stored. Integer types round it
/// first. Single precision takes infinities and NaN, but no finite number that would become infinite.
std::string reasonAgainstStoring(double value, FieldDataType_e type)
{
    if (fits(value, type)) {
        return {};
    }
    bool const isWhole = isOfWholeNumbers(type);
    auto const limit = [isWhole](double number) {
        return isWhole ? std::to_string(static_cast<long long>(number)) : textOf(static_cast<float>(number));
    };
    return "The value " + textOf(value) + " cannot be stored: the variable has " +
           (isWhole ? "whole" : "single-precision") + " numbers from " + limit(leastOf(type)) + " to " +
           limit(largestOf(type)) + ".";
}

} // namespace

/// Why there is no value to edit, null when there is.
char const* SetValue::reasonAgainstPlace() const
{
    Field const* const field = dataSet()->field(m_zone, m_variable);
    if (field == nullptr) {
        return dataSet()->zone(m_zone) ? noVariable : noZone;
    }
    if (field->isPassive() || !field->isLoaded()) {
        return field->isPassive() ? noValues : "The values are not loaded.";
    }
    Zone const& zone = *dataSet()->zone(m_zone);
    bool const isAtCells = zone.isOrdered() && field->location() == ValueLocation_CellCentered;
    bool const exists = m_index >= 0 && m_index < field->group()->size() && (!isAtCells || zone.pointCount() > m_index);
    return exists && (!isAtCells || hasCell(m_index, zone.i, zone.j, zone.k)) ? nullptr : "There is no such value.";
}

std::string SetValue::reasonAgainst() const
{
    char const* const reason = reasonAgainstPlace();
    return reason != nullptr ? reason : reasonAgainstStoring(m_value, field().group()->type());
}

bool SetValue::changesValue() const
{
    ShareGroup const& group = *field().group();
    return group.buffer()->bits(m_index) != Buffer::bitsOf(group.type(), m_value);
}

bool SetValue::isLong() const
{
    return (branches() || field().group()->isHeld()) && changesValue();
}

std::shared_ptr<DeferredLoad> SetValue::needs()
{
    auto load = std::make_shared<DeferredLoad>(*dataSet());
    load->addField(m_zone, m_variable); // is loaded; named so that it is not unloaded to make room for its copy
    return load;
}

void SetValue::compute(Progress& progress)
{
    m_copy = copyValues(*field().group()->buffer(), progress);
}

ZonesAndVariables SetValue::sharingFields() const
{
    if (field().shareCount() == 1) {
        return {{m_zone}, {m_variable}};
    }
    ShareGroup const* const shared = field().group().get();
    return fieldsWhere(*dataSet(), [shared](ShareGroup const* group) { return group == shared; });
}

std::shared_ptr<Change> SetValue::makeChange(EventHub& events)
{
    if (!changesValue()) {
        return nullptr;
    }
    ValuePlace place{dataSet()->zone(m_zone), static_cast<std::size_t>(m_variable - 1), m_index};
    std::uint64_t const bits = Buffer::bitsOf(field().group()->type(), m_value);
    ZonesAndVariables sharing = sharingFields();
    if (branches()) {
        StateChangeEvent event{StateChange_ValuesAltered, {m_zone}, {m_variable}, {}, 0};
        return std::make_shared<BranchEdit>(events, place, bits, std::move(m_copy), std::move(sharing),
                                            std::move(event));
    }
    StateChangeEvent event{StateChange_ValuesAltered, std::move(sharing.zones), std::move(sharing.variables), {}, 0};
    return std::make_shared<ValueEdit>(events, std::move(place), bits, std::move(m_copy), std::move(event));
}

CommandText SetValue::command() const
{
    return CommandText("set-value")
        .number("zone", m_zone)
        .number("variable", m_variable)
        .number("index", m_index + 1)
        .real("value", m_value)
        .flag("shared", !m_autoBranch);
}

} // namespace veldraw::kernel
