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
class DataPanel;
class MessagePanel;

/// What stands around the page: docks with data, plot and messages, and the actions that lead the keyboard there.
class MainDocks : public QObject
{
    Q_OBJECT

public:
    /// Puts the docks into @p window, which owns them and this.
    MainDocks(kernel::Session& session, QMainWindow& window, QWidget& page);

    /// Adds what brings the focus to frames, zones, variables, messages and the page.
    void addFocusActions(QMenu& menu);

    /// Brings the focus to the variables that the plot shows.
    QAction& focusOnPlot() { return *m_focusOnPlot; }

    /// Adds what shows and hides each dock.
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
    QDockWidget* add(char const* name, QString const& title, QWidget& content, Qt::DockWidgetArea area);
    QAction* newFocusAction(char const* name, QString const& text, int key, QDockWidget& dock,
                            std::function<void()> const& takeFocus);

    QMainWindow& m_window;
    QWidget& m_page;
    DataPanel* m_data;
    AssignmentPanel* m_assignment;
    MessagePanel* m_messages;
    QDockWidget* m_dataDock;
    QDockWidget* m_plotDock;
    QDockWidget* m_messageDock;
    QAction* m_focusOnPlot;
};

} // namespace veldraw::app
