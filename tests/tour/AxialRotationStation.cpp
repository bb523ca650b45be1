#include "tests/tour/AxialRotationStation.h"

#include "dialogs/zoneops/AxialRotationDialog.h"

#include <QAction>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>

namespace veldraw::tests {

using dialogs::data::AxialRotationDialog;

namespace {

// Of single-precision values of the size of the sample.
constexpr double rotationRounding = 1e-4;

ZoneProbe::Triple quarterAboutX(ZoneProbe::Triple const& value)
{
    return {value[0], -value[2], value[1]};
}

ZoneProbe::Triple asItIs(ZoneProbe::Triple const& value)
{
    return value;
}

} // namespace

AxialRotationStation::AxialRotationStation(TourContext& context)
    : m_tour(context)
    , m_atStart(1)
{
}

void AxialRotationStation::run()
{
    auto* const dialog = m_tour.openDialog<AxialRotationDialog>(Qt::Key_R);
    if (!m_tour.check("Alt+D, R opens Axial Rotation", dialog != nullptr))
        return;
    m_tour.check("window title", QStringLiteral("Axial Rotation"), dialog->windowTitle());
    tryWhatIsRefused();
    rotate();
    undoAndRedo();
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the dialog", [&] { return !dialog->isVisible(); });
}

void AxialRotationStation::tryWhatIsRefused()
{
    auto& dialog = *UserDriver::visibleWindow<AxialRotationDialog>();
    QListView& list = TourContext::list(dialog, "zoneList");
    m_tour.user.clickRow(list, 0);
    if (TourContext::selectedRowCount(list) == 1)
        m_tour.user.clickRow(list, 0, Qt::ControlModifier);
    m_tour.expectMessage("nothing selected: the message",
                         QStringLiteral("Axial Rotation requires selection of one or more zones."),
                         TourContext::button(dialog, "&Rotate"));
}

void AxialRotationStation::rotate()
{
    auto& dialog = *UserDriver::visibleWindow<AxialRotationDialog>();
    m_tour.user.clickRow(TourContext::list(dialog, "zoneList"), 0);
    auto& axis = *dialog.findChild<QRadioButton*>(QStringLiteral("xAxisButton"));
    m_tour.user.click(axis, QPoint(8, axis.height() / 2));
    m_tour.enterNumber(dialog, "angle_spinBox", QStringLiteral("90"));
    m_tour.user.picture(QStringLiteral("rotation-entered"));
    m_tour.expectSilence("a zone, the X axis, 90 degrees, \"Rotate\" clicked: no message",
                         TourContext::button(dialog, "&Rotate"),
                         [&] { return m_atStart.distance(ZoneProbe(1), asItIs) > 0.0; });
    ZoneProbe const rotated(1);
    m_tour.check("every point has been rotated by a quarter",
                 m_atStart.distance(rotated, quarterAboutX) < rotationRounding);
    m_tour.check("so has every vector", m_atStart.vectorDistance(rotated, quarterAboutX) < rotationRounding);
    m_tour.check("the zone is not where it was", m_atStart.distance(rotated, asItIs) > 0.1);
    m_tour.user.picture(QStringLiteral("rotation-after"));
}

void AxialRotationStation::undoAndRedo()
{
    m_tour.activate(m_tour.window);
    QAction const* const undo = m_tour.action("undoAction");
    auto const isBack = [&] {
        return m_atStart.distance(ZoneProbe(1), asItIs) == 0.0 && m_atStart.vectorDistance(ZoneProbe(1), asItIs) == 0.0;
    };
    m_tour.expect("the Edit menu names the step", QStringLiteral("&Undo Axial Rotation"),
                  [&] { return undo ? undo->text() : QString(); });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("Ctrl+Z brings every point back, to the last bit", isBack);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    m_tour.expectThat("Ctrl+Shift+Z rotates it again",
                      [&] { return m_atStart.distance(ZoneProbe(1), quarterAboutX) < rotationRounding; });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.user.waitFor(isBack);
}

} // namespace veldraw::tests
