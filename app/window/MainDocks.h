#pragma once

#include "app/window/CentralView.h"
#include "kernel/session/Session.h"

#include <QObject>

class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;

namespace veldraw::app {

class AssignmentPanel;
class CutPanel;
class DataPanel;
class JournalPanel;
class LineMapPanel;
class MessagePanel;
class ProbePanel;
class TimePanel;

/// The docks around the page, with data, plot, slices, time, values, line maps, messages and journal, and the actions that move the keyboard
/// focus to them.
class MainDocks : public QObject
{
    Q_OBJECT

public:
    /// Puts the docks into @p window, which owns them and this.
    MainDocks(kernel::Session& session, QMainWindow& window, CentralView const& view);

    /// Adds the actions that move the focus to frames, zones, variables, messages and the page.
    void addFocusActions(QMenu& menu);

    /// Moves the focus to the variables of the plot.
    QAction& focusOnPlot() { return *m_focusOnPlot; }

    /// Moves the focus to the slices of the plot.
    QAction& focusOnCuts() { return *m_focusOnCuts; }

    /// Moves the focus to the time of the plot.
    QAction& focusOnTime() { return *m_focusOnTime; }

    /// Moves the focus to the values of the place that was probed last.
    QAction& focusOnProbes() { return *m_focusOnProbes; }

    /// Moves the focus to the table of line maps.
    QAction& focusOnLineMaps() { return *m_focusOnLineMaps; }

    JournalPanel& journal() { return *m_journal; }

    /// Adds the actions that show and hide each dock.
    void addToggles(QMenu& menu);

    /// Puts the focus on the list of frames, in sight.
    void takeFocus();

    /// Docks and what is in them, for the next start. @p version tells states apart that do not go together.
    void keepLayout(int version) const;
    void restoreLayout(int version);

Q_SIGNALS:
    /// The session did not do what was asked for.
    void refused();

private:
    void arrange();
    void connectPanels(CentralView const& view);
    QDockWidget* add(char const* name, QString const& title, QWidget& content, Qt::DockWidgetArea area);
    QAction* newFocusAction(char const* name, QString const& text, int key, QDockWidget& dock,
                            std::function<void()> const& takeFocus);

    QMainWindow& m_window;
    QWidget& m_page;
    DataPanel* m_data;
    AssignmentPanel* m_assignment;
    CutPanel* m_cuts;
    TimePanel* m_time;
    ProbePanel* m_probes;
    LineMapPanel* m_lineMaps;
    MessagePanel* m_messages;
    JournalPanel* m_journal;
    QDockWidget* m_dataDock;
    QDockWidget* m_plotDock;
    QDockWidget* m_cutDock;
    QDockWidget* m_timeDock;
    QDockWidget* m_probeDock;
    QDockWidget* m_lineMapDock;
    QDockWidget* m_messageDock;
    QDockWidget* m_journalDock;
    QAction* m_focusOnPlot;
    QAction* m_focusOnCuts;
    QAction* m_focusOnTime;
    QAction* m_focusOnProbes;
    QAction* m_focusOnLineMaps;
};

} // namespace veldraw::app
