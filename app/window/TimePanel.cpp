#include "app/window/TimePanel.h"

#include "dialogs/widgets/QScientificSpinBox.h"
#include "kernel/data/TimeStrands.h"
#include "kernel/operations/LoadVariables.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

TimePanel::TimePanel(kernel::Session& session, std::function<bool()> isDrawing, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_player(session, std::move(isDrawing), this)
    , m_notice(new QLabel)
    , m_controls(new QWidget)
    , m_time(new ui::QScientificSpinBox)
    , m_step(new QLabel)
    , m_slider(new QSlider(Qt::Horizontal))
    , m_first(newButton("timeFirst", Glyph::ToFirst, QStringLiteral("First moment"), [this] { m_player.goTo(0); }))
    , m_back(newButton("timeBack", Glyph::StepBack, QStringLiteral("One moment back"),
                       [this] { m_player.goTo(m_player.place() - 1); }))
    , m_play(newButton("timePlay", Glyph::Play, QStringLiteral("Play"), [this] { playOrPause(); }))
    , m_on(newButton("timeOn", Glyph::StepOn, QStringLiteral("One moment on"),
                     [this] { m_player.goTo(m_player.place() + 1); }))
    , m_last(newButton("timeLast", Glyph::ToLast, QStringLiteral("Last moment"),
                       [this] { m_player.goTo(static_cast<int>(m_player.moments().size()) - 1); }))
    , m_loop(new QCheckBox(QStringLiteral("Loop")))
    , m_speed(new QSpinBox)
    , m_follower(session, [this] { refresh(); })
{
    makeFields();
    layOut();
    connectFields();
    refresh();
}

TimePanel::~TimePanel() = default;

QToolButton* TimePanel::newButton(char const* name, Glyph glyph, QString const& toolTip,
                                  std::function<void()> const& press)
{
    auto* const button = new QToolButton;
    button->setObjectName(QString::fromLatin1(name));
    button->setIcon(makeIcon(glyph));
    button->setIconSize({20, 20});
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, press);
    return button;
}

void TimePanel::makeFields()
{
    m_notice->setWordWrap(true);
    m_notice->setEnabled(false);
    m_notice->setObjectName(QStringLiteral("timeNotice"));
    m_time->setObjectName(QStringLiteral("timeField"));
    m_time->setAccessibleName(QStringLiteral("Time"));
    m_step->setObjectName(QStringLiteral("timeStep"));
    m_slider->setObjectName(QStringLiteral("timeSlider"));
    m_slider->setAccessibleName(QStringLiteral("Moment"));
    m_slider->setToolTip(QStringLiteral("Drag through the moments; arrows go one on or back"));
    m_loop->setObjectName(QStringLiteral("timeLoop"));
    m_loop->setToolTip(QStringLiteral("Play from the first moment again after the last"));
    m_speed->setObjectName(QStringLiteral("timeSpeed"));
    m_speed->setRange(1, TimePlayer::mostSpeed);
    m_speed->setValue(m_player.speed());
    m_speed->setSuffix(QStringLiteral(" a second"));
    m_speed->setToolTip(QStringLiteral("How many moments are shown in a second, where drawing is fast enough"));
    m_play->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Space));
}

void TimePanel::layOut()
{
    auto* const buttons = new QHBoxLayout;
    for (QToolButton* const button : {m_first, m_back, m_play, m_on, m_last})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(m_loop);
    auto* const form = new QFormLayout(m_controls);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(QStringLiteral("Time:"), m_time);
    form->addRow(m_slider);
    form->addRow(m_step);
    form->addRow(buttons);
    form->addRow(QStringLiteral("Speed:"), m_speed);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_notice);
    layout->addWidget(m_controls);
    layout->addStretch();
}

void TimePanel::connectFields()
{
    connect(m_time, &ui::QScientificSpinBox::editingFinished, this, &TimePanel::takeNumber);
    m_time->connectIncrement([this](int steps) { m_player.goTo(m_player.place() + steps); });
    m_time->connectDecrement([this](int steps) { m_player.goTo(m_player.place() - std::abs(steps)); });
    connect(m_slider, &QSlider::sliderPressed, this, [this] {
        m_player.pause();
        m_player.beginRun();
    });
    connect(m_slider, &QSlider::sliderReleased, this, [this] { m_player.endRun(); });
    // Of what the user does alone, not of what refresh() sets.
    connect(m_slider, &QSlider::actionTriggered, this, [this] { m_player.goTo(m_slider->sliderPosition()); });
    connect(m_loop, &QCheckBox::toggled, this, [this](bool isOn) { m_player.setLooping(isOn); });
    connect(m_speed, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int speed) { m_player.setSpeed(speed); });
    connect(&m_player, &TimePlayer::playingChanged, this, &TimePanel::showPlaying);
    connect(&m_player, &TimePlayer::refused, this, [this] {
        m_follower.schedule();
        Q_EMIT editRefused();
    });
}

void TimePanel::takeFocus()
{
    QWidget* const target = m_controls->isEnabled() ? static_cast<QWidget*>(m_slider) : this;
    target->setFocus(Qt::ShortcutFocusReason);
}

void TimePanel::takeNumber()
{
    auto const frame = m_session.activeFrame();
    double const time = m_time->value();
    if (frame && (frame->solutionTime < time || frame->solutionTime > time))
        m_player.goToTime(time);
}

void TimePanel::playOrPause()
{
    if (m_player.isPlaying())
        m_player.pause();
    else
        m_player.play();
}

void TimePanel::showPlaying()
{
    bool const isPlaying = m_player.isPlaying();
    QString const text = isPlaying ? QStringLiteral("Pause") : QStringLiteral("Play");
    m_play->setIcon(makeIcon(isPlaying ? Glyph::Pause : Glyph::Play));
    m_play->setToolTip(text + QStringLiteral(" (Ctrl+Space)"));
    m_play->setAccessibleName(text);
}

QString TimePanel::reasonAgainst() const
{
    auto const frame = m_session.activeFrame();
    if (!frame || !frame->dataSet)
        return QStringLiteral("There is no data set in the active frame.");
    if (kernel::solutionTimes(*frame->dataSet).empty())
        return QStringLiteral("The data set shows one moment only: none of its enabled zones is in a time strand.");
    return m_player.moments().empty() ? QStringLiteral("Time goes on in 2D and 3D plots.") : QString();
}

void TimePanel::refresh()
{
    QString const reason = reasonAgainst();
    m_notice->setText(reason);
    m_notice->setVisible(!reason.isEmpty());
    m_controls->setEnabled(reason.isEmpty());
    int const count = static_cast<int>(m_player.moments().size());
    int const place = m_player.place();
    auto const frame = m_session.activeFrame();
    double const time = frame ? frame->solutionTime : 0.0;
    if (m_time->value() < time || m_time->value() > time)
        m_time->setValue(time);
    m_slider->setRange(0, std::max(0, count - 1));
    m_slider->setPageStep(std::max(1, count / 10));
    if (!m_slider->isSliderDown())
        m_slider->setValue(place);
    m_step->setText(count == 0  ? QString()
                    : place < 0 ? QStringLiteral("Before the first of %1").arg(count)
                                : QStringLiteral("Moment %1 of %2").arg(place + 1).arg(count));
    m_first->setEnabled(place > 0);
    m_back->setEnabled(place > 0);
    m_play->setEnabled(count > 1);
    m_on->setEnabled(place + 1 < count);
    m_last->setEnabled(place + 1 < count);
    showPlaying();
    loadWhatIsSeen();
}

// A step of the history that is taken back, or a new contour variable, may need values that have been let go.
void TimePanel::loadWhatIsSeen()
{
    auto const frame = m_session.activeFrame();
    if (m_player.moments().empty() || sdk::AppLock::depth() > 0 || m_session.events().eventCount() == m_failedAt)
        return;
    kernel::NumberSet const zones = frame->zonesInSight();
    kernel::NumberSet const variables = frame->drawnVariables();
    bool const areLoaded = std::all_of(zones.begin(), zones.end(), [&](int zone) {
        return !frame->dataSet->zone(zone)->isDeferred() &&
               std::all_of(variables.begin(), variables.end(),
                           [&](int variable) { return frame->dataSet->field(zone, variable)->isLoaded(); });
    });
    if (areLoaded)
        return;
    sdk::AppLock const lock(sdk::AppLock::DoNotRecord);
    if (!m_session.perform(kernel::LoadVariables(*frame->dataSet, zones, variables))) {
        m_failedAt = m_session.events().eventCount();
        Q_EMIT editRefused();
    }
}

} // namespace veldraw::app
