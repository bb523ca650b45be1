#include "operations/entries/Entries.h"
#include "platform/vdsdkbase/VelUtilAxis.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdtoolbox/ArgList.h"

#include <algorithm>

namespace veldraw::operations {

namespace {

using Kind = ParameterKind;
using Renews = OperationEntry::Renews;

Parameter zones(std::string sentence)
{
    return parameter("zones", Kind::Zones, std::move(sentence));
}

bool duplicateZones(Arguments const& arguments)
{
    toolbox::ArgList list;
    list.appendSet("SourceZones", toolboxSet(arguments.numbers("zones")));
    return VelUtilZoneCopyX(list.getRef());
}

bool mirrorZones(Arguments const& arguments)
{
    char const coordinate = static_cast<char>('X' + arguments.choice("plane"));
    return VelUtilCreateMirrorZones(toolboxSet(arguments.numbers("zones")).getRef(), coordinate);
}

/// What rotations need besides zones and angles, as the dialogs find it for the active frame.
struct RotationInputs
{
    explicit RotationInputs(Arguments const& arguments)
        : is3D(isInSpace(arguments))
        , origin(arguments.triple("origin"))
        , axis(arguments.triple("axis"))
    {
        VelUtilAxisGetVarAssignments(&xyz[0], &xyz[1], &xyz[2]);
        for (std::size_t place = 0; place < 3; ++place)
            uvw[place] = VelUtilVarGetNumByAssignment("UVW"[place]);
        for (std::size_t place = 0; place < 3; ++place) {
            takeGiven(arguments, std::string(1, "xyz"[place]), xyz[place]);
            takeGiven(arguments, std::string(1, "uvw"[place]), uvw[place]);
        }
        if (!is3D)
            xyz[2] = uvw[2] = 0;
        hasVector = arguments.flag("vector") && uvw[0] != 0 && uvw[1] != 0 && !std::equal(uvw, uvw + 3, xyz);
    }

    static bool isInSpace(Arguments const& arguments)
    {
        return arguments.has("space") ? arguments.choice("space") == 1
                                      : VelUtilFrameGetPlotType() == PlotType_Cartesian3D;
    }

    static void takeGiven(Arguments const& arguments, std::string const& name, int& variable)
    {
        if (arguments.has(name))
            variable = arguments.number(name);
    }

    int xyz[3] = {};
    int uvw[3] = {};
    bool is3D;
    bool hasVector = false;
    Arguments::Triple origin;
    Arguments::Triple axis;
};

bool rotateZones(Arguments const& arguments)
{
    RotationInputs const inputs(arguments);
    toolbox::Set const rotated = toolboxSet(arguments.numbers("zones"));
    return VelUtilDataRotate(VelUtilDataSetGetUniqueID(), rotated.getRef(), inputs.xyz, inputs.is3D, &inputs.uvw[0],
                             &inputs.uvw[1], &inputs.uvw[2], inputs.hasVector, arguments.real("angle"),
                             inputs.origin.data(), inputs.axis.data());
}

bool duplicateAxially(Arguments const& arguments)
{
    RotationInputs const inputs(arguments);
    toolbox::Set const sources = toolboxSet(arguments.numbers("zones"));
    return VelUtilDataAxialDuplicate(VelUtilDataSetGetUniqueID(), sources.getRef(), inputs.xyz, inputs.is3D,
                                     &inputs.uvw[0], &inputs.uvw[1], &inputs.uvw[2], inputs.hasVector,
                                     arguments.real("angle"), arguments.real("offset"), arguments.number("copies"),
                                     inputs.origin.data(), inputs.axis.data(), arguments.flag("add-to-strands"));
}

/// Parameters that rotations have in common, after those of their own.
std::vector<Parameter> withRotation(std::vector<Parameter> parameters)
{
    parameters.push_back(
        parameter("axis", Kind::Direction, "Direction of the axis; in a 2D plot that of Z counts.").startingWith("Z"));
    parameters.push_back(
        parameter("origin", Kind::Place, "A point on the axis.").startingWith("0,0,0").in("units of the coordinates"));
    parameters.push_back(parameter("vector", Kind::Flag, "Whether the vector of the frame is rotated with the points.")
                             .startingWith("yes"));
    parameters.push_back(
        choice("space", {"2d", "3d"}, "Whether only X and Y are rotated; otherwise as the frame's plot type.")
            .startingWith(""));
    for (char const letter : {'x', 'y', 'z', 'u', 'v', 'w'}) {
        std::string const what = letter < 'x' ? "component of the vector" : "coordinate";
        parameters.push_back(parameter(std::string(1, letter), Kind::Variable,
                                       "The variable of this " + what + "; otherwise that of the frame.")
                                 .startingWith(""));
    }
    return parameters;
}

} // namespace

void addZoneOperations(Registry& registry)
{
    registry.add({"duplicate-zones",
                  "Create Duplicate Zone",
                  "Appends a copy of each zone, which shares its values.",
                  {zones("The zones to copy.")},
                  &duplicateZones,
                  "Error duplicating zone(s)",
                  "Duplicate zone(s) created",
                  Renews::Names});
    registry.add({"mirror-zones",
                  "Create Mirror Zone",
                  "Appends a mirrored copy of each zone, the vector of the frame included.",
                  {zones("The zones to mirror."),
                   choice("plane", {"X", "Y", "Z"}, "The coordinate that is 0 on the plane of the mirror.")},
                  &mirrorZones,
                  "Error duplicating zone(s)",
                  "Mirror zone creation successful.",
                  Renews::Names});
    registry.add(
        {"rotate-zones", "Axial Rotation", "Rotates zones in place about an axis.",
         withRotation({zones("The zones to rotate."),
                       parameter("angle", Kind::Real, "The angle, right-handed about the axis.").in("degrees")}),
         &rotateZones, "Failed to perform axial rotation."});
    registry.add(
        {"duplicate-zones-axially", "Axial Duplication",
         "Appends rotated copies of zones; copy k stands at offset + k x angle.",
         withRotation(
             {zones("The zones to copy."),
              parameter("angle", Kind::Real, "The angle from copy to copy, right-handed about the axis.").in("degrees"),
              parameter("copies", Kind::Whole, "The number of copies of each zone.")
                  .within(1, std::numeric_limits<int>::max()),
              parameter("offset", Kind::Real, "An angle that is added to that of each copy.")
                  .startingWith("0")
                  .in("degrees"),
              parameter("add-to-strands", Kind::Flag,
                        "Whether copies join the time strand of their source; otherwise they get strands of their own.")
                  .startingWith("yes")}),
         &duplicateAxially, "Failed to perform axial duplication.", "", Renews::Names});
}

} // namespace veldraw::operations
