#include "platform/vdsdkbase/VelUtilVar.h"

#include "kernel/api/ApiSupport.h"

using namespace veldraw::kernel;
using veldraw::kernel::api::session;

int VelUtilVarGetNumByAssignment(char assignment)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    return frame ? frame->variableNumber(assignment) : 0;
}

int VelUtilVarGetNumByUniqueID(long long varID)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return dataSet ? dataSet->variableNumber(varID) : 0;
}

int VelUtilVarGetStatus(int zone, int var)
{
    Field const* const field = api::activeField(zone, var);
    if (field == nullptr || !field->isLoaded()) {
        return VarStatus_NotLoaded;
    }
    if (field->isPassive()) {
        return VarStatus_Passive;
    }
    // Values that somebody has altered are in memory, wherever they came from.
    bool const isInFile = field->group()->isMapped() && field->group()->canUnload();
    return isInFile ? VarStatus_Map : VarStatus_Loaded;
}

long long VelUtilVarGetUniqueIDForFrame(long long frameID, int var)
{
    std::shared_ptr<Frame> const frame = session().frame(frameID);
    std::shared_ptr<Variable> const variable = frame && frame->dataSet ? frame->dataSet->variable(var) : nullptr;
    return variable ? variable->id : 0;
}

bool VelUtilVarIsEnabled(int var)
{
    std::shared_ptr<Variable> const variable = api::activeVariable(var);
    return variable && variable->enabled;
}

bool VelUtilVarIsSZLData(int zone, int var)
{
    // Nobody goes through all mapped values for a range, so that an estimate of theirs lasts.
    Field const* const field = api::activeField(zone, var);
    return field != nullptr && !field->isPassive() && field->group()->isMapped();
}

bool VelUtilVarRangeIsEstimated(int zone, int var)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Zone> const found = api::activeZone(zone);
        return found && found->range(var).state == ValueRange::State::Estimated;
    });
}
