#include "kernel/operations/ProbeLine.h"
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

bool probeLine(Arguments const& arguments)
{
    auto const frame = session().activeFrame();
    return frame && session().perform(kernel::ProbeLine(frame->id, arguments.numbers("zones"), arguments.triple("from"),
                                                        arguments.triple("to"), arguments.number("points")));
}

void addProbeLine(Registry& registry)
{
    registry.add({"probe-line",
                  "Probe Line",
                  "Appends a zone of points along a line, with what all variables have there in the cells of zones.",
                  {parameter("zones", Kind::Zones, "The zones whose cells give the values."),
                   parameter("from", Kind::Place, "Where the line begins.").in("units of the coordinates"),
                   parameter("to", Kind::Place, "Where it ends.").in("units of the coordinates"),
                   parameter("points", Kind::Whole, "The number of points, both ends included.")
                       .startingWith("200")
                       .within(2, kernel::ProbeLine::mostPoints)},
                  &probeLine,
                  "",
                  "",
                  OperationEntry::Renews::Names});
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
    addProbeLine(registry);
}

} // namespace veldraw::operations
