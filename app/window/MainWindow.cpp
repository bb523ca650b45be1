#include "app/window/MainWindow.h"

#include "app/window/AssignmentPanel.h"
#include "app/window/DataOperation.h"
#include "app/window/DataPanel.h"
#include "app/window/DataSetStatus.h"
#include "app/window/DataTexts.h"
#include "app/window/HelpViewer.h"
#include "app/window/Icons.h"
#include "app/window/MessagePanel.h"
#include "app/window/NumberChooser.h"
#include "app/window/RecordView.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "host/MessageLog.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/HelpLauncher.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

namespace veldraw::app {

namespace {

QString const geometryKey = QStringLiteral("window/geometry");
QString const stateKey = QStringLiteral("window/state");
constexpr int stateVersion = 1;
constexpr int statusTime = 8000; // milliseconds

QStringList localFiles(QMimeData const& data)
{
    QStringList paths;
    for (QUrl const& url : data.urls())
        if (url.isLocalFile())
            paths.push_back(url.toLocalFile());
    return paths;
}

} // namespace

MainWindow::MainWindow(kernel::Session& session, CentralView view, ImportJob::Reader reader)
    : m_session(session)
    , m_view(std::move(view))
    , m_documents(std::make_unique<DocumentController>(session, *this, std::move(reader)))
    , m_undo(session, this)
    , m_frames(session, this)
    , m_waiter(session, *this)
    , m_follower(session, [this] { refresh(); })
{
    m_session.setWaiter(&m_waiter);
    setObjectName(QStringLiteral("mainWindow"));
    setWindowIcon(applicationIcon());
    setAcceptDrops(true);
    setCentralWidget(m_view.widget);
    makeDocks();
    makeFileMenu();
    makeEditMenu();
    makeFrameMenu();
    makePlotMenu();
    makeDataMenu();
    makeViewMenu();
    makeHelpMenu();
    makeToolBar();
    statusBar()->addPermanentWidget(new DataSetStatus(session));
    connectParts();
    fillRecentMenu();
    refresh();
    resize(1360, 880);
    restoreLayout();
}

MainWindow::~MainWindow()
{
    m_session.setWaiter(nullptr);
    m_session.history().setListener({});
    sdk::ui::common::HelpLauncher::install({});
    // What follows the session goes while the window still is one.
    m_appliers.clear();
}

void MainWindow::connectParts()
{
    connect(m_documents.get(), &DocumentController::told, this, &MainWindow::tell);
    connect(m_documents.get(), &DocumentController::recentFilesChanged, this, &MainWindow::fillRecentMenu);
    connect(&m_undo, &UndoActions::done, this, &MainWindow::tell);
    connect(&m_frames, &FrameActions::refused, this, &MainWindow::tellRefusal);
    connect(m_dataPanel, &DataPanel::editRefused, this, &MainWindow::tellRefusal);
    connect(m_assignmentPanel, &AssignmentPanel::editRefused, this, &MainWindow::tellRefusal);
    m_session.history().setListener([this] {
        m_documents->noteChange();
        m_undo.scheduleRefresh();
        m_follower.schedule();
    });
    sdk::ui::common::HelpLauncher::install(
        [this](std::string const& topic) { helpViewer().openTopic(QString::fromStdString(topic)); });
}

QAction* MainWindow::makeAction(char const* name, QIcon const& icon, QString const& text,
                                std::function<void()> const& function)
{
    auto* const action = new QAction(icon, text, this);
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this, function);
    return action;
}

void MainWindow::makeFileMenu()
{
    using Place = DocumentController::Place;
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&File"));
    menu->setObjectName(QStringLiteral("fileMenu"));
    m_open = makeAction("openAction", makeIcon(Glyph::Open), QStringLiteral("&Open..."),
                        [this] { m_documents->openByDialog(Place::FreshPage); });
    m_open->setShortcut(QKeySequence::Open);
    m_openInNewFrame = makeAction("openInNewFrameAction", {}, QStringLiteral("Open in &New Frame..."),
                                  [this] { m_documents->openByDialog(Place::NewFrames); });
    m_openInNewFrame->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_O);
    m_saveAs = makeAction("saveAsAction", makeIcon(Glyph::Save), QStringLiteral("&Save As..."),
                          [this] { m_documents->saveAs(); });
    m_saveAs->setShortcut(Qt::CTRL + Qt::Key_S);
    m_savePicture = makeAction("savePictureAction", makeIcon(Glyph::Picture), QStringLiteral("Save &Picture As..."),
                               [this] { m_documents->savePictureAs(m_view.grabImage()); });
    QAction* const quit = makeAction("quitAction", {}, QStringLiteral("&Quit"), [this] { close(); });
    quit->setShortcut(Qt::CTRL + Qt::Key_Q);
    menu->addAction(m_open);
    menu->addAction(m_openInNewFrame);
    m_recentMenu = menu->addMenu(QStringLiteral("Open &Recent"));
    m_recentMenu->setObjectName(QStringLiteral("recentMenu"));
    menu->addSeparator();
    menu->addAction(m_saveAs);
    menu->addAction(m_savePicture);
    menu->addSeparator();
    menu->addAction(quit);
}

void MainWindow::makeEditMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&Edit"));
    menu->setObjectName(QStringLiteral("editMenu"));
    menu->addAction(&m_undo.undo());
    menu->addAction(&m_undo.redo());
}

void MainWindow::makeFrameMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("F&rame"));
    menu->setObjectName(QStringLiteral("frameMenu"));
    m_fit = makeAction("fitAction", makeIcon(Glyph::Fit), QStringLiteral("&Fit"), [this] { m_view.fitActiveFrame(); });
    m_fit->setShortcut(Qt::CTRL + Qt::Key_F);
    m_fit->setToolTip(QStringLiteral("Show the whole plot of the active frame (Ctrl+F)"));
    m_fitAll = makeAction("fitAllAction", {}, QStringLiteral("Fit &All Frames"), [this] { m_view.fitAllFrames(); });
    m_fitAll->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_F);
    menu->addAction(&m_frames.newFrame());
    menu->addAction(&m_frames.deleteFrame());
    menu->addAction(&m_frames.tileFrames());
    menu->addAction(&m_frames.nextFrame());
    menu->addSeparator();
    menu->addAction(m_fit);
    menu->addAction(m_fitAll);
}

void MainWindow::makePlotMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&Plot"));
    menu->setObjectName(QStringLiteral("plotMenu"));
    for (PlotType_e const type : {PlotType_Cartesian3D, PlotType_Cartesian2D, PlotType_XYLine, PlotType_Sketch})
        menu->addAction(&m_frames.plotType(type));
    menu->addSeparator();
    menu->addAction(&m_frames.contour());
    menu->addAction(&m_frames.mesh());
    menu->addSeparator();
    m_assignAxes = makeAction("assignAxesAction", {}, QStringLiteral("Assign A&xes..."),
                              [this] { assignVariables(AssignmentDialog::Kind::Axes); });
    m_assignVector = makeAction("assignVectorAction", {}, QStringLiteral("Assign &Vector..."),
                                [this] { assignVariables(AssignmentDialog::Kind::Vector); });
    menu->addAction(m_assignAxes);
    menu->addAction(m_assignVector);
    addFocusAction(*menu, "assignAction", QStringLiteral("&Assign Variables"), Qt::CTRL + Qt::Key_4, *m_plotDock,
                   [this] { m_assignmentPanel->takeFocus(); });
}

void MainWindow::assignVariables(AssignmentDialog::Kind kind)
{
    if (sdk::AppLock::depth() > 0 || !AssignmentDialog::isPossible(m_session))
        return;
    AssignmentDialog dialog(m_session, kind, this);
    if (dialog.exec() != QDialog::Accepted || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!dialog.assign())
        tellRefusal();
}

void MainWindow::makeDataMenu()
{
    using sdk::ui::dialogs::propertybindings::RelevanceApplier;
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&Data"));
    menu->setObjectName(QStringLiteral("dataMenu"));
    for (DataOperation const& operation : dataOperations()) {
        QAction* const action = makeAction(operation.name, {}, QString::fromUtf8(operation.text),
                                           [this, &operation] { openOperation(operation); });
        menu->addAction(action);
        m_appliers.push_back(std::make_unique<RelevanceApplier>(
            operation.relevance(), action, RelevanceApplier::EnableDisable, RelevanceApplier::UpdateOnIdle));
    }
}

void MainWindow::openOperation(DataOperation const& operation)
{
    if (sdk::AppLock::depth() > 0)
        tell(QStringLiteral("Another operation is still running."));
    else
        operation.dialog(*this).launch();
}

void MainWindow::makeViewMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&View"));
    menu->setObjectName(QStringLiteral("viewMenu"));
    addFocusAction(*menu, "focusFramesAction", QStringLiteral("&Frames"), Qt::CTRL + Qt::Key_1, *m_dataDock,
                   [this] { m_dataPanel->frameView().setFocus(Qt::ShortcutFocusReason); });
    addFocusAction(*menu, "focusZonesAction", QStringLiteral("&Zones"), Qt::CTRL + Qt::Key_2, *m_dataDock,
                   [this] { m_dataPanel->zoneView().setFocus(Qt::ShortcutFocusReason); });
    addFocusAction(*menu, "focusVariablesAction", QStringLiteral("&Variables"), Qt::CTRL + Qt::Key_3, *m_dataDock,
                   [this] { m_dataPanel->variableView().setFocus(Qt::ShortcutFocusReason); });
    addFocusAction(*menu, "focusMessagesAction", QStringLiteral("&Messages"), Qt::CTRL + Qt::Key_5, *m_messageDock,
                   [this] { m_messagePanel->list().setFocus(Qt::ShortcutFocusReason); });
    addFocusAction(*menu, "focusPageAction", QStringLiteral("&Page"), Qt::CTRL + Qt::Key_0, *m_dataDock,
                   [this] { m_view.widget->setFocus(Qt::ShortcutFocusReason); });
    menu->addSeparator();
    QMenu* const panels = menu->addMenu(QStringLiteral("&Show"));
    panels->setObjectName(QStringLiteral("showMenu"));
    for (QDockWidget* dock : {m_dataDock, m_plotDock, m_messageDock})
        panels->addAction(dock->toggleViewAction());
}

void MainWindow::makeHelpMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&Help"));
    menu->setObjectName(QStringLiteral("helpMenu"));
    QAction* const contents = makeAction("helpContentsAction", makeIcon(Glyph::Help), QStringLiteral("&Contents"),
                                         [this] { helpViewer().openIndex(); });
    contents->setShortcut(QKeySequence::HelpContents);
    menu->addAction(contents);
    menu->addAction(makeAction("aboutAction", {}, QStringLiteral("&About Veldraw"), [this] { showAbout(); }));
}

void MainWindow::makeToolBar()
{
    QToolBar* const bar = addToolBar(QStringLiteral("Tool Bar"));
    bar->setObjectName(QStringLiteral("mainToolBar"));
    bar->setMovable(false);
    bar->setIconSize({22, 22});
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->addAction(m_open);
    bar->addAction(m_saveAs);
    bar->addSeparator();
    bar->addAction(&m_undo.undo());
    bar->addAction(&m_undo.redo());
    bar->addSeparator();
    for (PlotType_e const type : {PlotType_Cartesian3D, PlotType_Cartesian2D, PlotType_XYLine, PlotType_Sketch})
        bar->addAction(&m_frames.plotType(type));
    bar->addSeparator();
    bar->addAction(&m_frames.mesh());
    bar->addAction(&m_frames.contour());
    m_contourChooser = new NumberChooser(QStringLiteral("contourChooser"), QStringLiteral("Contour variable"));
    m_contourChooser->setToolTip(QStringLiteral("Contour variable"));
    m_contourChooser->setMinimumContentsLength(18);
    connect(m_contourChooser, &NumberChooser::chosen, this, &MainWindow::chooseContour);
    bar->addWidget(m_contourChooser);
    bar->addSeparator();
    bar->addAction(m_fit);
    bar->addAction(&m_frames.newFrame());
    bar->addAction(&m_frames.tileFrames());
}

void MainWindow::makeDocks()
{
    m_dataPanel = new DataPanel(m_session);
    m_assignmentPanel = new AssignmentPanel(m_session);
    m_messagePanel = new MessagePanel;
    setDockOptions(AnimatedDocks | AllowTabbedDocks | AllowNestedDocks);
    setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    m_dataDock = addDock("dataDock", QStringLiteral("Data"), *m_dataPanel, Qt::LeftDockWidgetArea);
    m_plotDock = addDock("plotDock", QStringLiteral("Plot"), *m_assignmentPanel, Qt::LeftDockWidgetArea);
    m_messageDock = addDock("messageDock", QStringLiteral("Messages"), *m_messagePanel, Qt::BottomDockWidgetArea);
    tabifyDockWidget(m_dataDock, m_plotDock);
    // The tabs say already what these are.
    m_dataDock->setTitleBarWidget(new QWidget);
    m_plotDock->setTitleBarWidget(new QWidget);
    m_dataDock->raise();
    resizeDocks({m_dataDock}, {384}, Qt::Horizontal);
    resizeDocks({m_messageDock}, {96}, Qt::Vertical);
}

QDockWidget* MainWindow::addDock(char const* name, QString const& title, QWidget& content, Qt::DockWidgetArea area)
{
    auto* const dock = new QDockWidget(title, this);
    dock->setObjectName(QString::fromLatin1(name));
    dock->setWidget(&content);
    addDockWidget(area, dock);
    return dock;
}

void MainWindow::addFocusAction(QMenu& menu, char const* name, QString const& text, int key, QDockWidget& dock,
                                std::function<void()> const& takeFocus)
{
    QAction* const action = makeAction(name, {}, text, [&dock, takeFocus] {
        dock.show();
        dock.raise();
        takeFocus();
    });
    action->setShortcut(key);
    menu.addAction(action);
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

void MainWindow::fillRecentMenu()
{
    m_recentMenu->clear();
    int number = 0;
    for (QString const& path : m_documents->recentFiles().list()) {
        ++number;
        QFileInfo const info(path);
        QString const mnemonic = number < 10 ? QStringLiteral("&%1").arg(number) : QStringLiteral("1&0");
        QString name = info.fileName();
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* const action = m_recentMenu->addAction(mnemonic + QStringLiteral("  ") + name);
        action->setToolTip(path);
        action->setStatusTip(path);
        action->setData(path);
        // Later, since opening fills this very menu again.
        connect(action, &QAction::triggered, this,
                [this, path] { QTimer::singleShot(0, this, [this, path] { m_documents->openRecent(path); }); });
    }
    m_recentMenu->setEnabled(number > 0);
}

void MainWindow::refresh()
{
    auto const frame = m_session.activeFrame();
    bool const hasData = frame && frame->dataSet;
    bool const isField =
        hasData && (frame->plotType == PlotType_Cartesian2D || frame->plotType == PlotType_Cartesian3D);
    m_saveAs->setEnabled(hasData);
    m_savePicture->setEnabled(frame != nullptr);
    m_fit->setEnabled(hasData);
    m_fitAll->setEnabled(hasData);
    m_assignAxes->setEnabled(isField);
    m_assignVector->setEnabled(isField);
    m_contourChooser->setEnabled(isField && frame->showContour);
    m_contourChooser->show(AssignmentPanel::variableChoices(m_session, {}), hasData ? frame->variableNumber('C') : 0);
    refreshTitle();
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

void MainWindow::refreshTitle()
{
    auto const frame = m_session.activeFrame();
    QString const name = frame ? QString::fromStdString(frame->name) : QString();
    setWindowTitle(name.isEmpty() ? QStringLiteral("[*]") : name + QStringLiteral("[*]"));
    setWindowModified(!m_session.history().isClean());
}

void MainWindow::chooseContour(int variable)
{
    auto const frame = m_session.activeFrame();
    if (!frame || sdk::AppLock::depth() > 0 || frame->variableNumber('C') == variable)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!m_session.assignVariable(frame->id, 'C', variable)) {
        m_follower.schedule();
        tellRefusal();
    }
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
                       "<p>Our own code is under the MIT licence. This program uses Qt and VTK.</p>"));
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
    // Whoever dragged the files must not wait until they are read.
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
    if (m_helpViewer)
        m_helpViewer->close();
    event->accept();
}

void MainWindow::restoreLayout()
{
    QSettings const settings;
    restoreGeometry(settings.value(geometryKey).toByteArray());
    restoreState(settings.value(stateKey).toByteArray(), stateVersion);
}

void MainWindow::keepLayout()
{
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(stateKey, saveState(stateVersion));
}

} // namespace veldraw::app
