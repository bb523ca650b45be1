#pragma once

#include <QObject>
#include <QTimer>

namespace veldraw::app {

/// Tells the user of files that another program has cut short while they are open here, once each, soon after somebody has noticed.
class CutFileLook : public QObject
{
public:
    /// @param pause between two looks, in milliseconds
    explicit CutFileLook(int pause, QObject* parent = nullptr);

private:
    static void look();

    QTimer m_timer;
};

} // namespace veldraw::app
