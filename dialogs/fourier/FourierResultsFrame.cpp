#include "dialogs/fourier/FourierResultsFrame.h"

#include "dialogs/fourier/FramePlacement.h"
#include "dialogs/frame/FrameWalk.h"
#include "dialogs/property/KernelText.h"
#include "platform/styleproperties/StyleValue.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilLineMap.h"
#include "platform/vdtoolbox/AuxData.h"

#include <boost/format.hpp>

#include <string>

namespace veldraw::sdk::ui::propertymanager {

namespace {

using toolbox::AuxData;
using toolbox::StyleValue;
using veldraw::dialogs::common::FrameWalk;

constexpr char resultsFrameMark[] = "IsVeldrawFourierTransformOutputFrame";

AuxData auxDataOfActiveFrame()
{
    return AuxData(AuxDataLocation_Frame, 1);
}

bool activeFrameShowsResultsOf(long long dataSet)
{
    if (!VelUtilDataSetIsAvailable() || VelUtilDataSetGetUniqueID() != dataSet)
        return false;
    AuxData const data = auxDataOfActiveFrame();
    return data.boolValue(data.indexOf(resultsFrameMark));
}

long long findResultsFrame(long long sourceFrame)
{
    VelUtilFrameActivateByUniqueID(sourceFrame);
    long long const dataSet = VelUtilDataSetGetUniqueID();
    for (FrameWalk walk; walk.hasFrame(); walk.next())
        if (activeFrameShowsResultsOf(dataSet))
            if (long long const frame = VelUtilFrameGetUniqueID())
                return frame;
    return 0;
}

// The name that the kernel has chosen goes into brackets.
std::string nameOfResultsFrame()
{
    KernelText name;
    VelUtilFrameGetName(name.place());
    return (boost::format("Fourier Transform (%1%)") % (name.get() ? name.get() : "")).str();
}

long long createResultsFrame(long long sourceFrame, FourierPlotDisplayType_e display)
{
    VelUtilFrameActivateByUniqueID(sourceFrame);
    // Without a size it is not seen before it is in its place; a frame to be tiled may begin anywhere.
    bool const useSuppliedSize = display == FourierPlotDisplayType_InCorner;
    if (!VelUtilFrameCreateNew(useSuppliedSize, 0.0, 0.0, 0.0, 0.0))
        return 0;
    long long const frame = VelUtilFrameGetUniqueID();
    VelUtilFrameSetName(nameOfResultsFrame().c_str());
    // A frame that cannot be marked still shows the results; the next run makes another one.
    auxDataOfActiveFrame().set(resultsFrameMark, true, true);
    return frame;
}

long long makeResultsFrame(long long sourceFrame, FourierPlotDisplayType_e display)
{
    long long const frame = createResultsFrame(sourceFrame, display);
    bool const isReady = frame != 0 && prepareResultsFrame(sourceFrame, frame) && VelUtilLineMapDelete(nullptr);
    return isReady ? frame : 0;
}

void placeResultsFrame(long long sourceFrame, long long resultsFrame, FourierPlotDisplayType_e display)
{
    if (display == FourierPlotDisplayType_Tile)
        tileFrames();
    else if (resultsFrame != sourceFrame)
        placeFrameInCorner(sourceFrame, resultsFrame);
}

} // namespace

long long findOrCreateResultsFrame(long long sourceFrame, FourierPlotDisplayType_e display)
{
    long long frame = findResultsFrame(sourceFrame);
    if (frame == 0)
        frame = makeResultsFrame(sourceFrame, display);
    if (frame != 0)
        placeResultsFrame(sourceFrame, frame, display);
    return frame;
}

bool prepareResultsFrame(long long sourceFrame, long long resultsFrame)
{
    VelUtilFrameActivateByUniqueID(resultsFrame);
    if (VelUtilFrameGetPlotType() == PlotType_XYLine)
        return true;
    if (!VelUtilDataSetIsAvailable()) {
        VelUtilFrameActivateByUniqueID(sourceFrame);
        if (!VelUtilFrameSetDataSet(VelUtilDataSetGetUniqueID(), resultsFrame))
            return false;
    }
    VelUtilFrameActivateByUniqueID(resultsFrame);
    return StyleValue::returnCodeOk(VelUtilFrameSetPlotType(PlotType_XYLine));
}

} // namespace veldraw::sdk::ui::propertymanager
