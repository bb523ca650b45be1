#include "kernel/operations/AxialOperation.h"

#include "kernel/operations/UntransformedVectors.h"

namespace veldraw::kernel {

namespace {

/// Why these variables cannot be rotated, null when they can.
char const* reasonAgainstVariables(DataSet const& dataSet, SpatialVariables const& variables)
{
    constexpr char const* unassigned[] = {"The X axis has no variable.", "The Y axis has no variable.",
                                          "The Z axis has no variable."};
    NumberSet numbers;
    std::size_t count = 0;
    for (std::size_t component = 0; component < variables.dimensions(); ++component) {
        if (variables.coordinates[component] == 0) {
            return unassigned[component];
        }
        numbers.insert(variables.coordinates[component]);
        ++count;
        if (variables.hasVector) {
            numbers.insert(variables.vector[component]);
            ++count;
        }
    }
    if (*numbers.begin() < 1 || *numbers.rbegin() > dataSet.variableCount()) {
        return noVariable;
    }
    return numbers.size() == count ? nullptr : "The spatial and vector variables must be unique.";
}

/// The variables that are rotated, those along the axis included.
NumberSet rotatedVariables(SpatialVariables const& variables)
{
    NumberSet rotated;
    for (std::size_t component = 0; component < variables.dimensions(); ++component) {
        rotated.insert(variables.coordinates[component]);
        rotated.insert(variables.hasVector ? variables.vector[component] : 0);
    }
    return rotated;
}

} // namespace

AxialOperation::AxialOperation(DataSet const& dataSet, NumberSet zones, SpatialVariables const& variables,
                               RotationAxis const& axis)
    : DataSetOperation(dataSet)
    , m_zones(std::move(zones))
    , m_variables(variables)
    , m_axis(axis)
{
}

std::string AxialOperation::reasonAgainst() const
{
    char const* reason = reasonAgainstZones(*dataSet(), m_zones);
    if (reason == nullptr) {
        reason = reasonAgainstVariables(*dataSet(), m_variables);
    }
    if (reason != nullptr) {
        return reason;
    }
    if (!m_axis.isValid()) {
        return "The axis needs an origin and a direction.";
    }
    bool const leavesPlane = m_axis.direction[0] != 0.0 || m_axis.direction[1] != 0.0;
    return leavesPlane && !m_variables.isThreeD ? "A plane can only be rotated about an axis along Z." : "";
}

std::shared_ptr<DeferredLoad> AxialOperation::prepare(Rotation const& rotation)
{
    m_remark = remarkOnUntransformedVectors(name(), *dataSet(), m_zones, rotatedVariables(m_variables),
                                            m_variables.dimensions());
    m_load = std::make_shared<DeferredLoad>(*dataSet());
    for (int const zone : m_zones) {
        for (std::size_t component = 0; component < m_variables.dimensions(); ++component) {
            if (rotation.involves(component)) {
                m_load->addField(zone, m_variables.coordinates[component]);
            }
            if (rotation.involves(component) && m_variables.hasVector) {
                m_load->addField(zone, m_variables.vector[component]);
            }
        }
    }
    return m_load;
}

CommandText AxialOperation::withRotation(CommandText text) const
{
    static constexpr char const* coordinates[] = {"x", "y", "z"};
    static constexpr char const* components[] = {"u", "v", "w"};
    text.reals("axis", m_axis.direction).reals("origin", m_axis.origin).flag("vector", m_variables.hasVector);
    text.word("space", m_variables.isThreeD ? "3d" : "2d");
    for (std::size_t dimension = 0; dimension < m_variables.dimensions(); ++dimension) {
        text.number(coordinates[dimension], m_variables.coordinates[dimension]);
    }
    for (std::size_t dimension = 0; m_variables.hasVector && dimension < m_variables.dimensions(); ++dimension) {
        text.number(components[dimension], m_variables.vector[dimension]);
    }
    return text;
}

} // namespace veldraw::kernel
