#include "tests/tour/DeleteVariableStation.h"

#include "app/window/HelpViewer.h"
#include "dialogs/variableops/DeleteVariableDialog.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>

namespace veldraw::tests {

using namespace app;

using dialogs::data::DeleteVariableDialog;

namespace {

constexpr char const* variableListName = "deleteVariable_Select_MList";

} // namespace

DeleteVariableStation::DeleteVariableStation(TourContext& context)
    : m_tour(context)
    , m_namesAtStart(TourContext::variableNames())
{
}

void DeleteVariableStation::run()
{
    if (!m_tour.check("Alt+D, D opens Delete Variable", m_tour.openDialog<DeleteVariableDialog>(Qt::Key_D) != nullptr))
        return;
    deleteByMouse();
    undoAndRedo();
    tryWhatIsRefused();
    deleteByKeyboard();
    askForHelp();
}

void DeleteVariableStation::deleteByMouse()
{
    auto& dialog = *UserDriver::visibleWindow<DeleteVariableDialog>();
    QListView& list = TourContext::list(dialog, variableListName);
    m_tour.check("window title", QStringLiteral("Delete Variable"), dialog.windowTitle());
    int const before = TourContext::dataSet().variableCount();
    m_tour.user.clickRow(list, before - 1);
    m_tour.user.clickRow(list, before - 2);
    m_tour.user.picture(QStringLiteral("delete-variable-selected"));
    m_tour.expectMessage("two variables clicked, \"Delete\" clicked: the message",
                         QStringLiteral("Variable deletion successful"), TourContext::button(dialog, "&Delete"),
                         QStringLiteral("delete-variable-told"));
    m_tour.check("two variables fewer in the data set", before - 2, TourContext::dataSet().variableCount());
    m_tour.expect("two rows fewer in the list", before - 2, [&] { return list.model()->rowCount(); });
    m_tour.expect("the dialog stays open with nothing selected", 0,
                  [&] { return TourContext::selectedRowCount(list); });
    m_tour.user.picture(QStringLiteral("delete-variable-done"));
}

void DeleteVariableStation::undoAndRedo()
{
    int const fewer = TourContext::dataSet().variableCount();
    QListView const& list = TourContext::list(*UserDriver::visibleWindow<DeleteVariableDialog>(), variableListName);
    m_tour.activate(m_tour.window);
    QAction const* const undo = m_tour.action("undoAction");
    m_tour.expect("the Edit menu names the step", QStringLiteral("&Undo Delete Variable"),
                  [&] { return undo ? undo->text() : QString(); });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("Ctrl+Z brings the variables back", m_namesAtStart, &TourContext::variableNames);
    m_tour.expect("the dialog lists them again", fewer + 2, [&] { return list.model()->rowCount(); });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    m_tour.expect("Ctrl+Shift+Z deletes them again", fewer, [] { return TourContext::dataSet().variableCount(); });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.user.waitFor([&] { return list.model()->rowCount() == fewer + 2; });
}

void DeleteVariableStation::tryWhatIsRefused()
{
    auto& dialog = *UserDriver::visibleWindow<DeleteVariableDialog>();
    QPushButton& deleteButton = TourContext::button(dialog, "&Delete");
    m_tour.activate(dialog);
    m_tour.expectMessage("nothing selected: the message", QStringLiteral("No variables are selected"), deleteButton);
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_S, Qt::AltModifier);
    m_tour.user.key(Qt::Key_A, Qt::ControlModifier);
    m_tour.expect("Alt+S, Ctrl+A selects everything", TourContext::dataSet().variableCount(),
                  [&] { return TourContext::selectedRowCount(TourContext::list(dialog, variableListName)); });
    m_tour.expectMessage("everything selected: the message",
                         QStringLiteral("Cannot delete the last variable in a data set."), deleteButton,
                         QStringLiteral("delete-variable-refused"));
    m_tour.check("refusals change nothing", m_namesAtStart, TourContext::variableNames());
    m_tour.user.click(*dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close));
    m_tour.expectThat("Close takes the dialog off the screen", [&] { return !dialog.isVisible(); });
}

void DeleteVariableStation::deleteByKeyboard()
{
    int const before = TourContext::dataSet().variableCount();
    auto* const dialog = m_tour.openDialog<DeleteVariableDialog>(Qt::Key_D);
    if (!m_tour.check("the keys open the dialog again", dialog != nullptr))
        return;
    QListView const& list = TourContext::list(*dialog, variableListName);
    m_tour.user.key(Qt::Key_S, Qt::AltModifier);
    // Everything is still selected from before; Space takes one variable after the other out again.
    m_tour.user.key(Qt::Key_Home);
    for (int row = 0; row < before - 1; ++row) {
        m_tour.user.key(Qt::Key_Space);
        m_tour.user.key(Qt::Key_Down);
    }
    m_tour.expect("Space and Down leave the last variable selected", 1,
                  [&] { return TourContext::selectedRowCount(list); });
    m_tour.expectMessage("Alt+D deletes it: the message", QStringLiteral("Variable deletion successful"), Qt::Key_D,
                         Qt::AltModifier);
    m_tour.check("one variable fewer", before - 1, TourContext::dataSet().variableCount());
}

void DeleteVariableStation::askForHelp()
{
    auto* const dialog = UserDriver::visibleWindow<DeleteVariableDialog>();
    if (!dialog)
        return;
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_F1);
    m_tour.user.waitFor([] { return UserDriver::visibleWindow<HelpViewer>() != nullptr; });
    auto* const viewer = UserDriver::visibleWindow<HelpViewer>();
    if (m_tour.check("F1 opens the help viewer", viewer != nullptr)) {
        m_tour.user.picture(QStringLiteral("help"));
        viewer->close();
    }
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the dialog", [&] { return !dialog->isVisible(); });
}

} // namespace veldraw::tests
