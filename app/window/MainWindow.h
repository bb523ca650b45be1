#pragma once

#include "app/window/CentralView.h"
#include "app/window/DataActions.h"
#include "app/window/DocumentController.h"
#include "app/window/FileActions.h"
#include "app/window/FrameActions.h"
#include "app/window/OperationWaiter.h"
#include "app/window/PlotActions.h"
#include "app/window/RecoveryActions.h"
#include "app/window/ScriptActions.h"
#include "app/window/SessionFollower.h"
#include "app/window/UndoActions.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <QMainWindow>

#include <memory>
#include <vector>

namespace veldraw::app {

class HelpViewer;
class MainDocks;

/// The application's window: menus, tool bar, the page in the middle, docks with data, plot and messages, status bar.
///
/// This class puts the parts together and tells in the status bar what happens. It does no work of its own:
///
/// | part | class |
/// |---|---|
/// | commands of the menus | FileActions, UndoActions, FrameActions, PlotActions, DataActions |
/// | unsaved work on the disk | RecoveryActions |
/// | opening, saving, questions about unsaved changes | DocumentController |
/// | docks around the page | MainDocks |
/// | waiting for long operations | OperationWaiter |
///
/// The user's settings keep the geometry and the arrangement of the docks. All widgets and actions have object names, by
/// which tests and the tour find them.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @param session must outlive the window
    /// @param view the widget in the middle, with what the window asks of it
    /// @param reader reads the files that the user opens
    MainWindow(kernel::Session& session, CentralView view, DocumentController::FileReader reader);
    ~MainWindow() override;

    DocumentController& documents() { return *m_documents; }
    HelpViewer& helpViewer();

    /// Opens files and tells the outcome in the status bar. @return false when nothing was opened
    bool openFiles(QStringList const& paths, DocumentController::Place place);

    /// From now on keeps unsaved work in a folder, from which a crash does not take it.
    void keepRecovery(QString const& folder);

    /// Offers what an earlier run has left there. @return whether something was recovered
    bool offerRecovery();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QMenu& addMenu(char const* name, QString const& title);
    void makeMenus();
    void makePlotMenu();
    void showPageMenu(QPoint const& position, int zone);
    void makeViewMenu();
    void makeHelpMenu();
    void makeToolBar();
    void connectParts();
    void refresh();
    void fitScreen();
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
    FileActions m_files;
    PlotActions m_plots;
    ScriptActions m_scripts;
    DataActions m_operations;
    MainDocks* m_docks = nullptr;
    QMenu* m_frameMenu = nullptr;
    QMenu* m_plotMenu = nullptr;
    std::vector<kernel::UniqueId> m_toldPicks; // that the status bar named last
    std::unique_ptr<HelpViewer> m_helpViewer;
    std::unique_ptr<RecoveryActions> m_recovery; // none where none is wanted
    OperationWaiter m_waiter;
    SessionFollower m_follower;
    sdk::SignalConnectionCollection m_connections;
};

} // namespace veldraw::app
