#include "dialogs/zoneops/DuplicateZoneDialog.h"

#include "dialogs/bindings/ActionOnSelection.h"
#include "dialogs/bindings/BindingList.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/DataSetExistsRelevance.h"
#include "dialogs/zoneops/DuplicateZonePropertiesManager.h"
#include "ui_DuplicateZoneDialog.h"

#include <boost/make_shared.hpp>

#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::ActionOnSelection;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::propertymanager::DataSetExistsRelevance;
using sdk::ui::propertymanager::DuplicateZonePropertiesManager;
using sdk::ui::propertymanager::RelevanceInterface;

struct DuplicateZoneDialog::Impl
{
    explicit Impl(DuplicateZoneDialog& dialog);

    Ui::DuplicateZone ui;
    DuplicateZonePropertiesManager manager;
    BindingList bindings;
};

DuplicateZoneDialog::Impl::Impl(DuplicateZoneDialog& dialog)
{
    ui.setupUi(&dialog);
    ActionOnSelection const choice{QStringLiteral("C&reate"), [this] { manager.createDuplicateZones(); },
                                   manager.zonesListModel(), manager.sourceZones()};
    choice.bind(*ui.buttonBox, *ui.duplicateZone_Source_MList, bindings);
}

DuplicateZoneDialog* DuplicateZoneDialog::s_instance = nullptr;

DuplicateZoneDialog& DuplicateZoneDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new DuplicateZoneDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> DuplicateZoneDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule = boost::make_shared<DataSetExistsRelevance>();
    return rule;
}

DuplicateZoneDialog::DuplicateZoneDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::LaunchHelpAction(std::string("create_zone_duplicate.html"), *this));
}

DuplicateZoneDialog::~DuplicateZoneDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
