#include "kernel/operations/FieldRotation.h"

#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

/// The location of the values of the components, which must be the same for all.
struct Place
{
    ValueLocation_e location = ValueLocation_Nodal;
    std::int64_t count = -1;

    void agreeWith(Field const& field, std::int64_t size)
    {
        if (count >= 0 && (location != field.location() || count != size)) {
            throw std::invalid_argument("The components of a vector must have their values at the same places.");
        }
        location = field.location();
        count = size;
    }
};

} // namespace

struct FieldRotation::Source
{
    Field const* field = nullptr; // null for a component that takes no part
    std::size_t position = 0;

    bool hasValues() const { return field != nullptr && !field->isPassive(); }
};

FieldRotation::FieldRotation(SpatialVariables const& variables, Rotation const& rotation)
    : m_variables(variables)
    , m_ofPoints(rotation)
    , m_ofVectors(rotation.ofVectors())
{
}

std::vector<NewField> FieldRotation::prepare(Zone const& zone)
{
    std::vector<NewField> fields;
    prepareComponents(zone, false, fields);
    if (m_variables.hasVector) {
        prepareComponents(zone, true, fields);
    }
    return fields;
}

void FieldRotation::prepareComponents(Zone const& zone, bool isVector, std::vector<NewField>& fields)
{
    std::array<int, 3> const& numbers = isVector ? m_variables.vector : m_variables.coordinates;
    Sources sources;
    Place place;
    bool hasValues = false;
    for (std::size_t component = 0; component < m_variables.dimensions(); ++component) {
        auto const position = static_cast<std::size_t>(numbers[component] - 1);
        Field const& field = zone.fields[position];
        hasValues = hasValues || !field.isPassive();
        if (!m_ofPoints.involves(component)) {
            continue;
        }
        sources[component] = {&field, position};
        if (!field.isPassive()) {
            place.agreeWith(field, valuesOf(*field.group())->size());
        }
    }
    if (!hasValues) {
        return;
    }
    std::int64_t const count = place.count >= 0 ? place.count : valueCount(zone, place.location);
    Results const results = resultsOf(sources, isVector, count);
    for (std::size_t component = 0; component < 3; ++component) {
        if (results[component]) {
            fields.push_back({sources[component].position, Field(results[component], place.location)});
        }
    }
}

FieldRotation::Results FieldRotation::resultsOf(Sources const& sources, bool isVector, std::int64_t count)
{
    Key key{isVector, {}};
    for (std::size_t component = 0; component < 3; ++component) {
        key.second[component] = sources[component].hasValues() ? sources[component].field->group().get() : nullptr;
    }
    auto const [known, isNew] = m_results.try_emplace(key);
    Results results = known->second;
    addTask(sources, isVector ? m_ofVectors : m_ofPoints, count, results);
    for (std::size_t component = 0; component < 3 && isNew; ++component) {
        // A passive component shared no storage, so its new values are those of this zone alone.
        known->second[component] = sources[component].hasValues() ? results[component] : nullptr;
    }
    return results;
}

/// Whether a component that is passive stays 0: all components that the rotation mixes into it are passive as well.
bool FieldRotation::staysZero(Rotation const& rotation, std::size_t row, FieldRotation::Sources const& sources)
{
    double constant = rotation.origin()[row];
    for (std::size_t column = 0; column < 3; ++column) {
        constant -= rotation.entry(row, column) * rotation.origin()[column];
        if (sources[column].hasValues() && rotation.entry(row, column) != 0.0) {
            return false;
        }
    }
    return constant == 0.0;
}

/// Prepares the results that are missing.
void FieldRotation::addTask(Sources const& sources, Rotation const& rotation, std::int64_t count, Results& results)
{
    Task task{&rotation, {count, {}, {}}};
    bool hasTarget = false;
    for (std::size_t component = 0; component < 3; ++component) {
        Field const* const field = sources[component].field;
        if (sources[component].hasValues()) {
            task.buffers.sources[component] = valuesOf(*field->group());
        }
        bool const isKnown = results[component] != nullptr;
        if (field == nullptr || isKnown || (field->isPassive() && staysZero(rotation, component, sources))) {
            continue;
        }
        auto const target = Buffer::allocate(computedType(field->type()), count);
        task.buffers.targets[component] = target;
        results[component] = std::make_shared<ShareGroup>(target);
        m_bytes += target->bytes();
        hasTarget = true;
    }
    if (hasTarget) {
        m_tasks.push_back(std::move(task));
        m_work += count;
    }
}

void FieldRotation::compute(Progress& progress) const
{
    for (Task const& task : m_tasks) {
        progress.check();
        rotateValues(*task.rotation, task.buffers, progress);
    }
}

} // namespace veldraw::kernel
