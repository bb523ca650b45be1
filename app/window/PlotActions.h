#pragma once

#include "app/window/AssignmentDialog.h"
#include "app/window/CentralView.h"
#include "app/window/SessionFollower.h"
#include "app/window/ViewMenu.h"

#include <QObject>

class QAction;

namespace veldraw::app {

class NumberChooser;

/// What can be done with the plot of the active frame: fit it, assign its axes and vector, choose its contour variable.
/// Changes are refused while an AppLock is held.
class PlotActions : public QObject
{
    Q_OBJECT

public:
    /// @param window parent of the dialogs, which owns the actions
    PlotActions(kernel::Session& session, CentralView const& view, QWidget& window);
    ~PlotActions() override;

    QAction& fit() { return *m_fit; }
    QAction& fitAll() { return *m_fitAll; }
    /// Shows the active frame alone, or all of them again.
    QAction& maximize() { return *m_maximize; }
    /// The ways to look at the plot.
    ViewMenu& lookFrom() { return *m_lookFrom; }
    QAction& assignAxes() { return *m_assignAxes; }
    QAction& assignVector() { return *m_assignVector; }

    /// For a tool bar, which takes it over.
    NumberChooser& contourChooser() { return *m_contourChooser; }

Q_SIGNALS:
    /// The session did not do what was asked for.
    void refused();

private:
    void assign(AssignmentDialog::Kind kind);
    void chooseContour(int variable);
    void refresh();

    kernel::Session& m_session;
    QWidget& m_window;
    QAction* m_fit;
    QAction* m_fitAll;
    QAction* m_maximize;
    ViewMenu* m_lookFrom;
    QAction* m_assignAxes;
    QAction* m_assignVector;
    NumberChooser* m_contourChooser;
    SessionFollower m_follower;
};

} // namespace veldraw::app
