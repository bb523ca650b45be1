#include "dialogs/fourier/FourierTransformPropertiesManager.h"

#include "dialogs/fourier/FourierResultLineMaps.h"
#include "dialogs/fourier/FourierResultsFrame.h"
#include "dialogs/fourier/FourierTransformButtonRelevance.h"
#include "dialogs/fourier/FourierZones.h"
#include "dialogs/fourier/MouseModeRestorer.h"
#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/property/StateChangeDependentRelevance.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilFourier.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilLineMap.h"
#include "platform/vdsdkbase/VelUtilPage.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/UndoState.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"
#include "platform/vdtoolbox/ArgList.h"

#include <boost/make_shared.hpp>

#include <cstdint>

namespace veldraw::sdk::ui::propertymanager {

namespace models = dialogs::propertybindings::models;

namespace {

using toolbox::ArgList;

struct FourierOptions
{
    boost::shared_ptr<Property<FourierPlotDisplayType_e>> plotDisplay =
        boost::make_shared<Property<FourierPlotDisplayType_e>>(FourierPlotDisplayType_InCorner);
    boost::shared_ptr<Property<WindowFunction_e>> windowFunction =
        boost::make_shared<Property<WindowFunction_e>>(WindowFunction_Rectangular);
    boost::shared_ptr<Property<bool>> includeConjugates = boost::make_shared<Property<bool>>(false);
    boost::shared_ptr<Property<bool>> replaceLatestResultZones = boost::make_shared<Property<bool>>(true);
    boost::shared_ptr<Property<bool>> replaceLatestResultVars = boost::make_shared<Property<bool>>(true);
    boost::shared_ptr<Property<bool>> obeySourceZoneBlanking = boost::make_shared<Property<bool>>(false);
};

// Another library may ask for them while it is loaded, before this one's static objects are made.
FourierOptions const& fourierOptions()
{
    static FourierOptions const theOptions;
    return theOptions;
}

// Else they are made when this library is loaded.
[[maybe_unused]] FourierOptions const& madeAtLoad = fourierOptions();

long long addressOf(Set_s*& handle)
{
    return static_cast<long long>(reinterpret_cast<std::intptr_t>(&handle));
}

bool showResults(long long resultsFrame, Set const& resultZones, Set const& resultVars)
{
    UndoState const step(UndoStateCategory_FrameContents, false, true, AppLock::RecordAsUsual);
    VelUtilFrameActivateByUniqueID(resultsFrame);
    VelUtilLinePlotLayerSetIsActive("ShowLines", true);
    if (!addResultLineMaps(resultZones, resultVars))
        return false;
    VelUtilFrameActivateByUniqueID(resultsFrame);
    return VelUtilViewDataFit();
}

} // namespace

FourierTransformPropertiesManager::FourierTransformPropertiesManager()
    : m_independentVariable(boost::make_shared<Property<int>>(1))
    , m_dependentVariables(boost::make_shared<Property<std::set<int>>>())
    , m_sourceZones(boost::make_shared<Property<std::set<int>>>())
    , m_variableModel(boost::make_shared<models::EnabledVariablesListModel>(getEnabledVarsForFrame, false))
    , m_windowFunctionModel(
          boost::make_shared<models::PremappedListModel<WindowFunction_e>>(models::windowFunctionLabels))
    , m_sourceZonesModel(boost::make_shared<models::ZoneListModel>(validFourierZonesForFrame, false))
    , m_plotDisplayModel(boost::make_shared<models::PremappedListModel<FourierPlotDisplayType_e>>(
          models::fourierPlotDisplayTypeLabels))
    , m_transformButtonRelevance(boost::make_shared<FourierTransformButtonRelevance>(
          m_independentVariable, m_dependentVariables, m_sourceZones))
{
}

FourierTransformPropertiesManager::~FourierTransformPropertiesManager() = default;

FourierTransformPropertiesManager::Rule FourierTransformPropertiesManager::relevance()
{
    static Rule const rule = boost::make_shared<StateChangeDependentRelevance>(&common::isZoneOrActiveFrameStateChange,
                                                                               &activeFrameHasFourierZone);
    return rule;
}

void FourierTransformPropertiesManager::transform() const
{
    AppLock const lock(AppLock::RecordAsUsual);
    ArgList arguments;
    Set const zones(m_sourceZones->value());
    Set variables(m_dependentVariables->value());
    Set resultZones;
    Set resultVars;
    variables.remove(m_independentVariable->value());
    // The kernel fills the two sets; it gets the places of their handles, which stay the sets' own.
    Set_s* resultZonesHandle = resultZones.getRef();
    Set_s* resultVarsHandle = resultVars.getRef();
    arguments.appendInt("IndependentVar", m_independentVariable->value());
    arguments.appendInt("WindowFunction", windowFunction()->value());
    arguments.appendSet("DependentVars", variables);
    arguments.appendSet("SourceZones", zones);
    arguments.appendInt("IncludeConjugates", includeConjugates()->value());
    arguments.appendInt("ObeySourceZoneBlanking", obeySourceZoneBlanking()->value());
    arguments.appendInt("ReplaceMatchingResultZones", replaceLatestResultZones()->value());
    arguments.appendInt("ReplaceMatchingResultVariables", replaceLatestResultVars()->value());
    arguments.appendArbParam("FourierTransformResultingZones", addressOf(resultZonesHandle));
    arguments.appendArbParam("FourierTransformResultingVars", addressOf(resultVarsHandle));
    bool const isTransformed =
        velUtilActionReporter([&arguments] { return static_cast<char>(VelUtilFourierTransformX(arguments.getRef())); },
                              "Insufficient resources to perform Fourier transform.", "");
    if (isTransformed && !buildFourierResultsFrame(resultZones, resultVars))
        VelUtilDialogErrMsg("Fourier Transform succeeded but results frame could not be created.");
}

// The user's frame is active at the end, whatever comes of it, and the mouse does what it did.
bool FourierTransformPropertiesManager::buildFourierResultsFrame(Set const& resultZones, Set const& resultVars) const
{
    long long const sourceFrame = VelUtilFrameGetUniqueID();
    MouseModeRestorer const mouseMode;
    VelUtilDrawGraphics(false);
    long long const resultsFrame = findOrCreateResultsFrame(sourceFrame, plotDisplay()->value());
    bool const isBuilt = resultsFrame != 0 && prepareResultsFrame(sourceFrame, resultsFrame) &&
                         showResults(resultsFrame, resultZones, resultVars);
    if (plotDisplay()->value() == FourierPlotDisplayType_Tile)
        VelUtilWorkViewFitAllFrames();
    VelUtilFrameActivateByUniqueID(sourceFrame);
    VelUtilDrawGraphics(true);
    return isBuilt;
}

boost::shared_ptr<PropertyAbstract<int>> FourierTransformPropertiesManager::independentVariable() const
{
    return m_independentVariable;
}

boost::shared_ptr<PropertyAbstract<std::set<int>>> FourierTransformPropertiesManager::dependentVariables() const
{
    return m_dependentVariables;
}

boost::shared_ptr<PropertyAbstract<std::set<int>>> FourierTransformPropertiesManager::sourceZones() const
{
    return m_sourceZones;
}

boost::shared_ptr<models::ListModelInterface<int> const> FourierTransformPropertiesManager::variableModel() const
{
    return m_variableModel;
}

boost::shared_ptr<models::ListModelInterface<int> const> FourierTransformPropertiesManager::sourceZonesModel() const
{
    return m_sourceZonesModel;
}

boost::shared_ptr<models::ListModelInterface<WindowFunction_e> const>
FourierTransformPropertiesManager::windowFunctionModel() const
{
    return m_windowFunctionModel;
}

boost::shared_ptr<models::ListModelInterface<FourierPlotDisplayType_e> const>
FourierTransformPropertiesManager::plotDisplayModel() const
{
    return m_plotDisplayModel;
}

FourierTransformPropertiesManager::Rule FourierTransformPropertiesManager::transformButtonRelevance() const
{
    return m_transformButtonRelevance;
}

boost::shared_ptr<PropertyAbstract<WindowFunction_e>> FourierTransformPropertiesManager::windowFunction()
{
    return fourierOptions().windowFunction;
}

boost::shared_ptr<PropertyAbstract<FourierPlotDisplayType_e>> FourierTransformPropertiesManager::plotDisplay()
{
    return fourierOptions().plotDisplay;
}

boost::shared_ptr<PropertyAbstract<bool>> FourierTransformPropertiesManager::includeConjugates()
{
    return fourierOptions().includeConjugates;
}

boost::shared_ptr<PropertyAbstract<bool>> FourierTransformPropertiesManager::replaceLatestResultVars()
{
    return fourierOptions().replaceLatestResultVars;
}

boost::shared_ptr<PropertyAbstract<bool>> FourierTransformPropertiesManager::replaceLatestResultZones()
{
    return fourierOptions().replaceLatestResultZones;
}

boost::shared_ptr<PropertyAbstract<bool>> FourierTransformPropertiesManager::obeySourceZoneBlanking()
{
    return fourierOptions().obeySourceZoneBlanking;
}

} // namespace veldraw::sdk::ui::propertymanager
