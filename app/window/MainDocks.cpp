#include "app/window/MainDocks.h"

#include "app/window/AssignmentPanel.h"
#include "app/window/CutPanel.h"
#include "app/window/DataPanel.h"
#include "app/window/DockTableView.h"
#include "app/window/JournalPanel.h"
#include "app/window/LineMapPanel.h"
#include "app/window/MessagePanel.h"
#include "app/window/NewAction.h"
#include "app/window/ProbePanel.h"
#include "app/window/TimePanel.h"

#include <QDockWidget>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QSettings>

#include <algorithm>

namespace veldraw::app {

namespace {

QString const docksKey = QStringLiteral("window/state");
QString const listsKey = QStringLiteral("window/lists");

} // namespace

MainDocks::MainDocks(kernel::Session& session, QMainWindow& window, CentralView const& view)
    : QObject(&window)
    , m_window(window)
    , m_page(*view.widget)
    , m_data(new DataPanel(session))
    , m_assignment(new AssignmentPanel(session))
    , m_cuts(new CutPanel(session))
    , m_time(new TimePanel(session, view.isDrawing))
    , m_probes(new ProbePanel(session, view))
    , m_lineMaps(new LineMapPanel(session))
    , m_messages(new MessagePanel)
    , m_journal(new JournalPanel(session))
    , m_dataDock(add("dataDock", QStringLiteral("Data"), *m_data, Qt::LeftDockWidgetArea))
    , m_plotDock(add("plotDock", QStringLiteral("Plot"), *m_assignment, Qt::LeftDockWidgetArea))
    , m_cutDock(add("cutDock", QStringLiteral("Slices"), *m_cuts, Qt::LeftDockWidgetArea))
    , m_timeDock(add("timeDock", QStringLiteral("Time"), *m_time, Qt::LeftDockWidgetArea))
    , m_probeDock(add("probeDock", QStringLiteral("Values"), *m_probes, Qt::LeftDockWidgetArea))
    , m_lineMapDock(add("lineMapDock", QStringLiteral("Line Maps"), *m_lineMaps, Qt::BottomDockWidgetArea))
    , m_messageDock(add("messageDock", QStringLiteral("Messages"), *m_messages, Qt::BottomDockWidgetArea))
    , m_journalDock(add("journalDock", QStringLiteral("Journal"), *m_journal, Qt::BottomDockWidgetArea))
    , m_focusOnPlot(newFocusAction("assignAction", QStringLiteral("&Assign Variables"), Qt::CTRL + Qt::Key_4,
                                   *m_plotDock, [this] { m_assignment->takeFocus(); }))
    , m_focusOnCuts(newFocusAction("cutsAction", QStringLiteral("E&dit Slices"), Qt::CTRL + Qt::Key_6, *m_cutDock,
                                   [this] { m_cuts->takeFocus(); }))
    , m_focusOnTime(newFocusAction("timeAction", QStringLiteral("Go Th&rough Time"), Qt::CTRL + Qt::Key_7, *m_timeDock,
                                   [this] { m_time->takeFocus(); }))
    , m_focusOnProbes(newFocusAction("probeAction", QStringLiteral("&Probe Values"), Qt::CTRL + Qt::Key_8, *m_probeDock,
                                     [this] { m_probes->takeFocus(); }))
    , m_focusOnLineMaps(newFocusAction("lineMapsAction", QStringLiteral("Ma&ke Line Maps"), Qt::CTRL + Qt::Key_L,
                                       *m_lineMapDock, [this] { m_lineMaps->takeFocus(); }))
{
    arrange();
    connectPanels(view);
}

void MainDocks::arrange()
{
    m_window.setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowTabbedDocks | QMainWindow::AllowNestedDocks);
    m_window.setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    m_window.setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    m_window.tabifyDockWidget(m_dataDock, m_plotDock);
    m_window.tabifyDockWidget(m_plotDock, m_cutDock);
    m_window.tabifyDockWidget(m_cutDock, m_timeDock);
    m_window.tabifyDockWidget(m_timeDock, m_probeDock);
    // The tabs say already what these are.
    m_dataDock->setTitleBarWidget(new QWidget);
    m_plotDock->setTitleBarWidget(new QWidget);
    m_cutDock->setTitleBarWidget(new QWidget);
    m_timeDock->setTitleBarWidget(new QWidget);
    m_probeDock->setTitleBarWidget(new QWidget);
    m_dataDock->raise();
    m_window.tabifyDockWidget(m_messageDock, m_journalDock);
    m_window.tabifyDockWidget(m_journalDock, m_lineMapDock);
    m_lineMapDock->hide(); // takes more height than messages, and not everybody has curves
    m_messageDock->raise();
    // Wide enough for its lists, but the page is what people come for.
    m_window.resizeDocks({m_dataDock}, {std::min(m_data->sizeHint().width(), m_window.width() * 2 / 5)},
                         Qt::Horizontal);
    m_window.resizeDocks({m_messageDock}, {std::min(96, m_window.height() / 8)}, Qt::Vertical);
}

void MainDocks::connectPanels(CentralView const& view)
{
    connect(m_data, &DataPanel::editRefused, this, &MainDocks::refused);
    connect(m_cuts, &CutPanel::editRefused, this, &MainDocks::refused);
    connect(m_time, &TimePanel::editRefused, this, &MainDocks::refused);
    connect(m_assignment, &AssignmentPanel::editRefused, this, &MainDocks::refused);
    connect(m_probes, &ProbePanel::editRefused, this, &MainDocks::refused);
    connect(m_lineMaps, &LineMapPanel::editRefused, this, &MainDocks::refused);
    view.onProbe([this](ProbedPlace const& place) {
        m_probes->add(place);
        m_probeDock->show();
        m_probeDock->raise();
    });
}

QDockWidget* MainDocks::add(char const* name, QString const& title, QWidget& content, Qt::DockWidgetArea area)
{
    auto* const dock = new QDockWidget(title, &m_window);
    dock->setObjectName(QString::fromLatin1(name));
    dock->setWidget(&content);
    m_window.addDockWidget(area, dock);
    return dock;
}

QAction* MainDocks::newFocusAction(char const* name, QString const& text, int key, QDockWidget& dock,
                                   std::function<void()> const& takeFocus)
{
    QAction* const action = newAction(*this, name, {}, text, [&dock, takeFocus] {
        dock.show();
        dock.raise();
        takeFocus();
    });
    action->setShortcut(key);
    return action;
}

void MainDocks::addFocusActions(QMenu& menu)
{
    auto const add = [&](char const* name, QString const& text, int key, QDockWidget& dock, QWidget& target) {
        menu.addAction(
            newFocusAction(name, text, Qt::CTRL + key, dock, [&target] { target.setFocus(Qt::ShortcutFocusReason); }));
    };
    add("focusFramesAction", QStringLiteral("&Frames"), Qt::Key_1, *m_dataDock, m_data->frameView());
    add("focusZonesAction", QStringLiteral("&Zones"), Qt::Key_2, *m_dataDock, m_data->zoneView());
    add("focusVariablesAction", QStringLiteral("&Variables"), Qt::Key_3, *m_dataDock, m_data->variableView());
    add("focusMessagesAction", QStringLiteral("&Messages"), Qt::Key_5, *m_messageDock, m_messages->list());
    menu.addAction(newFocusAction("journalAction", QStringLiteral("&Journal"), Qt::CTRL + Qt::Key_9, *m_journalDock,
                                  [this] { m_journal->takeFocus(); }));
    QAction* const page = newAction(*this, "focusPageAction", {}, QStringLiteral("&Page"),
                                    [this] { m_page.setFocus(Qt::ShortcutFocusReason); });
    page->setShortcut(Qt::CTRL + Qt::Key_0);
    menu.addAction(page);
}

void MainDocks::takeFocus()
{
    m_dataDock->raise();
    m_data->frameView().setFocus(Qt::ActiveWindowFocusReason);
}

void MainDocks::keepLayout(int version) const
{
    QSettings settings;
    settings.setValue(docksKey, m_window.saveState(version));
    settings.setValue(listsKey, m_data->saveSizes());
}

void MainDocks::restoreLayout(int version)
{
    QSettings const settings;
    m_window.restoreState(settings.value(docksKey).toByteArray(), version);
    m_data->restoreSizes(settings.value(listsKey).toByteArray());
}

void MainDocks::addToggles(QMenu& menu)
{
    for (QDockWidget const* const dock :
         {m_dataDock, m_plotDock, m_cutDock, m_timeDock, m_probeDock, m_lineMapDock, m_messageDock, m_journalDock})
        menu.addAction(dock->toggleViewAction());
}

} // namespace veldraw::app
