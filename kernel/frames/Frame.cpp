#include "kernel/frames/Frame.h"

#include "kernel/data/TimeStrands.h"
#include "kernel/frames/PlotOption.h"

namespace veldraw::kernel {

Frame::Frame(std::string frameName, Rectangle frameRectangle)
    : id(nextUniqueId())
    , name(std::move(frameName))
    , rectangle(frameRectangle)
    , m_blankedZones(std::make_shared<BlankedZones>())
{
    for (PlotOption const& option : plotOptions()) {
        this->*option.member = option.isOnAtFirst;
    }
}

std::array<int, 3> Frame::axisVariables() const
{
    if (!dataSet) {
        return {};
    }
    if (plotType == PlotType_Cartesian2D) {
        return {dataSet->variableNumber(axes2D[0]), dataSet->variableNumber(axes2D[1]), 0};
    }
    return {dataSet->variableNumber(axes3D[0]), dataSet->variableNumber(axes3D[1]), dataSet->variableNumber(axes3D[2])};
}

int Frame::variableNumber(char assignment) const
{
    if (!dataSet) {
        return 0;
    }
    switch (assignment) {
    case 'X':
        return axisVariables()[0];
    case 'Y':
        return axisVariables()[1];
    case 'Z':
        return axisVariables()[2];
    case 'U':
        return dataSet->variableNumber(vector[0]);
    case 'V':
        return dataSet->variableNumber(vector[1]);
    case 'W':
        return dataSet->variableNumber(vector[2]);
    case 'C':
        return dataSet->variableNumber(contourVariable);
    default:
        return 0;
    }
}

NumberSet Frame::zonesInSight() const
{
    return dataSet ? zonesAt(*dataSet, solutionTime) : NumberSet();
}

NumberSet Frame::drawnVariables() const
{
    bool const isField = plotType == PlotType_Cartesian2D || plotType == PlotType_Cartesian3D;
    NumberSet variables;
    if (!dataSet || !isField) {
        return variables;
    }
    for (int const axis : axisVariables()) {
        variables.insert(axis);
    }
    if (hasContour()) {
        variables.insert(variableNumber('C'));
    }
    if (showVectors) {
        for (char const letter : {'U', 'V', 'W'}) {
            variables.insert(variableNumber(letter));
        }
    }
    for (Cut const& cut : cuts) {
        if (showCuts && cut.isShown) {
            variables.insert(dataSet->variableNumber(cut.variable));
        }
    }
    for (BlankingConstraint const& constraint : valueBlanking.inForce(*dataSet)) {
        variables.insert(dataSet->variableNumber(constraint.variable));
    }
    variables.erase(0); // of what has none
    return variables;
}

} // namespace veldraw::kernel
