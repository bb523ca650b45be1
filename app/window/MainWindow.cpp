#include "app/window/MainWindow.h"

#include "app/window/DataDescription.h"
#include "app/window/DataSetStatus.h"
#include "app/window/HelpViewer.h"
#include "app/window/Icons.h"
#include "app/window/JournalPanel.h"
#include "app/window/MainDocks.h"
#include "app/window/NewAction.h"
#include "app/window/NumberChooser.h"
#include "app/window/PageMenu.h"
#include "app/window/StatusBar.h"
#include "app/window/WindowTitle.h"
#include "host/MessageLog.h"
#include "host/MessagePresenter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/HelpLauncher.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QToolBar>

namespace veldraw::app {

namespace {

QString const geometryKey = QStringLiteral("window/geometry");
constexpr int stateVersion = 1;
constexpr int statusTime = 8000; // milliseconds
constexpr QSize usualSize(1360, 880);
constexpr QSize roomForFrame(16, 48); // border and title bar, which nobody knows before they are there
PlotType_e const plotTypes[] = {PlotType_Cartesian3D, PlotType_Cartesian2D, PlotType_XYLine, PlotType_Sketch};

QStringList localFiles(QMimeData const& data)
{
    QStringList paths;
    for (QUrl const& url : data.urls())
        if (url.isLocalFile())
            paths.push_back(url.toLocalFile());
    return paths;
}

} // namespace

MainWindow::MainWindow(kernel::Session& session, CentralView view, DocumentController::FileReader reader)
    : m_session(session)
    , m_view(std::move(view))
    , m_documents(std::make_unique<DocumentController>(session, *this, std::move(reader)))
    , m_undo(session, this)
    , m_frames(session, this)
    , m_files(session, *m_documents, m_view, *this)
    , m_plots(session, m_view, *this)
    , m_scripts(session, *m_documents, m_view, *this)
    , m_operations(*this)
    , m_waiter(session, *this)
    , m_follower(session, [this] { refresh(); })
{
    m_session.setWaiter(&m_waiter);
    setObjectName(QStringLiteral("mainWindow"));
    setWindowIcon(applicationIcon());
    setAcceptDrops(true);
    setCentralWidget(m_view.widget);
    setStatusBar(new StatusBar);
    resize(usualSize);
    fitScreen();
    m_docks = new MainDocks(session, *this, m_view);
    makeMenus();
    makeToolBar();
    statusBar()->addPermanentWidget(new DataSetStatus(session));
    connectParts();
    refresh();
    restoreLayout();
}

MainWindow::~MainWindow()
{
    m_session.setWaiter(nullptr);
    m_session.history().setListener({});
    sdk::ui::common::HelpLauncher::install({});
}

void MainWindow::connectParts()
{
    connect(m_documents.get(), &DocumentController::told, this, &MainWindow::tell);
    connect(m_documents.get(), &DocumentController::opening, this, m_view.showOpening);
    connect(m_documents.get(), &DocumentController::fileChanged, this, &MainWindow::refresh);
    connect(&m_undo, &UndoActions::done, this, &MainWindow::tell);
    connect(&m_operations, &DataActions::told, this, &MainWindow::tell);
    connect(&m_frames, &FrameActions::refused, this, &MainWindow::tellRefusal);
    connect(&m_plots, &PlotActions::refused, this, &MainWindow::tellRefusal);
    connect(&m_plots.lookFrom(), &ViewMenu::told, this, &MainWindow::tell);
    m_view.onMenu([this](QPoint const& position, int zone) { showPageMenu(position, zone); });
    connect(m_docks, &MainDocks::refused, this, &MainWindow::tellRefusal);
    connect(&m_scripts, &ScriptActions::told, this, &MainWindow::tell);
    connect(&m_docks->journal(), &JournalPanel::saveWanted, &m_scripts, &ScriptActions::saveByDialog);
    connect(&m_docks->journal(), &JournalPanel::runWanted, &m_scripts, &ScriptActions::runByDialog);
    // A message box tells what a command has done. The window behind it must show that already, though no idle moment comes before
    // the command ends.
    m_connections.add(host::MessagePresenter::connectAboutToPresent(&SessionFollower::catchUp));
    m_session.history().setListener([this] {
        m_undo.scheduleRefresh();
        m_follower.schedule();
    });
    sdk::ui::common::HelpLauncher::install(
        [this](std::string const& topic) { helpViewer().openTopic(QString::fromStdString(topic)); });
}

QMenu& MainWindow::addMenu(char const* name, QString const& title)
{
    QMenu* const menu = menuBar()->addMenu(title);
    menu->setObjectName(QString::fromLatin1(name));
    return *menu;
}

void MainWindow::makeMenus()
{
    QMenu& file = addMenu("fileMenu", QStringLiteral("&File"));
    file.addActions({&m_files.open(), &m_files.openInNewFrame()});
    file.addMenu(&m_files.recentMenu());
    file.addSeparator();
    file.addAction(&m_files.saveAs());
    file.addSeparator();
    file.addActions({&m_files.savePicture(), &m_files.saveFilm(), &m_files.printPicture(), &m_files.pictureOptions()});
    file.addSeparator();
    file.addAction(
        newAction(*this, "runScriptAction", {}, QStringLiteral("R&un Script..."), [this] { m_scripts.runByDialog(); }));
    file.addSeparator();
    QAction* const quit = newAction(*this, "quitAction", {}, QStringLiteral("&Quit"), [this] { close(); });
    quit->setShortcut(Qt::CTRL + Qt::Key_Q);
    file.addAction(quit);

    QMenu& edit = addMenu("editMenu", QStringLiteral("&Edit"));
    edit.addActions({&m_undo.undo(), &m_undo.redo()});
    edit.addSeparator();
    edit.addAction(&m_files.copyPicture());

    QMenu& frame = addMenu("frameMenu", QStringLiteral("F&rame"));
    m_frameMenu = &frame;
    frame.addAction(&m_frames.newFrame());
    frame.addMenu(&m_frames.newFrameWith());
    frame.addActions({&m_frames.deleteFrame(), &m_frames.tileFrames(), &m_frames.nextFrame(), &m_plots.maximize()});
    frame.addSeparator();
    frame.addActions({&m_plots.fit(), &m_plots.fitAll()});
    frame.addMenu(&m_plots.lookFrom());

    makePlotMenu();
    QMenu& operations = addMenu("dataMenu", QStringLiteral("&Data"));
    for (QAction* const operation : m_operations.actions())
        operations.addAction(operation);
    makeViewMenu();
    makeHelpMenu();
}

void MainWindow::makePlotMenu()
{
    QMenu& menu = addMenu("plotMenu", QStringLiteral("&Plot"));
    m_plotMenu = &menu;
    for (PlotType_e const type : plotTypes)
        menu.addAction(&m_frames.plotType(type));
    menu.addSeparator();
    menu.addActions(m_frames.plotOptions());
    menu.addSeparator();
    menu.addActions({&m_plots.assignAxes(), &m_plots.assignVector(), &m_docks->focusOnPlot(), &m_docks->focusOnCuts(),
                     &m_docks->focusOnTime(), &m_docks->focusOnProbes(), &m_docks->focusOnLineMaps()});
}

void MainWindow::showPageMenu(QPoint const& position, int zone)
{
    auto* const menu = new PageMenu(m_session, zone, *this);
    connect(menu, &PageMenu::refused, this, &MainWindow::tellRefusal);
    menu->addAction(&m_plots.fit());
    menu->addMenu(&m_plots.lookFrom());
    menu->addMenu(m_plotMenu);
    menu->addMenu(m_frameMenu);
    menu->addSeparator();
    menu->addActions({&m_files.copyPicture(), &m_files.savePicture(), &m_files.printPicture()});
    menu->popup(position);
}

void MainWindow::makeViewMenu()
{
    QMenu& menu = addMenu("viewMenu", QStringLiteral("&View"));
    m_docks->addFocusActions(menu);
    menu.addSeparator();
    QMenu* const panels = menu.addMenu(QStringLiteral("&Show"));
    panels->setObjectName(QStringLiteral("showMenu"));
    m_docks->addToggles(*panels);
}

void MainWindow::makeHelpMenu()
{
    QMenu& menu = addMenu("helpMenu", QStringLiteral("&Help"));
    QAction* const contents = newAction(*this, "helpContentsAction", makeIcon(Glyph::Help), QStringLiteral("&Contents"),
                                        [this] { helpViewer().openIndex(); });
    contents->setShortcut(QKeySequence::HelpContents);
    menu.addAction(contents);
    menu.addAction(newAction(*this, "aboutAction", {}, QStringLiteral("&About Veldraw"), [this] { showAbout(); }));
}

void MainWindow::makeToolBar()
{
    QToolBar* const bar = addToolBar(QStringLiteral("Tool Bar"));
    bar->setObjectName(QStringLiteral("mainToolBar"));
    bar->setMovable(false);
    bar->setIconSize({22, 22});
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->addActions({&m_files.open(), &m_files.saveAs()});
    bar->addSeparator();
    bar->addActions({&m_undo.undo(), &m_undo.redo()});
    bar->addSeparator();
    for (PlotType_e const type : plotTypes)
        bar->addAction(&m_frames.plotType(type));
    bar->addSeparator();
    for (QAction* const option : m_frames.plotOptions()) {
        if (!option->icon().isNull())
            bar->addAction(option);
    }
    bar->addWidget(&m_plots.contourChooser());
    bar->addSeparator();
    bar->addActions({&m_plots.fit(), &m_frames.newFrame(), &m_frames.tileFrames()});
}

HelpViewer& MainWindow::helpViewer()
{
    if (!m_helpViewer)
        m_helpViewer = std::make_unique<HelpViewer>(HelpViewer::standardFolders());
    return *m_helpViewer;
}

bool MainWindow::openFiles(QStringList const& paths, DocumentController::Place place)
{
    return m_documents->open(paths, place);
}

void MainWindow::keepRecovery(QString const& folder)
{
    m_recovery = std::make_unique<RecoveryActions>(m_session, *m_documents, *this, folder);
    connect(m_recovery.get(), &RecoveryActions::told, this, &MainWindow::tell);
}

bool MainWindow::offerRecovery()
{
    return m_recovery && m_recovery->offer();
}

void MainWindow::refresh()
{
    setWindowTitle(mainWindowTitle(m_session, *m_documents));
    setWindowModified(!m_session.history().isClean());
    tellPicks();
}

void MainWindow::tellPicks()
{
    std::vector<kernel::UniqueId> picked;
    for (kernel::Pick const& pick : m_session.picks())
        picked.push_back(pick.zone);
    if (picked == m_toldPicks)
        return;
    m_toldPicks = std::move(picked);
    tell(pickText(m_session));
}

void MainWindow::tell(QString const& text)
{
    statusBar()->showMessage(text, statusTime);
}

void MainWindow::tellRefusal()
{
    std::string const reason = m_session.lastError();
    if (reason.empty())
        return;
    host::MessageLog::instance().add(MessageBoxType_Warning, reason);
    tell(QString::fromStdString(reason));
}

void MainWindow::showAbout()
{
    QMessageBox::about(
        this, QStringLiteral("About Veldraw"),
        QStringLiteral("<h3>Veldraw " VELDRAW_VERSION "</h3>"
                       "<p>Opens simulation results, shows them, changes them and saves what comes out.</p>"
                       "<p>Our own code is under the MIT licence. This program uses Qt, VTK, Eigen and CGAL; "
                       "because of the last it is given on under the GPL 3 or later.</p>"));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    QStringList const paths = localFiles(*event->mimeData());
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    bool const adds = (event->keyboardModifiers() & Qt::ShiftModifier) != 0;
    auto const place = adds ? DocumentController::Place::NewFrames : DocumentController::Place::FreshPage;
    // Reads the files later, so that the program from which they were dragged need not wait.
    QTimer::singleShot(0, this, [this, paths, place] { openFiles(paths, place); });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (sdk::AppLock::depth() > 0) {
        tell(QStringLiteral("Another operation is still running."));
        event->ignore();
        return;
    }
    if (!m_documents->mayCloseData()) {
        event->ignore();
        return;
    }
    keepLayout();
    if (m_recovery)
        m_recovery->end();
    if (m_helpViewer)
        m_helpViewer->close();
    event->accept();
}

// Moves the focus if no widget has it, or one that does not show it.
void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (focusWidget())
        return;
    setAttribute(Qt::WA_KeyboardFocusChange);
    m_docks->takeFocus();
}

void MainWindow::fitScreen()
{
    if (!isMaximized() && !isFullScreen())
        resize(size().boundedTo(screen()->availableSize() - roomForFrame));
}

void MainWindow::restoreLayout()
{
    restoreGeometry(QSettings().value(geometryKey).toByteArray());
    fitScreen(); // which may be another one than last time
    m_docks->restoreLayout(stateVersion);
}

void MainWindow::keepLayout()
{
    QSettings().setValue(geometryKey, saveGeometry());
    m_docks->keepLayout(stateVersion);
}

} // namespace veldraw::app
