#pragma once

#include "app/window/SessionFollower.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <QObject>

#include <functional>
#include <map>

class QAction;
class QActionGroup;

namespace veldraw::app {

/// What can be done with frames and how the active one is plotted: new, delete, tile, plot type, contour, mesh, proportions.
/// The checks and states follow the session. Everything is refused while an AppLock is held.
class FrameActions : public QObject
{
    Q_OBJECT

public:
    explicit FrameActions(kernel::Session& session, QObject* parent = nullptr);

    QAction& newFrame() { return *m_newFrame; }
    QAction& deleteFrame() { return *m_deleteFrame; }
    QAction& tileFrames() { return *m_tileFrames; }
    QAction& nextFrame() { return *m_nextFrame; }
    QAction& plotType(PlotType_e type) { return *m_plotTypes.at(type); }
    QAction& contour() { return *m_contour; }
    QAction& mesh() { return *m_mesh; }
    QAction& stretchAxes() { return *m_stretchAxes; }

Q_SIGNALS:
    /// The session did not do what was asked for.
    void refused();

private:
    QAction* makeAction(char const* name, QIcon const& icon, QString const& text,
                        std::function<bool()> const& function);
    void makePlotTypes();
    bool createFrame();
    bool activateNextFrame();
    bool withActiveFrame(std::function<bool(kernel::Frame&)> const& function);
    void refresh();

    kernel::Session& m_session;
    QAction* m_newFrame;
    QAction* m_deleteFrame;
    QAction* m_tileFrames;
    QAction* m_nextFrame;
    QAction* m_contour;
    QAction* m_mesh;
    QAction* m_stretchAxes;
    std::map<PlotType_e, QAction*> m_plotTypes;
    SessionFollower m_follower;
};

} // namespace veldraw::app
