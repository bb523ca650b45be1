#pragma once

#include "host/MessageLog.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <QWidget>

class QListWidget;

namespace veldraw::app {

/// What the "Messages" dock shows: the message log, oldest first, the newest in sight.
class MessagePanel : public QWidget
{
    Q_OBJECT

public:
    explicit MessagePanel(QWidget* parent = nullptr);

    QListWidget& list() { return *m_list; }

private:
    void append(host::MessageLog::Entry const& entry);
    void copySelected();

    QListWidget* m_list;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::app
