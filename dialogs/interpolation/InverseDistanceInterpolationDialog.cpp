#include "dialogs/interpolation/InverseDistanceInterpolationDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesGenerated.h"
#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesManager.h"
#include "dialogs/property/StateChangeDependentRelevance.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"
#include "ui_InverseDistanceInterpolationDialog.h"

#include <QPushButton>

#include <boost/make_shared.hpp>

#include <set>
#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::TextFieldPropertyBinding;
using sdk::ui::propertymanager::InverseDistanceInterpolationPropertiesGenerated;
using sdk::ui::propertymanager::RelevanceInterface;
using sdk::ui::propertymanager::StateChangeDependentRelevance;

namespace {

bool isInterpolationStateChange(toolbox::StateChangeEventInterface const& event)
{
    bool const isPlotType =
        event.kind() == StateChange_Style && event.hasStyleParam(1) && event.styleParam(1) == "PlotType";
    return isPlotType || sdk::ui::common::isDataRelatedStateChange(event);
}

} // namespace

struct InverseDistanceInterpolationDialog::Impl
{
    explicit Impl(InverseDistanceInterpolationDialog& dialog);

    static Ui::InverseDistanceInterpolation setUp(QDialog& dialog);
    void bindSelections();
    void bindNumbers();

    Ui::InverseDistanceInterpolation ui;
    // Before the manager, whose rule follows one of these properties and so has to end first.
    InverseDistanceInterpolationPropertiesGenerated generated;
    InverseDistanceInterpolationPropertiesManager manager;
    BindingList bindings;
};

InverseDistanceInterpolationDialog::Impl::Impl(InverseDistanceInterpolationDialog& dialog)
    : ui(setUp(dialog))
    , generated(dialog.isModal(), toolbox::StringList())
    , manager(generated)
{
    QPushButton* const interpolateButton =
        ui.buttonBox->addButton(QStringLiteral("&Interpolate"), QDialogButtonBox::ActionRole);
    bindSelections();
    bindNumbers();
    bindings.add<ButtonBinding>(*interpolateButton, [this] { manager.interpolate(); });
    bindings.add<RelevanceApplier>(manager.numPointsRelevance(), ui.invDistInterp_NumPoints_1Text,
                                   ui.invDistInterp_NumPoints_Label, RelevanceApplier::EnableDisable,
                                   BindingInterface::UpdateOnIdle);
}

Ui::InverseDistanceInterpolation InverseDistanceInterpolationDialog::Impl::setUp(QDialog& dialog)
{
    Ui::InverseDistanceInterpolation form;
    form.setupUi(&dialog);
    return form;
}

void InverseDistanceInterpolationDialog::Impl::bindSelections()
{
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const sourceZones = manager.sourceZones();
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const variables = manager.variables();
    bindings.add<ListViewPropertyBinding>(ui.invDistInterp_Source_MList, manager.zoneModel(), sourceZones,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ListViewPropertyBinding>(ui.invDistInterp_Variable_MList, manager.variablesModel(), variables,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ComboBoxPropertyBinding<int>>(ui.invDistInterp_DestZone_CmbBox, manager.zoneModel(),
                                               manager.destinationZone(), BindingInterface::ModelUpdateDeferredOnBusy);
}

void InverseDistanceInterpolationDialog::Impl::bindNumbers()
{
    bindings.add<TextFieldPropertyBinding<double>>(ui.invDistInterp_MinDist_1Text, generated.invDistMinRadius());
    bindings.add<TextFieldPropertyBinding<double>>(ui.invDistInterp_Exponent_1Text, generated.invDistExponent());
    bindings.add<ComboBoxPropertyBinding<PtSelection_e>>(ui.invDistInterp_PtSelect_CmbBox, manager.ptSelectionModel(),
                                                         generated.interpPtSelection(),
                                                         BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<TextFieldPropertyBinding<long long>>(ui.invDistInterp_NumPoints_1Text, generated.interpNPoints());
}

InverseDistanceInterpolationDialog* InverseDistanceInterpolationDialog::s_instance = nullptr;

InverseDistanceInterpolationDialog& InverseDistanceInterpolationDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new InverseDistanceInterpolationDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> InverseDistanceInterpolationDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule =
        boost::make_shared<StateChangeDependentRelevance>(&isInterpolationStateChange, &sdk::isOkToInterpolate);
    return rule;
}

InverseDistanceInterpolationDialog::InverseDistanceInterpolationDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::LaunchHelpAction(std::string("interpolate_inverse_distance.html"), *this));
}

InverseDistanceInterpolationDialog::~InverseDistanceInterpolationDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
