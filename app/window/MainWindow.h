#pragma once

#include "app/window/AssignmentDialog.h"
#include "app/window/CentralView.h"
#include "app/window/DocumentController.h"
#include "app/window/FrameActions.h"
#include "app/window/OperationWaiter.h"
#include "app/window/SessionFollower.h"
#include "app/window/UndoActions.h"

#include <QMainWindow>

#include <memory>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings {
class RelevanceApplier;
}

namespace veldraw::app {

class AssignmentPanel;
class DataPanel;
class HelpViewer;
class MessagePanel;
class NumberChooser;
struct DataOperation;

/// The application's window: menus, tool bar, the page in the middle, docks with data, plot and messages, status bar.
///
/// The window only puts things together; what they do stands in their own classes. Geometry and docks are kept in the
/// user's settings. Objects have names, so that tests and the tour find them.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @param session must outlive the window; @param view goes into the middle
    MainWindow(kernel::Session& session, CentralView view, ImportJob::Reader reader);
    ~MainWindow() override;

    DocumentController& documents() { return *m_documents; }
    HelpViewer& helpViewer();

    /// Opens files and tells the outcome as the menu does.
    bool openFiles(QStringList const& paths, DocumentController::Place place);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QAction* makeAction(char const* name, QIcon const& icon, QString const& text,
                        std::function<void()> const& function);
    void makeFileMenu();
    void makeEditMenu();
    void makeFrameMenu();
    void makePlotMenu();
    void makeDataMenu();
    void openOperation(DataOperation const& operation);
    void makeViewMenu();
    void makeHelpMenu();
    void makeToolBar();
    void makeDocks();
    QDockWidget* addDock(char const* name, QString const& title, QWidget& content, Qt::DockWidgetArea area);
    void addFocusAction(QMenu& menu, char const* name, QString const& text, int key, QDockWidget& dock,
                        std::function<void()> const& takeFocus);
    void connectParts();
    void fillRecentMenu();
    void refresh();
    void refreshTitle();
    void chooseContour(int variable);
    void assignVariables(AssignmentDialog::Kind kind);
    void tell(QString const& text);
    void tellPicks();
    void tellRefusal();
    void showAbout();
    void restoreLayout();
    void keepLayout();

    kernel::Session& m_session;
    CentralView m_view;
    std::unique_ptr<DocumentController> m_documents;
    UndoActions m_undo;
    FrameActions m_frames;
    AssignmentPanel* m_assignmentPanel = nullptr;
    DataPanel* m_dataPanel = nullptr;
    MessagePanel* m_messagePanel = nullptr;
    NumberChooser* m_contourChooser = nullptr;
    QMenu* m_recentMenu = nullptr;
    QDockWidget* m_dataDock = nullptr;
    QDockWidget* m_plotDock = nullptr;
    QDockWidget* m_messageDock = nullptr;
    QAction* m_open = nullptr;
    QAction* m_openInNewFrame = nullptr;
    QAction* m_saveAs = nullptr;
    QAction* m_savePicture = nullptr;
    QAction* m_fit = nullptr;
    QAction* m_fitAll = nullptr;
    QAction* m_assignAxes = nullptr;
    QAction* m_assignVector = nullptr;
    std::vector<kernel::UniqueId> m_toldPicks; // what the status bar has told last
    std::vector<std::unique_ptr<sdk::ui::dialogs::propertybindings::RelevanceApplier>> m_appliers;
    std::unique_ptr<HelpViewer> m_helpViewer;
    OperationWaiter m_waiter;
    SessionFollower m_follower;
};

} // namespace veldraw::app
