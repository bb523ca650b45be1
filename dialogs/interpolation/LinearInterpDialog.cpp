#include "dialogs/interpolation/LinearInterpDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/InstalledValidator.h"
#include "dialogs/bindings/LabelPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RadioButtonPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/interpolation/LinearInterpPropertiesManager.h"
#include "dialogs/property/StateChangeDependentRelevance.h"
#include "dialogs/widgets/NumberValidators.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilPage.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"
#include "ui_LinearInterpDialog.h"

#include <QPushButton>

#include <boost/make_shared.hpp>

#include <set>
#include <string>

namespace veldraw::dialogs::data {

using sdk::AppLock;
using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::LabelPropertyBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::dialogs::propertybindings::RadioButtonPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::TextFieldPropertyBinding;
using sdk::ui::propertymanager::RelevanceInterface;
using sdk::ui::propertymanager::StateChangeDependentRelevance;

namespace {

bool isLinearInterpStateChange(toolbox::StateChangeEventInterface const& event)
{
    if (event.kind() == StateChange_Style && event.hasStyleParam(1)) {
        std::string const name = event.styleParam(1);
        if (name == "PlotType" || name == "ActiveFieldMaps")
            return true;
    }
    return sdk::ui::common::isDataRelatedStateChange(event);
}

/// The data set is asked for first, unlike in currentFrameShowsFieldPlot().
bool showsDataInFieldPlot()
{
    if (!VelUtilDataSetIsAvailable() || VelUtilPageGetCount() <= 0 || VelUtilFrameGetCount() <= 0)
        return false;
    int const plotType = VelUtilFrameGetPlotType();
    return plotType == PlotType_Cartesian3D || plotType == PlotType_Cartesian2D;
}

bool isOkToLinearInterpolate()
{
    if (!showsDataInFieldPlot())
        return false;
    AppLock const lock(AppLock::RecordAsUsual);
    return !sdk::getNonSpatialEnabledVars().isEmpty() && !sdk::getNonLinearEnabledZones().isEmpty() &&
           sdk::getEnabledZones().size() > 1;
}

} // namespace

struct LinearInterpDialog::Impl
{
    explicit Impl(LinearInterpDialog& dialog);

    void bindSelections();
    void bindOutsidePoints();

    Ui::LinearInterpDialogClass ui;
    LinearInterpPropertiesManager manager;
    BindingList bindings;
};

LinearInterpDialog::Impl::Impl(LinearInterpDialog& dialog)
{
    ui.setupUi(&dialog);
    QPushButton* const interpolateButton =
        ui.buttonBox->addButton(QStringLiteral("&Interpolate"), QDialogButtonBox::ActionRole);
    bindSelections();
    bindOutsidePoints();
    bindings.add<ButtonBinding>(*interpolateButton, [this] { manager.interpolate(); });
    bindings.add<RelevanceApplier>(manager.constantRelevance(), ui.LinearIterp_ConstValue_Label,
                                   ui.LinearIterp_ConstValue_LineEdit, RelevanceApplier::EnableDisable,
                                   BindingInterface::UpdateOnIdle);
}

void LinearInterpDialog::Impl::bindSelections()
{
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const sourceZones = manager.sourceZones();
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const variables = manager.variables();
    bindings.add<ListViewPropertyBinding>(ui.LinearIterp_SourceZones_ListView, manager.sourceZonesModel(), sourceZones,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ListViewPropertyBinding>(ui.LinearIterp_SourceVariables_ListView, manager.variablesModel(), variables,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ComboBoxPropertyBinding<int>>(ui.LinearIterp_DestZone_ComboBox, manager.destinationZoneModel(),
                                               manager.destinationZone(), BindingInterface::ModelUpdateDeferredOnBusy);
}

void LinearInterpDialog::Impl::bindOutsidePoints()
{
    using ModeButton = RadioButtonPropertyBinding<LinearInterpMode_e>;
    auto const mode = LinearInterpPropertiesManager::linearInterpMode();
    bindings.add<ModeButton>(ui.LinearIterp_Constant_RadioButton, mode, LinearInterpMode_SetToConstant);
    bindings.add<ModeButton>(ui.LinearIterp_NoChange_RadioButton, mode, LinearInterpMode_DontChange);
    // A validator of the dialog's own: bindings leave it alone.
    auto* const validator = new veldraw::ui::NumberValidator(ui.LinearIterp_ConstValue_LineEdit);
    validator->setLocale(sdk::ui::dialogs::propertybindings::localeOfTypedNumbers());
    ui.LinearIterp_ConstValue_LineEdit->setValidator(validator);
    bindings.add<TextFieldPropertyBinding<double>>(ui.LinearIterp_ConstValue_LineEdit,
                                                   LinearInterpPropertiesManager::outsidePointValue());
    // The binding writes the text at once and would leave the label blank.
    manager.constantValueLabelText()->setValue(ui.LinearIterp_ConstValue_Label->text().toStdString());
    bindings.add<LabelPropertyBinding>(ui.LinearIterp_ConstValue_Label, manager.constantValueLabelText(),
                                       BindingInterface::UpdateOnIdle);
}

LinearInterpDialog* LinearInterpDialog::s_instance = nullptr;

LinearInterpDialog& LinearInterpDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new LinearInterpDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> LinearInterpDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule =
        boost::make_shared<StateChangeDependentRelevance>(&isLinearInterpStateChange, &isOkToLinearInterpolate);
    return rule;
}

LinearInterpDialog::LinearInterpDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::LaunchHelpAction(std::string("interpolate_linear.html"), *this));
}

LinearInterpDialog::~LinearInterpDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
