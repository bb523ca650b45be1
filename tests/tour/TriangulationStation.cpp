#include "tests/tour/TriangulationStation.h"

#include "dialogs/smoothing/SmoothDialog.h"
#include "dialogs/smoothing/TriangulateDialog.h"
#include "dialogs/zoneops/CreateMirrorZoneDialog.h"
#include "tests/tour/ZoneProbe.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QListView>
#include <QPushButton>

#include <cmath>
#include <utility>

namespace veldraw::tests {

using namespace app;

using dialogs::data::CreateMirrorZoneDialog;
using dialogs::data::SmoothDialog;
using dialogs::data::TriangulateDialog;

namespace {

// One-based numbers of the zones.
constexpr int marks = 1;
constexpr int shore = 2;
constexpr int lake = 3;
constexpr int withinHull = 4;
constexpr int island = 5;
constexpr int mirrorImage = 6;

QString const zonesAtStart = QStringLiteral("Marks, Shore, Lake");

kernel::Zone const& zoneOf(int number)
{
    return *TourContext::dataSet().zone(number);
}

double areaOfTriangle(ZoneProbe::Triple const& a, ZoneProbe::Triple const& b, ZoneProbe::Triple const& c)
{
    return ((b[0] - a[0]) * (c[1] - a[1]) - (c[0] - a[0]) * (b[1] - a[1])) / 2.0;
}

/// Calls @p use with the three corners of each triangle of a zone.
template <typename Use>
void forEachTriangle(int zone, Use const& use)
{
    kernel::Connectivity const& cells = *zoneOf(zone).connectivity;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        std::int64_t const* const corners = cells.indices + cells.offsets[cell];
        use(corners[0], corners[1], corners[2]);
    }
}

double areaOfTriangles(int zone)
{
    ZoneProbe const points(zone);
    double area = 0.0;
    forEachTriangle(zone, [&](std::int64_t a, std::int64_t b, std::int64_t c) {
        area += std::abs(areaOfTriangle(points.point(a), points.point(b), points.point(c)));
    });
    return area;
}

/// Whether a place is in a triangle of a zone: the three triangles to its corners have one sense then.
bool covers(int zone, ZoneProbe::Triple const& place)
{
    ZoneProbe const points(zone);
    bool isCovered = false;
    forEachTriangle(zone, [&](std::int64_t a, std::int64_t b, std::int64_t c) {
        auto const isLeftOf = [&](std::int64_t from, std::int64_t to) {
            return areaOfTriangle(points.point(from), points.point(to), place) > 0.0;
        };
        isCovered = isCovered || (isLeftOf(a, b) == isLeftOf(b, c) && isLeftOf(b, c) == isLeftOf(c, a));
    });
    return isCovered;
}

ZoneProbe::Triple middleOfTheLake()
{
    ZoneProbe const points(lake);
    std::int64_t const half = points.pointCount() / 2; // opposite to the first one
    ZoneProbe::Triple const one = points.point(0);
    ZoneProbe::Triple const other = points.point(half);
    return {(one[0] + other[0]) / 2.0, (one[1] + other[1]) / 2.0, 0.0};
}

/// Within a closed line, by Gauss's formula.
double areaWithin(int line)
{
    ZoneProbe const points(line);
    double area = 0.0;
    for (std::int64_t at = 1; at < points.pointCount(); ++at)
        area += areaOfTriangle(points.point(0), points.point(at - 1), points.point(at));
    return std::abs(area);
}

std::vector<double> heights(int zone)
{
    kernel::DataSet const& dataSet = TourContext::dataSet();
    auto const buffer = dataSet.field(zone, dataSet.findVariable("height"))->group()->buffer();
    std::vector<double> values;
    for (std::int64_t at = 0; at < buffer->size(); ++at)
        values.push_back(buffer->value(at));
    return values;
}

/// How much heights differ along the sides of triangles: the root of the mean square.
double roughness(int zone)
{
    std::vector<double> const values = heights(zone);
    double sum = 0.0;
    forEachTriangle(zone, [&](std::int64_t a, std::int64_t b, std::int64_t c) {
        double const atA = values[static_cast<std::size_t>(a)];
        double const atB = values[static_cast<std::size_t>(b)];
        double const atC = values[static_cast<std::size_t>(c)];
        sum += (atA - atB) * (atA - atB) + (atB - atC) * (atB - atC) + (atC - atA) * (atC - atA);
    });
    return std::sqrt(sum / static_cast<double>(3 * zoneOf(zone).cellCount()));
}

} // namespace

TriangulationStation::TriangulationStation(TourContext& context, QString file)
    : m_tour(context)
    , m_file(std::move(file))
{
}

void TriangulationStation::run()
{
    open();
    triangulateTheMarks();
    triangulateWithinTheShore();
    smooth();
    mirror();
    undoAll();
}

void TriangulationStation::open()
{
    m_tour.window.openFiles({m_file}, DocumentController::Place::FreshPage);
    m_tour.check("the sample of the island has marks, a shore and a lake", zonesAtStart, TourContext::zoneNames());
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("triangulation-before"));
}

void TriangulationStation::triangulateTheMarks()
{
    auto* const dialog = m_tour.openDialog<TriangulateDialog>(Qt::Key_T);
    if (!m_tour.check("Alt+D, T opens 2D Triangulation", dialog != nullptr))
        return;
    m_tour.check("window title", QStringLiteral("2D Triangulation"), dialog->windowTitle());
    QPushButton& button = TourContext::button(*dialog, "&Triangulate");
    m_tour.check("\"Triangulate\" is grey as long as nothing is selected", !button.isEnabled());
    m_tour.user.clickRow(TourContext::list(*dialog, "sourceZonesListView"), marks - 1);
    m_tour.expectThat("it is not when a zone is", [&] { return button.isEnabled(); });
    m_tour.enterNumber(*dialog, "triangleKeepFactorSpinBox", QStringLiteral("0"));
    m_tour.expectSilence("\"Triangulate\" clicked: a zone more, and no message", button,
                         [] { return TourContext::dataSet().zoneCount() == withinHull; });
    // Euler: twice the points, less those on the hull, less 2.
    std::int64_t const hull = 2 * zoneOf(withinHull).pointCount() - 2 - zoneOf(withinHull).cellCount();
    m_tour.check("all marks are corners of triangles, few of them on the hull",
                 zoneOf(withinHull).pointCount() == zoneOf(marks).pointCount() && hull >= 3 && hull < 30);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("triangulation-of-marks"));
}

void TriangulationStation::triangulateWithinTheShore()
{
    auto* const dialog = UserDriver::visibleWindow<TriangulateDialog>();
    if (!dialog)
        return;
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Z, Qt::AltModifier);
    QListView& boundaries = TourContext::list(*dialog, "boundaryZonesListView");
    m_tour.expectThat("Alt+Z offers the boundary zones", [&] { return boundaries.isEnabled(); });
    m_tour.user.key(Qt::Key_P, Qt::AltModifier);
    m_tour.user.clickRow(boundaries, shore - 1);
    m_tour.user.clickRow(boundaries, lake - 1, Qt::ControlModifier);
    m_tour.user.picture(QStringLiteral("triangulation-dialog"));
    m_tour.expectSilence("Alt+T with the shore and the lake: another zone", Qt::Key_T, Qt::AltModifier,
                         [] { return TourContext::dataSet().zoneCount() == island; });
    double const land = areaWithin(shore) - areaWithin(lake);
    m_tour.check("its area is that within the shore without the lake, to nine digits",
                 std::abs(areaOfTriangles(island) - land) < 1e-9 * land);
    m_tour.check("it has a hole at the lake, which the one without a boundary has not",
                 !covers(island, middleOfTheLake()) && covers(withinHull, middleOfTheLake()));
    close(*dialog);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("triangulation-within-shore"));
}

void TriangulationStation::smooth()
{
    auto* const dialog = m_tour.openDialog<SmoothDialog>(Qt::Key_O);
    if (!m_tour.check("Alt+D, O opens Smooth", dialog != nullptr))
        return;
    m_tour.check("window title of the other dialog", QStringLiteral("Smooth"), dialog->windowTitle());
    auto const& boundary = *dialog->findChild<QComboBox*>(QStringLiteral("smoothDlg_Boundary_ComboBox"));
    m_tour.user.key(Qt::Key_Z, Qt::AltModifier);
    m_tour.user.key(Qt::Key_Home);
    m_tour.expectThat("an ordered zone has a boundary to choose", [&] { return boundary.isEnabled(); });
    m_tour.user.key(Qt::Key_End);
    m_tour.expectThat("a zone of triangles has none", [&] { return !boundary.isEnabled(); });
    m_tour.user.key(Qt::Key_V, Qt::AltModifier);
    m_tour.user.key(Qt::Key_End);
    m_tour.user.key(Qt::Key_N, Qt::AltModifier);
    m_tour.user.key(Qt::Key_A, Qt::ControlModifier);
    m_tour.user.type(QStringLiteral("5"));
    m_tour.user.key(Qt::Key_Tab);
    m_tour.user.picture(QStringLiteral("smooth-dialog"));
    double const before = roughness(island);
    m_tour.expectMessage("five passes by Alt+S: the message", QStringLiteral("Smoothing was successful."), Qt::Key_S,
                         Qt::AltModifier);
    m_tour.check("heights differ less along the triangles' sides, by a fifth at least",
                 roughness(island) < 0.8 * before);
    m_tour.check("the other triangulation is as it was", heights(withinHull) == heights(marks));
    close(*dialog);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("smooth-after"));
}

void TriangulationStation::mirror()
{
    auto* const dialog = m_tour.openDialog<CreateMirrorZoneDialog>(Qt::Key_M);
    if (!m_tour.check("Alt+D, M opens Create Mirror Zone for the island", dialog != nullptr))
        return;
    m_tour.user.key(Qt::Key_X, Qt::AltModifier);
    m_tour.user.clickRow(TourContext::list(*dialog, "createMirrorZone_Source_MList"), island - 1);
    m_tour.expectMessage("the triangles mirrored about the X axis: the message",
                         QStringLiteral("Mirror zone creation successful."), TourContext::button(*dialog, "C&reate"));
    if (m_tour.check("one zone more again, of triangles", mirrorImage, TourContext::dataSet().zoneCount()))
        m_tour.check("every Y of them has changed its sign",
                     ZoneProbe(island).distance(ZoneProbe(mirrorImage), ZoneProbe::negatedY) == 0.0);
    close(*dialog);
    m_tour.user.key(Qt::Key_F, Qt::ControlModifier);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("triangulation-mirrored"));
}

void TriangulationStation::undoAll()
{
    m_tour.activate(m_tour.window);
    QAction const* const undo = m_tour.action("undoAction");
    for (char const* const step : {"Create Mirror Zone", "Smooth", "2D Triangulation", "2D Triangulation"}) {
        m_tour.expect("the Edit menu names the step to be undone", QStringLiteral("&Undo ") + QLatin1String(step),
                      [&] { return undo ? undo->text() : QString(); });
        m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    }
    m_tour.expect("four times Ctrl+Z leads back to marks, shore and lake", zonesAtStart, &TourContext::zoneNames);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("triangulation-undone"));
}

void TriangulationStation::close(QDialog& dialog)
{
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the dialog", [&] { return !dialog.isVisible(); });
    m_tour.activate(m_tour.window);
}

} // namespace veldraw::tests
