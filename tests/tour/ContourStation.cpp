#include "tests/tour/ContourStation.h"

#include "dialogs/zoneops/DuplicateZoneDialog.h"
#include "kernel/session/Session.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QListView>
#include <QPushButton>

#include <utility>

namespace veldraw::tests {

using namespace app;

namespace {

kernel::Frame const& frame()
{
    return *kernel::Session::instance().activeFrame();
}

kernel::ContourColours const& colours()
{
    return frame().contourColours;
}

} // namespace

ContourStation::ContourStation(TourContext& context, QString file)
    : m_tour(context)
    , m_file(std::move(file))
{
}

void ContourStation::run()
{
    open();
    chooseMap();
    typeARange();
    goBack();
    drawLines();
    drawArrows();
    copyACommand();
}

void ContourStation::open()
{
    m_tour.window.openFiles({m_file}, DocumentController::Place::FreshPage);
    m_tour.activate(m_tour.window);
    m_tour.restingPlot();
    m_tour.user.key(Qt::Key_4, Qt::ControlModifier);
    auto const& field = *m_tour.window.findChild<QAbstractSpinBox*>(QStringLiteral("contourMin"));
    m_tour.expectThat("Ctrl+4 shows the range of the colours", [&] { return field.isVisible() && field.isEnabled(); });
}

void ContourStation::chooseMap()
{
    QImage const before = m_tour.restingPlot();
    auto& map = *m_tour.window.findChild<QComboBox*>(QStringLiteral("contourMap"));
    map.setFocus();
    m_tour.user.key(Qt::Key_Down);
    m_tour.expectThat("an arrow chooses other colours", [] { return colours().map != kernel::ColourMapKind::Viridis; });
    m_tour.expectThat("which the plot has", [&] { return m_tour.plot() != before; });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("contour-map"));
}

void ContourStation::typeARange()
{
    QImage const before = m_tour.restingPlot();
    auto& field = *m_tour.window.findChild<QAbstractSpinBox*>(QStringLiteral("contourMax"));
    double const highest = field.text().toDouble();
    field.setFocus();
    field.selectAll();
    m_tour.user.type(QString::number(0.5 * highest));
    m_tour.user.key(Qt::Key_Return);
    m_tour.expectThat("a highest value that is typed is that of the colours", [] { return colours().isFixed; });
    m_tour.expectThat("and the plot says that there are values beyond", [&] { return m_tour.plot() != before; });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("contour-range"));
    m_tour.user.click(*m_tour.window.findChild<QPushButton*>(QStringLiteral("contourAsShown")));
    m_tour.expectThat("Values Shown takes it away", [] { return !colours().isFixed; });
}

void ContourStation::goBack()
{
    for (int step = 0; step < 3; ++step)
        m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("Ctrl+Z takes all of it back", [] { return colours() == kernel::ContourColours(); });
}

void ContourStation::drawLines()
{
    QImage const before = m_tour.restingPlot();
    m_tour.user.key(Qt::Key_P, Qt::AltModifier);
    m_tour.user.key(Qt::Key_T);
    m_tour.expectThat("Alt+P, T draws contour lines", [] { return frame().contourLines; });
    m_tour.expectThat("which the plot has", [&] { return m_tour.plot() != before; });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("contour-lines"));
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("Ctrl+Z takes them away", [] { return !frame().contourLines; });
}

// The displacement became the vector when the file was opened.
void ContourStation::drawArrows()
{
    QImage const before = m_tour.restingPlot();
    m_tour.user.key(Qt::Key_P, Qt::AltModifier);
    m_tour.user.key(Qt::Key_W);
    m_tour.expectThat("Alt+P, W draws arrows", [] { return frame().showVectors; });
    m_tour.expectThat("which the plot has", [&] { return m_tour.plot() != before; });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("vector-arrows"));
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("Ctrl+Z takes them away", [] { return !frame().showVectors; });
}

void ContourStation::copyACommand()
{
    auto* const dialog = m_tour.openDialog<dialogs::data::DuplicateZoneDialog>(Qt::Key_U);
    if (!m_tour.check("Alt+D, U opens Create Duplicate Zone", dialog != nullptr))
        return;
    m_tour.user.clickRow(TourContext::list(*dialog, "duplicateZone_Source_MList"), 0);
    QPushButton& button = TourContext::button(*dialog, "C&reate");
    QPoint const place = button.rect().center();
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place, button.mapToGlobal(place)); // as by the right button
    QApplication::sendEvent(&button, &asked);
    m_tour.user.settle();
    m_tour.user.picture(QStringLiteral("copy-as-command"));
    m_tour.user.key(Qt::Key_C);
    m_tour.expect("Copy as Command puts on the clipboard what it would do", QStringLiteral("duplicate-zones zones=1"),
                  [] { return QApplication::clipboard()->text(); });
    m_tour.check("and does nothing", !kernel::Session::instance().history().canUndo());
    m_tour.user.key(Qt::Key_Escape);
}

} // namespace veldraw::tests
