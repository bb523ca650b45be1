#include "tests/tour/SliceStation.h"

#include "kernel/session/Session.h"

#include <QAction>
#include <QListWidget>
#include <QSlider>
#include <QTimer>
#include <QToolButton>

#include <utility>

namespace veldraw::tests {

using namespace app;

namespace {

std::vector<kernel::Cut> const& cuts()
{
    return kernel::Session::instance().activeFrame()->cuts;
}

} // namespace

SliceStation::SliceStation(TourContext& context, QString duct, QString bar)
    : m_tour(context)
    , m_duct(std::move(duct))
    , m_bar(std::move(bar))
{
}

void SliceStation::run()
{
    open(m_duct);
    sliceTheDuct();
    moveTheSlice();
    showSurfacesAgain();
    lookFromTheSides();
    open(m_bar);
    cutTheBar();
    undoAll();
}

void SliceStation::open(QString const& file)
{
    m_tour.window.openFiles({file}, DocumentController::Place::FreshPage);
    m_tour.activate(m_tour.window);
    m_tour.restingPlot();
    m_tour.user.key(Qt::Key_6, Qt::ControlModifier);
}

// The menu has an event loop of its own, so what is pressed in it is prepared before the click that opens it.
void SliceStation::addByMenu(char const* step, int mnemonic)
{
    auto& button = *m_tour.window.findChild<QToolButton*>(QStringLiteral("addCut"));
    std::size_t const before = cuts().size();
    QTimer::singleShot(300, &button, [this, mnemonic] { m_tour.user.key(mnemonic); });
    m_tour.user.click(button);
    m_tour.expectThat(step, [before] { return cuts().size() == before + 1; });
}

void SliceStation::sliceTheDuct()
{
    QImage const whole = m_tour.restingPlot();
    auto const& add = *m_tour.window.findChild<QToolButton*>(QStringLiteral("addCut"));
    m_tour.expectThat("Ctrl+6 shows the slices, and the button that adds one", [&] { return add.isVisible(); });
    addByMenu("Add, X: a slice through the middle", Qt::Key_X);
    m_tour.expectThat("the plot shows it in the place of the surfaces", [&] { return m_tour.plot() != whole; });
    addByMenu("Add, K: one of an index", Qt::Key_K);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("slices"));
    auto const& list = *m_tour.window.findChild<QListWidget*>(QStringLiteral("cutList"));
    m_tour.check("both are in the list, the last one selected", list.count() == 2 && list.currentRow() == 1);
}

void SliceStation::moveTheSlice()
{
    auto& list = *m_tour.window.findChild<QListWidget*>(QStringLiteral("cutList"));
    auto& slider = *m_tour.window.findChild<QSlider*>(QStringLiteral("cutSlider"));
    m_tour.user.clickRow(list, 0);
    double const before = cuts()[0].position;
    QImage const plot = m_tour.restingPlot();
    m_tour.user.click(slider, QPoint(slider.width() - 10, slider.height() / 2));
    m_tour.expectThat("a click beside the slider's handle moves the slice on",
                      [before] { return cuts()[0].position > before; });
    m_tour.expectThat("and the plot follows", [&] { return m_tour.plot() != plot; });
    slider.setFocus();
    m_tour.user.key(Qt::Key_End);
    double const last = cuts()[0].position;
    m_tour.user.key(Qt::Key_Left);
    m_tour.expectThat("End and an arrow go to the end and back a little", [=] { return cuts()[0].position < last; });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("slice-moved"));
    list.setFocus();
    m_tour.user.key(Qt::Key_Space);
    m_tour.expectThat("Space in the list hides it", [] { return !cuts()[0].isShown && cuts()[1].isShown; });
}

void SliceStation::showSurfacesAgain()
{
    QImage const cut = m_tour.restingPlot();
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_P, Qt::AltModifier);
    m_tour.user.key(Qt::Key_I);
    m_tour.expectThat("Alt+P, I gives the surfaces back",
                      [] { return !kernel::Session::instance().activeFrame()->showCuts; });
    m_tour.expectThat("which are seen", [&] { return m_tour.plot() != cut; });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("Ctrl+Z shows the slices again",
                      [] { return kernel::Session::instance().activeFrame()->showCuts; });
}

void SliceStation::lookFromTheSides()
{
    QImage const aslant = m_tour.restingPlot();
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier);
    m_tour.expectThat("Ctrl+Alt+Z looks along the Z axis", [&] { return m_tour.plot() != aslant; });
    QImage const above = m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("look-along-z"));
    m_tour.user.key(Qt::Key_R, Qt::AltModifier);
    m_tour.user.key(Qt::Key_L);
    m_tour.user.key(Qt::Key_X);
    m_tour.expectThat("Alt+R, L, X along the X axis", [&] { return m_tour.plot() != above; });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("look-along-x"));
}

void SliceStation::cutTheBar()
{
    addByMenu("Add, P: a plane through the bar of tetrahedra", Qt::Key_P);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("slice-plane"));
    addByMenu("Add, S: an iso-surface", Qt::Key_S);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("slice-iso-surface"));
}

void SliceStation::undoAll()
{
    m_tour.activate(m_tour.window);
    QAction const* const undo = m_tour.action("undoAction");
    m_tour.expect("the Edit menu names the step to be undone", QStringLiteral("&Undo New Slice"),
                  [&] { return undo ? undo->text() : QString(); });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("twice Ctrl+Z takes both away", [] { return cuts().empty(); });
    m_tour.user.key(Qt::Key_1, Qt::ControlModifier);
}

} // namespace veldraw::tests
