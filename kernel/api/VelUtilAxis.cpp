#include "platform/vdsdkbase/VelUtilAxis.h"

#include "kernel/api/ApiSupport.h"

using namespace veldraw::kernel;

void VelUtilAxisGetVarAssignments(int* x, int* y, int* z)
{
    std::shared_ptr<Frame> const frame = api::session().activeFrame();
    std::array<int, 3> const numbers = frame ? frame->axisVariables() : std::array<int, 3>{};
    api::store(x, numbers[0]);
    api::store(y, numbers[1]);
    api::store(z, numbers[2]);
}
