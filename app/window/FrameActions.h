#pragma once

#include "app/window/SessionFollower.h"
#include "kernel/frames/PlotOption.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <QList>
#include <QObject>

#include <functional>
#include <map>
#include <utility>
#include <vector>

class QAction;
class QActionGroup;
class QMenu;

namespace veldraw::app {

/// What can be done with frames and how the active one is plotted: new, delete, tile, plot type, contour, mesh, proportions.
/// The checks and states follow the session. Everything is refused while an AppLock is held.
class FrameActions : public QObject
{
    Q_OBJECT

public:
    explicit FrameActions(kernel::Session& session, QObject* parent = nullptr);
    ~FrameActions() override;

    QAction& newFrame() { return *m_newFrame; }
    /// A new frame for any data set that is open, or for none. To be put into a menu.
    QMenu& newFrameWith() { return *m_newFrameWith; }
    QAction& deleteFrame() { return *m_deleteFrame; }
    QAction& tileFrames() { return *m_tileFrames; }
    QAction& nextFrame() { return *m_nextFrame; }
    QAction& plotType(PlotType_e type) { return *m_plotTypes.at(type); }
    /// One for each of kernel::plotOptions() with a text, in their order.
    QList<QAction*> plotOptions() const;

Q_SIGNALS:
    /// The session did not do what was asked for.
    void refused();

private:
    QAction* makeAction(char const* name, QIcon const& icon, QString const& text,
                        std::function<bool()> const& function);
    void makePlotTypes();
    void makePlotOptions();
    bool createFrame(std::shared_ptr<kernel::DataSet> const& dataSet);
    void fillNewFrameWith();
    void guarded(std::function<bool()> const& function);
    bool activateNextFrame();
    bool withActiveFrame(std::function<bool(kernel::Frame&)> const& function);
    void refresh();

    kernel::Session& m_session;
    QAction* m_newFrame;
    std::unique_ptr<QMenu> m_newFrameWith;
    QAction* m_deleteFrame;
    QAction* m_tileFrames;
    QAction* m_nextFrame;
    std::vector<std::pair<kernel::PlotOption const*, QAction*>> m_plotOptions;
    std::map<PlotType_e, QAction*> m_plotTypes;
    SessionFollower m_follower;
};

} // namespace veldraw::app
