#include "platform/vdsdkbase/VelUtilFrame.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/frames/Page.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/SetPlotType.h"

using namespace veldraw::kernel;
using veldraw::kernel::api::answerOr;
using veldraw::kernel::api::session;

bool VelUtilFrameActivateByNumber(int number)
{
    std::shared_ptr<Page> const page = session().activePage();
    bool const exists = page && number >= 1 && number <= static_cast<int>(page->frames.size());
    return exists && session().activateFrame(page->frames[static_cast<std::size_t>(number - 1)]->id);
}

bool VelUtilFrameActivateByUniqueID(long long frameID)
{
    return session().activateFrame(frameID);
}

bool VelUtilFrameCreateNew(bool useSuppliedSize, double x, double y, double width, double height)
{
    return answerOr(false, [&] {
        std::shared_ptr<Page> const page = session().activePage();
        if (!page) {
            return session().refuse("There is no page.");
        }
        Rectangle const place = useSuppliedSize ? Rectangle{x, y, width, height} : nextFreePlace(*page);
        std::string const name = "Frame " + std::to_string(page->frames.size() + 1);
        return session().createFrame(name, place) != nullptr;
    });
}

int VelUtilFrameGetCount(void)
{
    std::shared_ptr<Page> const page = session().activePage();
    return page ? static_cast<int>(page->frames.size()) : 0;
}

long long VelUtilFrameGetDataSetUniqueIDByFrameID(long long frameID)
{
    std::shared_ptr<Frame> const frame = session().frame(frameID);
    return frame && frame->dataSet ? frame->dataSet->id() : 0;
}

bool VelUtilFrameGetName(char** name)
{
    api::store<char*>(name, nullptr);
    return name != nullptr && answerOr(false, [&] {
               std::shared_ptr<Frame> const frame = session().activeFrame();
               if (!frame) {
                   return false;
               }
               *name = api::copyText(frame->name);
               return true;
           });
}

int VelUtilFrameGetPlotType(void)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    return frame ? static_cast<int>(frame->plotType) : 0;
}

int VelUtilFrameGetPlotTypeForFrame(long long frameID)
{
    std::shared_ptr<Frame> const frame = session().frame(frameID);
    return frame ? static_cast<int>(frame->plotType) : 0;
}

void VelUtilFrameGetPosAndSize(double* x, double* y, double* width, double* height)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    Rectangle const place = frame ? frame->rectangle : Rectangle{};
    api::store(x, place.x);
    api::store(y, place.y);
    api::store(width, place.width);
    api::store(height, place.height);
}

long long VelUtilFrameGetUniqueID(void)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    return frame ? frame->id : 0;
}

void VelUtilFrameLightweightLoopEnd(void)
{
    session().endFrameLoop();
}

bool VelUtilFrameLightweightLoopNext(void)
{
    return session().nextFrameInLoop();
}

bool VelUtilFrameLightweightLoopStart(void)
{
    return session().startFrameLoop();
}

bool VelUtilFrameSetDataSet(long long dataSetID, long long frameID)
{
    return session().setFrameDataSet(frameID, session().dataSet(dataSetID));
}

bool VelUtilFrameSetName(char const* name)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    return frame && name != nullptr && answerOr(false, [&] { return session().perform(RenameFrame(frame->id, name)); });
}

SetValueReturnCode_e VelUtilFrameSetPlotType(int plotType)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    if (!frame || plotType < PlotType_Cartesian3D || plotType > PlotType_PolarLine) {
        return SetValueReturnCode_Refused;
    }
    if (static_cast<int>(frame->plotType) == plotType) {
        return SetValueReturnCode_Duplicate;
    }
    bool const done = session().perform(SetPlotType(frame->id, static_cast<PlotType_e>(plotType)));
    return done ? SetValueReturnCode_Ok : SetValueReturnCode_Refused;
}

bool VelUtilFrameSetPosAndSize(double x, double y, double width, double height)
{
    std::shared_ptr<Frame> const frame = session().activeFrame();
    return frame && session().perform(MoveFrame(frame->id, {x, y, width, height}));
}
