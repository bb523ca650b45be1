#pragma once

#include "app/window/CutPlace.h"
#include "app/window/SessionFollower.h"

#include <QWidget>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QToolButton;

namespace veldraw::app {

/// What the "Slices" dock shows: the slices and iso-surfaces of the active frame, to be added, shown, moved and deleted. A drag of the
/// slider is one step of the history.
class CutPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CutPanel(kernel::Session& session, QWidget* parent = nullptr);
    ~CutPanel() override;

    /// Puts the keyboard focus on the list, or where there is nothing in it on the button that adds.
    void takeFocus();

Q_SIGNALS:
    /// The session did not do what was asked for.
    void editRefused();

private:
    void makeButtons();
    void add(kernel::CutKind kind);
    void deleteCurrent();
    void showOrHide(QListWidgetItem const& item);
    void alter(CutPlace::Alteration const& alter);
    void chooseVariable(int variable);
    void beginDrag();
    void endDrag();
    void perform(kernel::Operation&& operation);
    void refresh();
    void refreshList(kernel::Frame const* frame);
    void showCurrent();
    kernel::Cut const* currentCut() const;

    kernel::Session& m_session;
    QLabel* m_notice;
    QListWidget* m_list;
    QToolButton* m_add;
    QPushButton* m_delete;
    CutPlace* m_place;
    kernel::UniqueId m_current = 0; // the cut that the fields show
    bool m_isDragging = false;
    SessionFollower m_follower;
};

} // namespace veldraw::app
