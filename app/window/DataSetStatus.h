#pragma once

#include "app/window/SessionFollower.h"

#include <QLabel>

namespace veldraw::app {

/// The right end of the status bar: zones, points, cells and memory of the active frame's data set.
class DataSetStatus : public QLabel
{
    Q_OBJECT

public:
    explicit DataSetStatus(kernel::Session& session, QWidget* parent = nullptr);

private:
    void refresh();

    kernel::Session& m_session;
    SessionFollower m_follower;
};

} // namespace veldraw::app
