#include "app/window/TimePlayer.h"

#include "kernel/data/TimeStrands.h"
#include "kernel/operations/SetSolutionTime.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <algorithm>

namespace veldraw::app {

namespace {

bool isFieldPlot(kernel::Frame const& frame)
{
    return frame.dataSet && (frame.plotType == PlotType_Cartesian2D || frame.plotType == PlotType_Cartesian3D);
}

} // namespace

TimePlayer::TimePlayer(kernel::Session& session, std::function<bool()> isDrawing, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_isDrawing(std::move(isDrawing))
{
    setSpeed(m_speed);
    connect(&m_timer, &QTimer::timeout, this, &TimePlayer::advance);
}

TimePlayer::~TimePlayer()
{
    m_session.endFetchAhead();
}

std::vector<double> TimePlayer::momentsOf(kernel::Frame const& frame)
{
    return isFieldPlot(frame) ? kernel::solutionTimes(*frame.dataSet) : std::vector<double>();
}

std::vector<double> TimePlayer::moments() const
{
    auto const frame = m_session.activeFrame();
    return frame ? momentsOf(*frame) : std::vector<double>();
}

int TimePlayer::place() const
{
    std::vector<double> const all = moments();
    auto const frame = m_session.activeFrame();
    return all.empty()
               ? -1
               : static_cast<int>(std::upper_bound(all.begin(), all.end(), frame->solutionTime) - all.begin()) - 1;
}

void TimePlayer::goTo(int place)
{
    std::vector<double> const all = moments();
    if (!all.empty())
        show(all[static_cast<std::size_t>(std::clamp(place, 0, static_cast<int>(all.size()) - 1))]);
}

void TimePlayer::goToTime(double time)
{
    if (!moments().empty())
        show(time);
}

bool TimePlayer::show(double time)
{
    auto const frame = m_session.activeFrame();
    if (!frame || sdk::AppLock::depth() > 0)
        return false;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (m_session.perform(kernel::SetSolutionTime(frame->id, time, m_run))) {
        fetchNext(*frame);
        return true;
    }
    Q_EMIT refused();
    return false;
}

// Time mostly goes on.
void TimePlayer::fetchNext(kernel::Frame const& frame)
{
    std::vector<double> const all = moments();
    auto const next = static_cast<std::size_t>(place() + 1);
    if (next < all.size())
        m_session.fetchAhead(frame.id, all[next]);
    else if (m_isLooping && !all.empty())
        m_session.fetchAhead(frame.id, all.front());
}

void TimePlayer::play()
{
    std::vector<double> const all = moments();
    if (isPlaying() || all.size() < 2)
        return;
    m_playedFrame = m_session.activeFrame()->id;
    beginRun();
    if (place() + 1 >= static_cast<int>(all.size()))
        goTo(0);
    m_timer.start();
    Q_EMIT playingChanged();
}

void TimePlayer::pause()
{
    if (!isPlaying())
        return;
    m_timer.stop();
    endRun();
    Q_EMIT playingChanged();
}

void TimePlayer::setSpeed(int speed)
{
    m_speed = std::clamp(speed, 1, mostSpeed);
    m_timer.setInterval(1000 / m_speed);
}

// A moment that cannot be shown ends it: what is missing there is told once, and not many times a second.
void TimePlayer::advance()
{
    auto const frame = m_session.activeFrame();
    int const count = static_cast<int>(moments().size());
    if (!frame || frame->id != m_playedFrame || count < 2)
        return pause();
    if (sdk::AppLock::depth() > 0 || m_isDrawing())
        return;
    int const next = place() + 1;
    if (next >= count && !m_isLooping)
        return pause();
    if (!show(moments()[static_cast<std::size_t>(next < count ? next : 0)]))
        return pause();
    if (next + 1 == count && !m_isLooping)
        pause();
}

} // namespace veldraw::app
