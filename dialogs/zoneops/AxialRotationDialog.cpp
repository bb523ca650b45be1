#include "dialogs/zoneops/AxialRotationDialog.h"

#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/FieldPlotTypeDependentRelevance.h"
#include "dialogs/zoneops/AxialRotationBindings.h"
#include "ui_AxialRotationDialog.h"

#include <QPushButton>

#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::propertymanager::FieldPlotTypeDependentRelevance;
using sdk::ui::propertymanager::RelevanceInterface;

struct AxialRotationDialog::Impl
{
    explicit Impl(AxialRotationDialog& dialog);
    ~Impl();

    Ui::AxialRotationDialog ui;
    AxialRotationPropertiesManager manager;
    std::vector<std::unique_ptr<BindingInterface>> bindings;
};

AxialRotationDialog::Impl::Impl(AxialRotationDialog& dialog)
{
    ui.setupUi(&dialog);
    AxialRotationBindings<Ui::AxialRotationDialog> rotation(ui, manager, bindings);
    rotation.bind();
    QPushButton* const rotateButton = ui.buttonBox->addButton(QStringLiteral("&Rotate"), QDialogButtonBox::ActionRole);
    bindings.push_back(std::make_unique<ButtonBinding>(*rotateButton, [this] { manager.rotateZones(); }));
    bindings.push_back(rotation.applyCartesian3DRelevance());
}

AxialRotationDialog::Impl::~Impl()
{
    // In the order of their creation; the manager and the widgets are still
    // there.
    for (std::unique_ptr<BindingInterface>& binding : bindings)
        binding.reset();
}

AxialRotationDialog* AxialRotationDialog::s_instance = nullptr;

AxialRotationDialog& AxialRotationDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new AxialRotationDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> AxialRotationDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule =
        boost::make_shared<FieldPlotTypeDependentRelevance>();
    return rule;
}

AxialRotationDialog::AxialRotationDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::LaunchHelpAction(std::string("axial_rotation.html"), *this));
}

AxialRotationDialog::~AxialRotationDialog()
{
    // First of all, so that nobody is handed a dialog that is being torn down.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
