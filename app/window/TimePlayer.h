#pragma once

#include "kernel/session/Session.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

namespace veldraw::app {

/// Moves the active frame of a session through the moments of its transient data set.
///
/// While it plays it goes on to the next moment as often a second as its speed says, but never before the picture of the present one is
/// there, and has the values of the next one brought meanwhile: no moment is left out, and a large picture is not given up for the next. What is played at a stretch is one step of the history,
/// and so is a drag.
class TimePlayer : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostSpeed = 60;

    /// @param isDrawing whether the picture of the present moment is not there yet
    TimePlayer(kernel::Session& session, std::function<bool()> isDrawing, QObject* parent);
    ~TimePlayer() override;

    /// The moments of a frame, ascending; none where it is no field plot of a transient data set.
    static std::vector<double> momentsOf(kernel::Frame const& frame);

    /// Those of the active frame.
    std::vector<double> moments() const;

    /// Position in moments() of the one that the frame shows: the last that is not after its time, -1 before all.
    int place() const;

    /// Shows the moment at a position of moments(), the nearest one for a number beyond its ends.
    void goTo(int place);

    /// Shows any time, between moments or beyond them.
    void goToTime(double time);

    /// From here to endRun() all is one step of the history.
    void beginRun() { m_run = kernel::nextUniqueId(); }
    void endRun() { m_run = 0; }

    bool isPlaying() const { return m_timer.isActive(); }

    /// Plays on from the present moment, or from the first one at the end of all.
    void play();
    void pause();

    /// Moments a second, 1 to mostSpeed.
    void setSpeed(int speed);
    int speed() const { return m_speed; }

    /// Whether it goes on with the first moment after the last, instead of stopping there.
    void setLooping(bool isLooping) { m_isLooping = isLooping; }
    bool isLooping() const { return m_isLooping; }

Q_SIGNALS:
    /// It has begun or stopped to play.
    void playingChanged();

    /// The session did not do what was asked for.
    void refused();

private:
    bool show(double time);
    void fetchNext(kernel::Frame const& frame);
    void advance();

    kernel::Session& m_session;
    std::function<bool()> m_isDrawing;
    QTimer m_timer;
    int m_speed = 10;
    bool m_isLooping = false;
    kernel::UniqueId m_run = 0;
    kernel::UniqueId m_playedFrame = 0;
};

} // namespace veldraw::app
