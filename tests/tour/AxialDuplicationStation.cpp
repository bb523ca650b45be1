#include "tests/tour/AxialDuplicationStation.h"

#include "dialogs/zoneops/AxialDuplicationDialog.h"
#include "tests/tour/ZoneProbe.h"

#include <QAction>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>

#include <cmath>

namespace veldraw::tests {

using dialogs::data::AxialDuplicationDialog;

namespace {

constexpr int segments = 6;
constexpr double pi = 3.14159265358979323846;
// Of single-precision values of the size of the sample.
constexpr double copyRounding = 1e-5;

} // namespace

AxialDuplicationStation::AxialDuplicationStation(TourContext& context)
    : m_tour(context)
    , m_namesAtStart(TourContext::zoneNames())
    , m_countAtStart(TourContext::dataSet().zoneCount())
{
}

void AxialDuplicationStation::run()
{
    m_tour.user.picture(QStringLiteral("axial-duplication-before"));
    auto* const dialog = m_tour.openDialog<AxialDuplicationDialog>(Qt::Key_A);
    if (!m_tour.check("Alt+D, A opens Axial Duplication", dialog != nullptr))
        return;
    m_tour.check("window title", QStringLiteral("Axial Duplication"), dialog->windowTitle());
    duplicate();
    undoAndRedo();
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the dialog", [&] { return !dialog->isVisible(); });
}

void AxialDuplicationStation::duplicate()
{
    auto& dialog = *UserDriver::visibleWindow<AxialDuplicationDialog>();
    m_tour.expect("the picked zone is selected already", 1,
                  [&] { return TourContext::selectedRowCount(TourContext::list(dialog, "zoneList")); });
    auto& axis = *dialog.findChild<QRadioButton*>(QStringLiteral("zAxisButton"));
    m_tour.user.click(axis, QPoint(8, axis.height() / 2));
    m_tour.user.key(Qt::Key_3, Qt::AltModifier);
    auto const& circle = *dialog.findChild<QRadioButton*>(QStringLiteral("fullRotation_radioButton"));
    m_tour.expectThat("Alt+3 chooses the full circle", [&] { return circle.isChecked(); });
    m_tour.enterNumber(dialog, "numberOfSegments", QString::number(segments));
    m_tour.user.picture(QStringLiteral("axial-duplication-entered"));
    m_tour.expectSilence("6 segments, Alt+D duplicates: no message", Qt::Key_D, Qt::AltModifier,
                         [&] { return TourContext::dataSet().zoneCount() > m_countAtStart; });
    checkCopies();
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_F, Qt::ControlModifier);
    m_tour.user.picture(QStringLiteral("axial-duplication-after"));
}

void AxialDuplicationStation::checkCopies()
{
    if (!m_tour.check("five copies", m_countAtStart + segments - 1, TourContext::dataSet().zoneCount()))
        return;
    ZoneProbe const source(1);
    double worst = 0.0;
    for (int copy = 1; copy < segments; ++copy) {
        double const angle = 2.0 * pi * copy / segments;
        auto const rotated = [angle](ZoneProbe::Triple const& value) -> ZoneProbe::Triple {
            return {std::cos(angle) * value[0] - std::sin(angle) * value[1],
                    std::sin(angle) * value[0] + std::cos(angle) * value[1], value[2]};
        };
        ZoneProbe const found(m_countAtStart + copy);
        worst = std::max({worst, source.distance(found, rotated), source.vectorDistance(found, rotated)});
    }
    m_tour.check("copy k stands at k times 60 degrees, with its vectors", worst < copyRounding);
    int const unchanged = TourContext::dataSet().findVariable("temperature");
    m_tour.check("all share what is not rotated", segments,
                 TourContext::dataSet().field(m_countAtStart + 1, unchanged)->shareCount());
}

void AxialDuplicationStation::undoAndRedo()
{
    QString const namesWithCopies = TourContext::zoneNames();
    m_tour.activate(m_tour.window);
    QAction const* const undo = m_tour.action("undoAction");
    m_tour.expect("the Edit menu names the step", QStringLiteral("&Undo Axial Duplication"),
                  [&] { return undo ? undo->text() : QString(); });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("Ctrl+Z takes all copies away", m_namesAtStart, &TourContext::zoneNames);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    m_tour.expect("Ctrl+Shift+Z brings them again", namesWithCopies, &TourContext::zoneNames);
}

} // namespace veldraw::tests
