#include "operations/entries/Entries.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"

namespace veldraw::operations {

namespace {

using Kind = ParameterKind;

std::vector<std::string> const selections{"all", "nearest", "octant"}; // as in PtSelection_e

std::vector<Parameter> withZones(std::vector<Parameter> parameters)
{
    parameters.insert(parameters.begin(),
                      {parameter("zones", Kind::Zones, "The source zones."),
                       parameter("destination", Kind::Zone, "The zone that gets the values."),
                       parameter("variables", Kind::Variables,
                                 "The variables to interpolate; none that is on an axis of the frame.")});
    return parameters;
}

std::vector<Parameter> withPoints(std::vector<Parameter> parameters, double mostPoints)
{
    parameters.push_back(
        choice("selection", selections, "The source points that count for a point.").startingWith("octant"));
    parameters.push_back(parameter("points", Kind::Whole, "How many of them count; unused where all do.")
                             .startingWith("8")
                             .within(1, mostPoints));
    return withZones(std::move(parameters));
}

bool interpolateByInverseDistance(Arguments const& arguments)
{
    toolbox::Set const sources = toolboxSet(arguments.numbers("zones"));
    toolbox::Set const variables = toolboxSet(arguments.numbers("variables"));
    return VelUtilInverseDistInterpolation(sources.getRef(), arguments.number("destination"), variables.getRef(),
                                           arguments.real("exponent"), arguments.real("minimum-distance"),
                                           arguments.choice("selection"), arguments.number("points"));
}

bool krige(Arguments const& arguments)
{
    toolbox::Set const sources = toolboxSet(arguments.numbers("zones"));
    toolbox::Set const variables = toolboxSet(arguments.numbers("variables"));
    return VelUtilKrig(sources.getRef(), arguments.number("destination"), variables.getRef(), arguments.real("range"),
                       arguments.real("zero-value"), arguments.choice("drift"), arguments.choice("selection"),
                       arguments.whole("points"));
}

bool interpolateLinearly(Arguments const& arguments)
{
    toolbox::Set const sources = toolboxSet(arguments.numbers("zones"));
    toolbox::Set const variables = toolboxSet(arguments.numbers("variables"));
    return VelUtilLinearInterpolate(sources.getRef(), arguments.number("destination"), variables.getRef(),
                                    arguments.real("constant"), arguments.choice("outside"));
}

} // namespace

void addInterpolations(Registry& registry)
{
    registry.add(
        {"interpolate-inverse-distance", "Inverse-Distance Interpolation",
         "Interpolates variables into a zone, weighted by the inverse distance from the source points.",
         withPoints({parameter("exponent", Kind::Real, "The exponent of the distance.").startingWith("2").above(0, 100),
                     parameter("minimum-distance", Kind::Real, "The smallest distance that counts.")
                         .startingWith("0")
                         .within(0, std::numeric_limits<double>::infinity())
                         .in("units of the coordinates")},
                    std::numeric_limits<int>::max()),
         &interpolateByInverseDistance, "Error processing inverse distance interpolation",
         "Inverse distance interpolation successful."});
    registry.add(
        {"krige", "Kriging", "Interpolates variables into a zone by kriging.",
         withPoints(
             {parameter(
                  "range", Kind::Real,
                  "The distance from which on values have nothing in common, as a fraction of the diagonal of the "
                  "source points' box.")
                  .startingWith("0.3")
                  .within(0, 1),
              parameter("zero-value", Kind::Real, "The semivariance at distance 0.").startingWith("0").within(0, 1),
              choice("drift", {"none", "linear", "quadratic"}, "The course of the mean.").startingWith("linear")},
             4611686018427387903.0),
         &krige, "Error processing kriging interpolation", "Kriging interpolation successful."});
    registry.add(
        {"interpolate-linearly", "Linear Interpolation",
         "Interpolates variables into a zone by the cells of the source zones.",
         withZones({choice("outside", {"unchanged", "constant"}, "What becomes of points that lie in no source cell.")
                        .startingWith("unchanged"),
                    parameter("constant", Kind::Real, "Their value, for outside=constant.").startingWith("0")}),
         &interpolateLinearly, "Linear interpolation error", "Linear interpolation successful."});
}

} // namespace veldraw::operations
