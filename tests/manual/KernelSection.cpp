#include "tests/manual/KernelSection.h"

#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/CheckButtonPropertyBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/models/ZoneListModelGroupableByStrand.h"
#include "kernel/data/DataSet.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include <boost/make_shared.hpp>

namespace veldraw::tests {

using namespace sdk::ui::dialogs::propertybindings;

namespace {

constexpr BindingInterface::ModelUpdateMode deferred = BindingInterface::ModelUpdateDeferredOnBusy;

kernel::Session& session()
{
    return kernel::Session::instance();
}

boost::shared_ptr<PropertyAbstract<std::set<int>>> selection(std::set<int> const& start)
{
    return boost::make_shared<Property<std::set<int>>>(start);
}

QListView* list()
{
    auto* const view = new QListView;
    view->setFixedHeight(104);
    return view;
}

kernel::NumberSet numbersOf(std::set<int> const& numbers)
{
    return {numbers.begin(), numbers.end()};
}

} // namespace

KernelSection::KernelSection()
    : GallerySection(QStringLiteral("Lists over the kernel"))
    , m_zones(selection({1, 3}))
    , m_variables(selection({3}))
    , m_newName(boost::make_shared<Property<std::string>>("Renamed"))
{
    addZones();
    addVariables();
    addActions();
}

void KernelSection::addZones()
{
    auto const zones = boost::make_shared<models::ZoneListModel>(sdk::getEnabledZonesForFrame, true);
    bind<ListViewPropertyBinding>(
        addRow(QStringLiteral("&Zones"), "zones", "ListViewPropertyBinding; a double click renames", list(), m_zones),
        zones, m_zones, deferred);

    boost::shared_ptr<PropertyAbstract<int>> const zone = boost::make_shared<Property<int>>(1);
    bind<ComboBoxPropertyBinding<int>>(addRow(QStringLiteral("One zone"), "zone",
                                              "ComboBoxPropertyBinding<int> over the same list", new QComboBox, zone),
                                       zones, zone, deferred);

    auto const groupable = boost::make_shared<models::ZoneListModelGroupableByStrand>();
    auto const grouped = groupable->groupByTimeStrand();
    bind<CheckButtonPropertyBinding>(addRow(QStringLiteral("Group"), "grouped", "CheckButtonPropertyBinding",
                                            new QCheckBox(QStringLiteral("One row a time &strand")), grouped),
                                     grouped, false);
    auto const groups = selection({});
    bind<ListViewPropertyBinding>(addRow(QStringLiteral("Grouped"), "groups",
                                         "ListViewPropertyBinding over ZoneListModelGroupableByStrand", list(), groups),
                                  groupable, groups, deferred);
}

void KernelSection::addVariables()
{
    auto const variables = boost::make_shared<models::EnabledVariablesListModel>(sdk::getEnabledVarsForFrame, false);
    bind<ListViewPropertyBinding>(
        addRow(QStringLiteral("&Variables"), "variables", "ListViewPropertyBinding", list(), m_variables), variables,
        m_variables, deferred);

    boost::shared_ptr<PropertyAbstract<int>> const variable = boost::make_shared<Property<int>>(4);
    bind<ComboBoxPropertyBinding<int>>(
        addRow(QStringLiteral("One variable"), "variable",
               "ComboBoxPropertyBinding<int>: goes to the first when its variable is deleted", new QComboBox, variable),
        variables, variable, deferred);
}

void KernelSection::addActions()
{
    bind<TextFieldPropertyBinding<std::string>>(addRow(QStringLiteral("New na&me"), "newName",
                                                       "TextFieldPropertyBinding<std::string>", new QLineEdit,
                                                       m_newName),
                                                m_newName);

    auto* const buttons = new QWidget;
    auto* const line = new QHBoxLayout(buttons);
    line->setContentsMargins(0, 4, 0, 0);
    addAction(line, "rename", "Rename zones", [this] { rename(); });
    addAction(line, "disable", "Disable zones", [this] { disableZones(); });
    addAction(line, "enableAll", "Enable all", [this] { enableAll(); });
    addWide(buttons);

    auto* const moreButtons = new QWidget;
    auto* const secondLine = new QHBoxLayout(moreButtons);
    secondLine->setContentsMargins(0, 0, 0, 0);
    addAction(secondLine, "duplicate", "Duplicate zones", [this] {
        session().perform(kernel::DuplicateZones(*session().activeDataSet(), numbersOf(m_zones->value())));
    });
    addAction(secondLine, "delete", "Delete variables", [this] {
        session().perform(kernel::DeleteVariables(*session().activeDataSet(), numbersOf(m_variables->value())));
    });
    addAction(secondLine, "undo", "Undo", [] { session().undo(); });
    addAction(secondLine, "redo", "Redo", [] { session().redo(); });
    addWide(moreButtons);
}

void KernelSection::addAction(QHBoxLayout* line, char const* name, char const* text,
                              std::function<void()> const& action)
{
    auto* const button = new QPushButton(QString::fromUtf8(text));
    button->setObjectName(QString::fromUtf8(name));
    button->setAutoDefault(false);
    line->addWidget(button);
    bind<ButtonBinding>(*button, action);
}

void KernelSection::rename()
{
    std::set<int> const zones = m_zones->value();
    for (int const zone : zones)
        session().perform(kernel::RenameZone(*session().activeDataSet(), zone, m_newName->value()));
}

void KernelSection::disableZones()
{
    std::set<int> const zones = m_zones->value(); // a zone that is disabled leaves the selection
    for (int const zone : zones)
        session().perform(kernel::EnableZone(*session().activeDataSet(), zone, false));
}

void KernelSection::enableAll()
{
    kernel::DataSet& dataSet = *session().activeDataSet();
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone)
        session().perform(kernel::EnableZone(dataSet, zone, true));
}

} // namespace veldraw::tests
