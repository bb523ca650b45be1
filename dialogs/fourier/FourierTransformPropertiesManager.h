#pragma once

#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/vdsdkbase/VelUtilTypes.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/shared_ptr.hpp>

#include <set>

namespace veldraw::sdk::ui::propertymanager {

/// The logic of the discrete Fourier transform: of which variables in which zones, with which window, what becomes of earlier
/// results and where the plot of the new ones goes, and the operation itself. No widget is needed for it:
///
///     FourierTransformPropertiesManager fourier;
///     fourier.independentVariable()->setValue(1);
///     fourier.dependentVariables()->setValue({2, 3});
///     fourier.sourceZones()->setValue({1});
///     FourierTransformPropertiesManager::windowFunction()->setValue(WindowFunction_Hann);
///     if (fourier.transformButtonRelevance()->isRelevant())
///         fourier.transform();
///
/// The six options belong to the process: whoever sets one sets it for every manager, until the process ends. The three selections
/// are each manager's own. No property refuses a value; whether the choices can run is for `transformButtonRelevance()` to tell.
class VDSDKDIALOGS_DATA_QT_API FourierTransformPropertiesManager
{
public:
    template <typename T>
    using ListModel = dialogs::propertybindings::models::ListModelInterface<T>;
    using Rule = boost::shared_ptr<RelevanceInterface const>;

    FourierTransformPropertiesManager();
    virtual ~FourierTransformPropertiesManager();
    FourierTransformPropertiesManager(FourierTransformPropertiesManager const&) = delete;
    FourierTransformPropertiesManager& operator=(FourierTransformPropertiesManager const&) = delete;

    /// True while the active frame has an enabled zone that can be transformed. Always the same rule.
    static Rule relevance();

    /// Transforms, and shows amplitudes over frequencies in the results frame of the data set, which is made if there is none. The
    /// active frame stays active. A failure is told to the user in a message; a success is seen. It checks nothing itself.
    ///
    /// The independent variable is never transformed, though it may be among the dependent ones. Selections and options stay as
    /// they are.
    void transform() const;

    // ---- each manager's own ----------------------------------------------------------------------------------------
    /// Number of the variable along which the others are transformed, mostly the time, from 1; 1 at first.
    boost::shared_ptr<PropertyAbstract<int>> independentVariable() const;
    /// Numbers of the variables to transform, from 1; empty at first.
    boost::shared_ptr<PropertyAbstract<std::set<int>>> dependentVariables() const;
    /// Numbers of the zones to transform them in, from 1; empty at first.
    boost::shared_ptr<PropertyAbstract<std::set<int>>> sourceZones() const;
    /// The enabled variables of the current frame's data set.
    boost::shared_ptr<ListModel<int> const> variableModel() const;
    /// Its enabled zones that can be transformed.
    boost::shared_ptr<ListModel<int> const> sourceZonesModel() const;
    boost::shared_ptr<ListModel<WindowFunction_e> const> windowFunctionModel() const;
    boost::shared_ptr<ListModel<FourierPlotDisplayType_e> const> plotDisplayModel() const;
    /// True while the selections can be transformed.
    Rule transformButtonRelevance() const;

    // ---- shared by all managers ------------------------------------------------------------------------------------
    /// By which window the signals are weighted; the rectangular one at first.
    static boost::shared_ptr<PropertyAbstract<WindowFunction_e>> windowFunction();
    /// Where the results frame goes; over a corner of the source frame at first.
    static boost::shared_ptr<PropertyAbstract<FourierPlotDisplayType_e>> plotDisplay();
    /// Whether negative frequencies are among the results; false at first.
    static boost::shared_ptr<PropertyAbstract<bool>> includeConjugates();
    /// Whether variables of earlier results are replaced; true at first.
    static boost::shared_ptr<PropertyAbstract<bool>> replaceLatestResultVars();
    /// Whether zones of earlier results are replaced; true at first.
    static boost::shared_ptr<PropertyAbstract<bool>> replaceLatestResultZones();
    /// Whether hidden points are left out of the signals; false at first.
    static boost::shared_ptr<PropertyAbstract<bool>> obeySourceZoneBlanking();

private:
    bool buildFourierResultsFrame(toolbox::Set const& resultZones, toolbox::Set const& resultVars) const;

    boost::shared_ptr<Property<int>> m_independentVariable;
    boost::shared_ptr<Property<std::set<int>>> m_dependentVariables;
    boost::shared_ptr<Property<std::set<int>>> m_sourceZones;
    boost::shared_ptr<dialogs::propertybindings::models::EnabledVariablesListModel> m_variableModel;
    boost::shared_ptr<dialogs::propertybindings::models::PremappedListModel<WindowFunction_e>> m_windowFunctionModel;
    boost::shared_ptr<dialogs::propertybindings::models::ZoneListModel> m_sourceZonesModel;
    boost::shared_ptr<dialogs::propertybindings::models::PremappedListModel<FourierPlotDisplayType_e>>
        m_plotDisplayModel;
    Rule m_transformButtonRelevance;
};

} // namespace veldraw::sdk::ui::propertymanager
