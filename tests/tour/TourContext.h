#pragma once

#include "app/import/reading/Deferral.h"
#include "app/window/MainWindow.h"
#include "kernel/data/DataSet.h"
#include "tests/tour/TourReport.h"
#include "tests/tour/UserDriver.h"

#include <QString>

#include <atomic>
#include <functional>

class QAction;
class QDialog;
class QImage;
class QLineEdit;
class QListView;
class QPushButton;

namespace veldraw::tests {

/// What the stations of the tour share: the window, the user's hands and eyes, the report.
class TourContext
{
public:
    /// @param openingDeferral which values the window loads with the files that it opens; stations may change it
    TourContext(app::MainWindow& mainWindow, QString const& pictureFolder, std::atomic<app::Deferral>& openingDeferral);

    app::MainWindow& window;
    UserDriver user;
    TourReport report;
    std::atomic<app::Deferral>& deferral;

    /// Notes a step with what was expected and what was found. @return true when both are equal
    bool check(char const* step, QString const& expected, QString const& found);
    bool check(char const* step, int expected, int found);
    bool check(char const* step, bool asExpected);

    /// Waits until @p found gives what is expected, and notes the step then, or when it is no use to wait any longer.
    template <typename Value, typename Found>
    bool expect(char const* step, Value const& expected, Found const& found);

    /// Waits until @p condition holds, in the same way.
    bool expectThat(char const* step, std::function<bool()> const& condition);

    /// Notes whether the one message that comes of pressing a dialog's button by the mouse, or of a key, is @p text.
    bool expectMessage(char const* step, QString const& text, QPushButton& button, QString const& picture = {});
    bool expectMessage(char const* step, QString const& text, int key, Qt::KeyboardModifiers modifiers);

    /// Notes whether @p condition comes to hold after pressing a dialog's button, or a key, and no message has come.
    bool expectSilence(char const* step, QPushButton& button, std::function<bool()> const& condition);
    bool expectSilence(char const* step, int key, Qt::KeyboardModifiers modifiers,
                       std::function<bool()> const& condition);

    /// Brings a window to the front and makes it the active one.
    void activate(QWidget& widget) { user.activate(widget); }

    /// Presses Alt+D and the mnemonic of an entry of the Data menu. @return the dialog that came, null if none did
    template <typename Dialog>
    Dialog* openDialog(int mnemonic);

    /// The button of @p dialog with exactly this text, mnemonic included.
    static QPushButton& button(QDialog& dialog, char const* text);
    static QListView& list(QDialog& dialog, char const* objectName);
    static int selectedRowCount(QListView const& list);

    /// Types a number into one of the dialog's boxes, over what stands there, and leaves the box by Tab.
    void enterNumber(QDialog& dialog, char const* objectName, QString const& number);

    /// Assigns a variable to an axis or a component of the vector in the "Plot" panel, by keys: Ctrl+4, Tab, arrows.
    /// @return false when it does not stand there afterwards
    bool assignVariable(char assignment, int variable);

    /// Presses Ctrl+S and types the name of a file, then Return. Returns when the file is saved, or not.
    void saveAs(QString const& file, QString const& picture = {});

    /// The same for any question for a file's name. @param ask brings the question up
    void nameFile(std::function<void()> const& ask, QString const& file, QString const& picture = {});

    /// The range of a variable as the dock shows it.
    QString shownRange(QString const& variable) const;

    /// What the plots look like now, and once nothing moves in them any more.
    QImage plot() const;
    QImage restingPlot();

    /// An entry of the menus by its object name, null if there is none.
    QAction* action(char const* objectName) const;

    /// The active frame's data set, which the tour has opened.
    static kernel::DataSet& dataSet();
    static QString variableNames();
    static QString zoneNames();

private:
    bool noteMessages(char const* step, QString const& expected, std::function<void()> const& action,
                      std::function<bool()> const& isDone, QString const& picture = {});
    static void typeOver(QLineEdit& field, QString const& text);
    void openDialogByKeys(int mnemonic, std::function<bool()> const& isThere);
};

template <typename Value, typename Found>
bool TourContext::expect(char const* step, Value const& expected, Found const& found)
{
    user.waitFor([&] { return found() == expected; });
    return check(step, expected, found());
}

template <typename Dialog>
Dialog* TourContext::openDialog(int mnemonic)
{
    openDialogByKeys(mnemonic, [] { return UserDriver::visibleWindow<Dialog>() != nullptr; });
    auto* const dialog = UserDriver::visibleWindow<Dialog>();
    if (dialog) {
        dialog->move(window.mapToGlobal(QPoint(620, 260)));
        activate(*dialog);
    }
    return dialog;
}

} // namespace veldraw::tests
