#pragma once

#include "app/window/Icons.h"
#include "app/window/SessionFollower.h"
#include "app/window/TimePlayer.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QSlider;
class QSpinBox;
class QToolButton;

namespace veldraw::ui {
class QScientificSpinBox;
}

namespace veldraw::app {

/// What the "Time" dock shows: the moment of the active frame, to be typed, moved by a slider, stepped and played. It says why where there
/// is no time.
class TimePanel : public QWidget
{
    Q_OBJECT

public:
    /// @param isDrawing whether the picture of the present moment is not there yet
    TimePanel(kernel::Session& session, std::function<bool()> isDrawing, QWidget* parent = nullptr);
    ~TimePanel() override;

    /// Puts the keyboard focus on the slider, or where that is of no use on the panel.
    void takeFocus();

Q_SIGNALS:
    /// The session did not do what was asked for.
    void editRefused();

private:
    QToolButton* newButton(char const* name, Glyph glyph, QString const& toolTip, std::function<void()> const& press);
    void makeFields();
    void layOut();
    void connectFields();
    void takeNumber();
    void playOrPause();
    void showPlaying();
    void refresh();
    void loadWhatIsSeen();
    QString reasonAgainst() const;

    kernel::Session& m_session;
    TimePlayer m_player;
    QLabel* m_notice;
    QWidget* m_controls;
    ui::QScientificSpinBox* m_time;
    QLabel* m_step;
    QSlider* m_slider;
    QToolButton* m_first;
    QToolButton* m_back;
    QToolButton* m_play;
    QToolButton* m_on;
    QToolButton* m_last;
    QCheckBox* m_loop;
    QSpinBox* m_speed;
    std::int64_t m_failedAt = -1; // number of the event before a load failed
    SessionFollower m_follower;
};

} // namespace veldraw::app
