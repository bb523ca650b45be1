#pragma once

#include "kernel/session/Session.h"

#include <QMenu>

namespace veldraw::app {

/// The menu over the page: what can be done with the zone under the mouse, and whatever the owner adds. Deletes itself when it closes.
class PageMenu : public QMenu
{
    Q_OBJECT

public:
    /// @param session must outlive the menu @param zone one-based number of the active frame's zone that is meant; 0 for none
    PageMenu(kernel::Session& session, int zone, QWidget& window);

Q_SIGNALS:
    /// The session did not do what was asked for.
    void refused();

private:
    void addZone(kernel::DataSet const& dataSet, int zone);
    void disable(kernel::UniqueId zone);

    kernel::Session& m_session;
};

} // namespace veldraw::app
