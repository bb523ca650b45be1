#include "dialogs/zoneops/AxialRotationDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/FieldPlotTypeDependentRelevance.h"
#include "dialogs/zoneops/AxialRotationBindings.h"
#include "ui_AxialRotationDialog.h"

#include <QPushButton>

#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::propertymanager::FieldPlotTypeDependentRelevance;
using sdk::ui::propertymanager::RelevanceInterface;

struct AxialRotationDialog::Impl
{
    explicit Impl(AxialRotationDialog& dialog);

    Ui::AxialRotationDialog ui;
    AxialRotationPropertiesManager manager;
    BindingList bindings;
};

AxialRotationDialog::Impl::Impl(AxialRotationDialog& dialog)
{
    ui.setupUi(&dialog);
    AxialRotationBindings<Ui::AxialRotationDialog> rotation(ui, manager, bindings);
    rotation.bind();
    QPushButton* const rotateButton = ui.buttonBox->addButton(QStringLiteral("&Rotate"), QDialogButtonBox::ActionRole);
    bindings.add<ButtonBinding>(*rotateButton, [this] { manager.rotateZones(); });
    bindings.adopt(rotation.applyCartesian3DRelevance());
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
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
