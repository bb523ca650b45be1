#include "dialogs/frame/QtDialogAbstract.h"
#include "dialogs/frame/TabWidgetLaunchHelpAction.h"
#include "dialogs/frame/TabWidgetPersistence.h"
#include "dialogs/property/SimpleBooleanRelevance.h"
#include "dialogs/widgets/IntegralSpinBox.h"
#include "dialogs/widgets/OverrideCursor.h"
#include "dialogs/widgets/QScientificSpinBox.h"
#include "dialogs/widgets/TableCopyHandler.h"
#include "dialogs/widgets/TableViewWithPreferredDimensions.h"
#include "platform/vdsdkuicommon/HelpLauncher.h"

#include <QApplication>
#include <QClipboard>
#include <QStandardItemModel>
#include <QTabWidget>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace veldraw::dialogs::common;

TEST(ExportedWidgets, AskForStepsInsteadOfStepping)
{
    veldraw::ui::QScientificSpinBox real;
    veldraw::ui::IntegralSpinBox whole;
    int steps = 0;
    real.connectIncrement([&steps](int count) { steps += count; });
    veldraw::ui::StepSignalSpinBox<QSpinBox>& base = whole;
    base.connectDecrement([&steps](int count) { steps += 10 * count; });
    real.stepBy(2);
    whole.stepBy(-3);
    EXPECT_EQ(steps, 32);
    EXPECT_TRUE(static_cast<QObject&>(real).inherits("veldraw::ui::QScientificSpinBox"));
}

TEST(ExportedWidgets, CopyTablesOfAPreferredSize)
{
    QStandardItemModel model(2, 1);
    model.setItem(0, 0, new QStandardItem(QStringLiteral("a")));
    model.setItem(1, 0, new QStandardItem(QStringLiteral("b")));
    TableViewWithPreferredDimensions table;
    QSize const plain = table.sizeHint();
    table.setModel(&model);
    table.setPreferredNumberOfRows(20);
    table.setPreferredNumberOfColumns(4);
    EXPECT_GT(table.sizeHint().height(), plain.height());
    table.selectAll();
    auto* const copy = new veldraw::ui::TableCopyHandler(&table);
    copy->copyToClipboard();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("a\nb"));
}

TEST(ExportedWidgets, ShowACursorForAScope)
{
    {
        veldraw::ui::OverrideCursor const busy(Qt::WaitCursor);
        ASSERT_TRUE(QApplication::overrideCursor());
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST(ExportedFrame, KeepsStatesOfTheApplication)
{
    class Own : public QtDialogAbstract
    {
    public:
        Own(QWidget& parent, boost::shared_ptr<veldraw::common::SerializerInterface> const& state)
            : QtDialogAbstract(parent, boost::make_shared<sdk::ui::propertymanager::SimpleBooleanRelevance>(true))
        {
            addPersistentState(state);
        }
    };
    struct State : veldraw::common::SerializerInterface
    {
        void save() const override { told += "save "; }
        void restore() const override { told += "restore "; }
        mutable std::string told;
    };
    auto const state = boost::make_shared<State>();
    QWidget window;
    Own own(window, state);
    own.launch();
    own.drop();
    EXPECT_EQ(state->told, "restore save ");
}

TEST(ExportedFrame, IsABaseForDialogsOfTheApplication)
{
    class Own : public QtDialogAbstract
    {
    public:
        explicit Own(QWidget& parent)
            : QtDialogAbstract(parent, boost::make_shared<sdk::ui::propertymanager::SimpleBooleanRelevance>(true))
        {
            addPersistentState(boost::make_shared<TabWidgetPersistence>(tabs));
        }
        QTabWidget tabs;
    };
    QWidget window;
    Own own(window);
    auto* const page = new QWidget;
    own.tabs.addTab(page, QStringLiteral("Page"));
    own.setHelpAction(new TabWidgetLaunchHelpAction({{page, "page.html"}}, &own.tabs, own));
    DialogInterface& dialog = own;
    dialog.launch();
    EXPECT_TRUE(own.isVisible());
    dialog.updateContent();
    dialog.drop();
    EXPECT_FALSE(own.isVisible());
    own.tabs.setParent(nullptr);
}

TEST(ExportedFrame, LaunchesHelp)
{
    QObject owner;
    std::string asked;
    sdk::ui::common::HelpLauncher::install([&asked](std::string const& topic) { asked = topic; });
    LaunchHelpAction* const help = new LaunchHelpAction("topic.html", owner);
    help->trigger();
    sdk::ui::common::HelpLauncher::install({});
    EXPECT_EQ(asked, "topic.html");
}

} // namespace
} // namespace veldraw::tests
