#include "kernel/operations/SmoothVariable.h"
#include "operations/entries/Entries.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkbase/VelUtilFourier.h"
#include "platform/vdtoolbox/ArgList.h"

namespace veldraw::operations {

namespace {

using Kind = ParameterKind;
using Renews = OperationEntry::Renews;

bool smooth(Arguments const& arguments)
{
    return VelUtilSmooth(arguments.number("zone"), arguments.number("variable"), arguments.number("passes"),
                         arguments.real("coefficient"), arguments.choice("boundary"));
}

bool triangulate(Arguments const& arguments)
{
    bool const hasBoundaries = arguments.has("boundaries");
    toolbox::Set const sources = toolboxSet(arguments.numbers("zones"));
    toolbox::Set const boundaries = toolboxSet(hasBoundaries ? arguments.numbers("boundaries") : kernel::NumberSet());
    long long leftOut = 0;
    return VelUtilTriangulate(sources.getRef(), hasBoundaries, boundaries.getRef(),
                              arguments.flag("include-boundary-points"), &leftOut, arguments.real("keep-factor"));
}

bool transform(Arguments const& arguments)
{
    toolbox::Set results;
    toolbox::Set resultVariables;
    Set_s* resultZonesHandle = results.getRef();
    Set_s* resultVariablesHandle = resultVariables.getRef();
    auto const addressOf = [](Set_s*& handle) {
        return static_cast<long long>(reinterpret_cast<std::intptr_t>(&handle));
    };
    kernel::NumberSet dependents = arguments.numbers("variables");
    dependents.erase(arguments.number("independent"));
    toolbox::ArgList list;
    list.appendInt("IndependentVar", arguments.whole("independent"));
    list.appendInt("WindowFunction", arguments.whole("window"));
    list.appendSet("DependentVars", toolboxSet(dependents));
    list.appendSet("SourceZones", toolboxSet(arguments.numbers("zones")));
    list.appendInt("IncludeConjugates", arguments.flag("conjugates"));
    list.appendInt("ObeySourceZoneBlanking", arguments.flag("obey-blanking"));
    list.appendInt("ReplaceMatchingResultZones", arguments.flag("replace-zones"));
    list.appendInt("ReplaceMatchingResultVariables", arguments.flag("replace-variables"));
    list.appendArbParam("FourierTransformResultingZones", addressOf(resultZonesHandle));
    list.appendArbParam("FourierTransformResultingVars", addressOf(resultVariablesHandle));
    return VelUtilFourierTransformX(list.getRef());
}

Parameter flag(std::string name, std::string sentence, std::string start)
{
    return parameter(std::move(name), Kind::Flag, std::move(sentence)).startingWith(std::move(start));
}

void addFourierTransform(Registry& registry)
{
    registry.add(
        {"fourier-transform",
         "Discrete Fourier Transform",
         "Appends frequencies, amplitudes and phases of variables along ordered zones of one dimension.",
         {parameter("zones", Kind::Zones, "The source zones."),
          parameter("variables", Kind::Variables, "The dependent variables."),
          parameter("independent", Kind::Variable, "The variable along which the others are transformed."),
          choice("window", {"rectangular", "triangular", "hann", "hamming"}, "The window function.")
              .startingWith("rectangular"),
          flag("conjugates", "Whether negative frequencies are among the results.", "no"),
          flag("obey-blanking", "Whether hidden points and cells are left out.", "no"),
          flag("replace-zones", "Whether the latest zones of the same sources are replaced.", "yes"),
          flag("replace-variables", "Whether the latest variables of the same variables are replaced.", "yes")},
         &transform,
         "Insufficient resources to perform Fourier transform.",
         "",
         Renews::Names});
}

} // namespace

void addNumericalOperations(Registry& registry)
{
    registry.add({"smooth",
                  "Smooth",
                  "Moves the values of a variable towards the mean of their neighbours.",
                  {parameter("zone", Kind::Zone, "The zone."), parameter("variable", Kind::Variable, "The variable."),
                   parameter("passes", Kind::Whole, "The number of passes.")
                       .startingWith("1")
                       .within(1, std::numeric_limits<int>::max()),
                   parameter("coefficient", Kind::Real, "How far a pass moves a value; 1 would be all the way.")
                       .startingWith("0.5")
                       .within(kernel::SmoothVariable::leastWeight, kernel::SmoothVariable::mostWeight),
                   choice("boundary", {"fixed", "first-order", "second-order"},
                          "What becomes of the border of an ordered zone; that of others is fixed.")
                       .startingWith("fixed")},
                  &smooth,
                  "Error while computing smooth.",
                  "Smoothing was successful."});
    registry.add(
        {"triangulate",
         "2D Triangulation",
         "Appends a zone of triangles between the points of zones, in the plane of X and Y.",
         {parameter("zones", Kind::Zones, "The zones with the points."),
          parameter("boundaries", Kind::Zones, "Zones whose lines become edges of triangles; otherwise none.")
              .startingWith(""),
          flag("include-boundary-points", "Whether points of boundaries have the values of their zones.", "no"),
          parameter("keep-factor", Kind::Real,
                    "The least inradius / circumradius of a triangle at the rim; 0.5 is an equilateral one.")
              .startingWith("0.25")
              .within(0, 0.5)},
         &triangulate,
         "Error performing triangulation.",
         "",
         Renews::Names});
    addFourierTransform(registry);
}

} // namespace veldraw::operations
