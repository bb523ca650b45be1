#pragma once

#include "app/window/SessionFollower.h"

#include <QLabel>

namespace veldraw::app {

/// The right end of the status bar: zones, points, cells and memory of the active frame's data set. It does not
/// keep the window from being narrow: what does not fit ends in "…", and the tool tip has the whole.
class DataSetStatus : public QLabel
{
    Q_OBJECT

public:
    explicit DataSetStatus(kernel::Session& session, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();

    kernel::Session& m_session;
    SessionFollower m_follower;
};

} // namespace veldraw::app
