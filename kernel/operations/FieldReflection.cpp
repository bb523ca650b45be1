#include "kernel/operations/FieldReflection.h"

#include "kernel/compute/NegateValues.h"
#include "kernel/compute/ValueBlock.h"

namespace veldraw::kernel {

FieldReflection::FieldReflection(NumberSet variables)
    : m_variables(std::move(variables))
{
}

std::vector<NewField> FieldReflection::prepare(Zone const& zone)
{
    std::vector<NewField> fields;
    for (int const number : m_variables) {
        auto const position = static_cast<std::size_t>(number - 1);
        Field const& field = zone.fields[position];
        if (!field.isPassive()) {
            fields.push_back({position, Field(resultOf(*field.group()), field.location())});
        }
    }
    return fields;
}

std::shared_ptr<ShareGroup> FieldReflection::resultOf(ShareGroup const& source)
{
    auto const [place, isNew] = m_results.try_emplace(&source);
    Result& result = place->second;
    if (isNew) {
        result.source = valuesOf(source);
        result.target = Buffer::allocate(computedType(result.source->type()), result.source->size());
        result.group = std::make_shared<ShareGroup>(result.target);
        m_work += result.target->size();
        m_bytes += result.target->bytes();
    }
    return result.group;
}

void FieldReflection::compute(Progress& progress) const
{
    for (auto const& [group, result] : m_results) {
        progress.check();
        negateValues(*result.source, *result.target, progress);
    }
}

} // namespace veldraw::kernel
