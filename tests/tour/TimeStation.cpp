#include "tests/tour/TimeStation.h"

#include "dialogs/widgets/QScientificSpinBox.h"
#include "kernel/session/Session.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

#include <utility>

namespace veldraw::tests {

using namespace app;

namespace {

double timeShown()
{
    return kernel::Session::instance().activeFrame()->solutionTime;
}

template <typename Widget>
Widget& partOf(MainWindow& window, char const* name)
{
    return *window.findChild<Widget*>(QString::fromLatin1(name));
}

} // namespace

TimeStation::TimeStation(TourContext& context, QString transient, QString const& out)
    : m_tour(context)
    , m_transient(std::move(transient))
    , m_film(out + QStringLiteral("/wake.png"))
{
}

void TimeStation::run()
{
    open();
    step();
    typeATime();
    play();
    goBack();
    saveFilm();
}

void TimeStation::open()
{
    m_tour.window.openFiles({m_transient}, DocumentController::Place::FreshPage);
    m_tour.activate(m_tour.window);
    m_tour.restingPlot();
    m_tour.user.key(Qt::Key_7, Qt::ControlModifier);
    auto const& text = partOf<QLabel>(m_tour.window, "timeStep");
    m_tour.expect("Ctrl+7 shows the time, at the first moment", QStringLiteral("Moment 1 of 6"),
                  [&] { return text.isVisible() ? text.text() : QString(); });
}

void TimeStation::step()
{
    QImage const first = m_tour.restingPlot();
    auto& on = partOf<QToolButton>(m_tour.window, "timeOn");
    m_tour.user.click(on);
    m_tour.user.click(on);
    m_tour.expectThat("two clicks go two moments on", [] { return timeShown() > 0.9 && timeShown() < 1.1; });
    m_tour.expectThat("and the plot follows", [&] { return m_tour.plot() != first; });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("time"));
    partOf<QSlider>(m_tour.window, "timeSlider").setFocus();
    m_tour.user.key(Qt::Key_End);
    m_tour.expectThat("End in the slider goes to the last moment", [] { return timeShown() > 2.4; });
}

void TimeStation::typeATime()
{
    auto& field = partOf<ui::QScientificSpinBox>(m_tour.window, "timeField");
    field.setFocus();
    field.selectAll();
    m_tour.user.type(QStringLiteral("0.7"));
    m_tour.user.key(Qt::Key_Tab);
    auto const& text = partOf<QLabel>(m_tour.window, "timeStep");
    m_tour.expect("a time between moments shows the one before", QStringLiteral("Moment 2 of 6"),
                  [&] { return text.text(); });
}

void TimeStation::play()
{
    auto& button = partOf<QToolButton>(m_tour.window, "timePlay");
    m_tour.user.click(button);
    m_tour.expectThat("Play goes on to the last moment and stops there",
                      [&] { return timeShown() > 2.4 && button.accessibleName() == QStringLiteral("Play"); });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("time-played"));
}

void TimeStation::goBack()
{
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("Ctrl+Z takes back all that was played", [] { return timeShown() > 0.69 && timeShown() < 0.71; });
}

void TimeStation::saveFilm()
{
    QFileInfo const film(m_film);
    QDir folder(film.path() + QStringLiteral("/wake_film"));
    folder.removeRecursively(); // of an earlier tour
    m_tour.nameFile(
        [this] {
            m_tour.user.key(Qt::Key_F, Qt::AltModifier);
            m_tour.user.waitFor([] { return QApplication::activePopupWidget() != nullptr; });
            m_tour.user.key(Qt::Key_M);
        },
        m_film);
    m_tour.expect("Alt+F, M saves a film, a picture of each moment", 6,
                  [&] { return QDir(folder.path()).entryList({QStringLiteral("wake_*.png")}).size(); });
    m_tour.check("they have the size of the page and differ", true, [&] {
        QImage const first(folder.filePath(QStringLiteral("wake_0001.png")));
        QImage const last(folder.filePath(QStringLiteral("wake_0006.png")));
        return !first.isNull() && first.size() == last.size() && first != last;
    }());
    m_tour.expectThat("the moment is the one before", [] { return timeShown() > 0.69 && timeShown() < 0.71; });
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_1, Qt::ControlModifier);
}

} // namespace veldraw::tests
