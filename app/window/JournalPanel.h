#pragma once

#include "app/window/SessionFollower.h"

#include <QWidget>

class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace veldraw::app {

/// What the "Journal" dock shows: what has been done, command by command; what is undone is struck out.
class JournalPanel : public QWidget
{
    Q_OBJECT

public:
    explicit JournalPanel(kernel::Session& session, QWidget* parent = nullptr);
    ~JournalPanel() override;

    /// Puts the keyboard focus on the list.
    void takeFocus();

Q_SIGNALS:
    /// The user wants to save the journal as a script, or to run one.
    void saveWanted();
    void runWanted();

private:
    void makeButtons();
    void refresh();
    void showState(int row);
    void copySelected();

    kernel::Session& m_session;
    QListWidget* m_list;
    QPushButton* m_save;
    QPushButton* m_run;
    int m_listener = 0; // of the journal
    SessionFollower m_follower;
};

} // namespace veldraw::app
