#include "dialogs/zoneops/CreateMirrorZoneDialog.h"

#include "dialogs/bindings/ActionOnSelection.h"
#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/RadioButtonPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/FieldPlotTypeDependentRelevance.h"
#include "dialogs/zoneops/CreateMirrorZonePropertiesManager.h"
#include "ui_CreateMirrorZoneDialog.h"

#include <QStackedLayout>

#include <boost/make_shared.hpp>

#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::ActionOnSelection;
using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::RadioButtonPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::propertymanager::CreateMirrorZonePropertiesManager;
using sdk::ui::propertymanager::FieldPlotTypeDependentRelevance;
using sdk::ui::propertymanager::RelevanceInterface;

struct CreateMirrorZoneDialog::Impl
{
    explicit Impl(CreateMirrorZoneDialog& dialog);

    void bindMirrorChoice(QAbstractButton* button, boost::shared_ptr<Property<char>> const& choice, char mirrorVar);
    void showPageWhile(boost::shared_ptr<RelevanceInterface const> const& rule, QWidget* page);

    Ui::CreateMirrorZone ui;
    CreateMirrorZonePropertiesManager manager;
    BindingList appliers;
    BindingList bindings;
};

CreateMirrorZoneDialog::Impl::Impl(CreateMirrorZoneDialog& dialog)
{
    ui.setupUi(&dialog);
    // The rules show and hide the pages; in this mode also a page that is not the current one fills its place.
    if (auto* const pages = qobject_cast<QStackedLayout*>(ui.createMirrorZone_Axis_Marker->layout()))
        pages->setStackingMode(QStackedLayout::StackAll);
    ActionOnSelection const choice{QStringLiteral("C&reate"), [this] { manager.createMirrorZones(); },
                                   manager.zonesListModel(), manager.sourceZones()};
    choice.bind(*ui.buttonBox, *ui.createMirrorZone_Source_MList, bindings);
    bindMirrorChoice(ui.createMirrorZone_Axis2DX_RadioButton, CreateMirrorZonePropertiesManager::mirrorVar2D(), 'Y');
    bindMirrorChoice(ui.createMirrorZone_Axis2DY_RadioButton, CreateMirrorZonePropertiesManager::mirrorVar2D(), 'X');
    bindMirrorChoice(ui.createMirrorZone_Axis3DXY_RadioButton, CreateMirrorZonePropertiesManager::mirrorVar3D(), 'Z');
    bindMirrorChoice(ui.createMirrorZone_Axis3DXZ_RadioButton, CreateMirrorZonePropertiesManager::mirrorVar3D(), 'Y');
    bindMirrorChoice(ui.createMirrorZone_Axis3DYZ_RadioButton, CreateMirrorZonePropertiesManager::mirrorVar3D(), 'X');
    showPageWhile(manager.is3DPlot(), ui.createMirrorZone_Axis3DObj_Outline);
    showPageWhile(manager.is2DPlot(), ui.createMirrorZone_Axis2DObj_Outline);
}

void CreateMirrorZoneDialog::Impl::bindMirrorChoice(QAbstractButton* button,
                                                    boost::shared_ptr<Property<char>> const& choice, char mirrorVar)
{
    bindings.add<RadioButtonPropertyBinding<char>>(button, choice, mirrorVar);
}

void CreateMirrorZoneDialog::Impl::showPageWhile(boost::shared_ptr<RelevanceInterface const> const& rule, QWidget* page)
{
    appliers.add<RelevanceApplier>(rule, page, RelevanceApplier::ShowHide, BindingInterface::UpdateOnIdle);
}

CreateMirrorZoneDialog* CreateMirrorZoneDialog::s_instance = nullptr;

CreateMirrorZoneDialog& CreateMirrorZoneDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new CreateMirrorZoneDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> CreateMirrorZoneDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule =
        boost::make_shared<FieldPlotTypeDependentRelevance>();
    return rule;
}

CreateMirrorZoneDialog::CreateMirrorZoneDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::LaunchHelpAction(std::string("create_zone_mirror.html"), *this));
}

CreateMirrorZoneDialog::~CreateMirrorZoneDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
