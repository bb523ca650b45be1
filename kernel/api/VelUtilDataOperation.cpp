#include "platform/vdsdkbase/VelUtilDataOperation.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/compute/Rotation.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/InterpolateByInverseDistance.h"
#include "kernel/operations/InterpolateLinearly.h"
#include "kernel/operations/Krige.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SmoothVariable.h"
#include "kernel/operations/SpatialVariables.h"
#include "kernel/operations/Triangulate.h"

#include <optional>

using namespace veldraw::kernel;
using veldraw::kernel::api::session;

namespace {

constexpr char missing[] = "An argument is missing.";

/// The three numbers that @p numbers points at.
template <typename Number>
std::array<Number, 3> triple(Number const* numbers)
{
    return {numbers[0], numbers[1], numbers[2]};
}

/// The variables that the arguments of a C function name; none if a pointer that is needed is null.
std::optional<SpatialVariables> spatialVariables(int const* xyz, bool is3D, int const* u, int const* v, int const* w,
                                                 bool hasVector)
{
    bool const hasAll = xyz != nullptr && (!hasVector || (u != nullptr && v != nullptr && (w != nullptr || !is3D)));
    if (!hasAll) {
        return std::nullopt;
    }
    SpatialVariables variables;
    variables.isThreeD = is3D;
    variables.hasVector = hasVector;
    variables.coordinates = {xyz[0], xyz[1], is3D ? xyz[2] : 0};
    if (hasVector) {
        variables.vector = {*u, *v, is3D ? *w : 0};
    }
    return variables;
}

constexpr char noSelection[] = "There is no such selection of points.";

/// The frame and the sets that all interpolations need. @return why they cannot be used, null when they can
char const* reasonAgainstInterpolation(Frame const* frame, Set_s const* sourceZones, Set_s const* variables)
{
    if (sourceZones == nullptr || variables == nullptr) {
        return missing;
    }
    return frame == nullptr ? "There is no frame." : nullptr;
}

} // namespace

bool VelUtilCreateMirrorZones(Set_s* sourceZones, char mirrorVar)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Frame> const frame = session().activeFrame();
        if (sourceZones == nullptr || !frame) {
            return session().refuse(sourceZones == nullptr ? missing : "There is no frame.");
        }
        return session().perform(MirrorZones(frame->id, sourceZones->members, mirrorVar));
    });
}

bool VelUtilDataAxialDuplicate(long long dataSetID, Set_s* zones, int const* xyz, bool is3D, int const* uVar,
                               int const* vVar, int const* wVar, bool hasVector, double angle, double offset,
                               int copies, double const* origin, double const* axis, bool addToStrands)
{
    return api::answerOr(false, [&] {
        auto const variables = spatialVariables(xyz, is3D, uVar, vVar, wVar, hasVector);
        std::shared_ptr<DataSet> const dataSet = session().dataSet(dataSetID);
        if (zones == nullptr || !variables || origin == nullptr || axis == nullptr || !dataSet) {
            return session().refuse(dataSet ? missing : "There is no such data set.");
        }
        return session().perform(DuplicateZonesAxially(*dataSet, zones->members, *variables,
                                                       {triple(origin), triple(axis)},
                                                       {angle, offset, copies, addToStrands}));
    });
}

bool VelUtilDataRotate(long long dataSetID, Set_s* zones, int const* xyz, bool is3D, int const* uVar, int const* vVar,
                       int const* wVar, bool hasVector, double angle, double const* origin, double const* axis)
{
    return api::answerOr(false, [&] {
        auto const variables = spatialVariables(xyz, is3D, uVar, vVar, wVar, hasVector);
        std::shared_ptr<DataSet> const dataSet = session().dataSet(dataSetID);
        if (zones == nullptr || !variables || origin == nullptr || axis == nullptr || !dataSet) {
            return session().refuse(dataSet ? missing : "There is no such data set.");
        }
        return session().perform(
            RotateZones(*dataSet, zones->members, *variables, {triple(origin), triple(axis)}, angle));
    });
}

bool VelUtilInverseDistInterpolation(Set_s* sourceZones, int destinationZone, Set_s* variables, double exponent,
                                     double minRadius, int ptSelection, int numPoints)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Frame> const frame = session().activeFrame();
        if (char const* const reason = reasonAgainstInterpolation(frame.get(), sourceZones, variables)) {
            return session().refuse(reason);
        }
        if (ptSelection < PtSelection_All || ptSelection > PtSelection_Octant) {
            return session().refuse(noSelection);
        }
        return session().perform(
            InterpolateByInverseDistance(frame->id, sourceZones->members, destinationZone, variables->members,
                                         {static_cast<PtSelection_e>(ptSelection), numPoints}, {exponent, minRadius}));
    });
}

bool VelUtilKrig(Set_s* sourceZones, int destinationZone, Set_s* variables, double range, double zeroValue, int drift,
                 int ptSelection, long long numPoints)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Frame> const frame = session().activeFrame();
        if (char const* const reason = reasonAgainstInterpolation(frame.get(), sourceZones, variables)) {
            return session().refuse(reason);
        }
        if (ptSelection < PtSelection_All || ptSelection > PtSelection_Octant) {
            return session().refuse(noSelection);
        }
        if (drift < Drift_None || drift > Drift_Quadratic) {
            return session().refuse("There is no such drift.");
        }
        return session().perform(Krige(frame->id, sourceZones->members, destinationZone, variables->members,
                                       {static_cast<PtSelection_e>(ptSelection), numPoints},
                                       {range, zeroValue, static_cast<Drift_e>(drift)}));
    });
}

bool VelUtilLinearInterpolate(Set_s* sourceZones, int destinationZone, Set_s* variables, double constant, int mode)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Frame> const frame = session().activeFrame();
        if (char const* const reason = reasonAgainstInterpolation(frame.get(), sourceZones, variables)) {
            return session().refuse(reason);
        }
        if (mode != LinearInterpMode_DontChange && mode != LinearInterpMode_SetToConstant) {
            return session().refuse("There is no such mode for points outside.");
        }
        return session().perform(InterpolateLinearly(frame->id, sourceZones->members, destinationZone,
                                                     variables->members, constant,
                                                     static_cast<LinearInterpMode_e>(mode)));
    });
}

bool VelUtilSmooth(int zone, int variable, int numberOfPasses, double weight, int boundaryCondition)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Frame> const frame = session().activeFrame();
        if (!frame) {
            return session().refuse("There is no frame.");
        }
        if (boundaryCondition < BoundaryCondition_Fixed || boundaryCondition > BoundaryCondition_SecondOrder) {
            return session().refuse("There is no such boundary condition.");
        }
        return session().perform(SmoothVariable(frame->id, zone, variable, numberOfPasses, weight,
                                                static_cast<BoundaryCondition_e>(boundaryCondition)));
    });
}

bool VelUtilTriangulate(Set_s* sourceZones, bool useBoundaryZones, Set_s* boundaryZones, bool includeBoundaryPoints,
                        long long* count, double keepFactor)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Frame> const frame = session().activeFrame();
        if (sourceZones == nullptr || (useBoundaryZones && boundaryZones == nullptr)) {
            return session().refuse(missing);
        }
        if (!frame) {
            return session().refuse("There is no frame.");
        }
        if (useBoundaryZones && boundaryZones->members.empty()) {
            return session().refuse("No boundary zones were given.");
        }
        Triangulate triangulate(frame->id, sourceZones->members,
                                useBoundaryZones ? boundaryZones->members : NumberSet(), includeBoundaryPoints,
                                keepFactor);
        bool const isDone = session().perform(triangulate);
        if (isDone) {
            api::store<long long>(count, triangulate.duplicateCount());
        }
        return isDone;
    });
}
