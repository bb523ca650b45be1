#include "tests/tour/InterpolationStation.h"

#include "dialogs/interpolation/InverseDistanceInterpolationDialog.h"
#include "dialogs/interpolation/KrigingDialog.h"
#include "dialogs/interpolation/LinearInterpDialog.h"
#include "tests/tour/ZoneProbe.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veldraw::tests {

using namespace app;

using dialogs::data::InverseDistanceInterpolationDialog;
using dialogs::data::KrigingDialog;
using dialogs::data::LinearInterpDialog;

namespace {

// One-based numbers of the zones.
constexpr int gauges = 1;
constexpr int forecast = 2;
constexpr int map = 3;

// Z, which is no axis of a 2D plot, stands before it.
constexpr int rainfallRow = 1;

double rootMeanSquare(std::vector<double> const& some, std::vector<double> const& others)
{
    double sum = 0.0;
    for (std::size_t at = 0; at < some.size(); ++at)
        sum += (some[at] - others[at]) * (some[at] - others[at]);
    return std::sqrt(sum / static_cast<double>(some.size()));
}

} // namespace

InterpolationStation::InterpolationStation(TourContext& context, QString file)
    : m_tour(context)
    , m_file(std::move(file))
{
}

void InterpolationStation::run()
{
    open();
    byInverseDistance();
    byKriging();
    linearly();
}

void InterpolationStation::open()
{
    m_tour.window.openFiles({m_file}, DocumentController::Place::FreshPage);
    m_tour.check("the sample of rainfall has gauges, a forecast and a map", QStringLiteral("Gauges, Forecast, Map"),
                 TourContext::zoneNames());
    m_tour.check("the map has no values", rainfall(map).empty());
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("interpolation-before"));
}

void InterpolationStation::byInverseDistance()
{
    auto* const dialog = m_tour.openDialog<InverseDistanceInterpolationDialog>(Qt::Key_I);
    if (!m_tour.check("Alt+D, I opens Inverse-Distance Interpolation", dialog != nullptr))
        return;
    Controls const controls{"invDistInterp_Source_MList", "invDistInterp_Variable_MList",
                            "invDistInterp_DestZone_CmbBox"};
    m_tour.check("window title", QStringLiteral("Inverse-Distance Interpolation"), dialog->windowTitle());
    m_tour.expectMessage("nothing selected: the message",
                         QStringLiteral("Error processing inverse distance interpolation"),
                         TourContext::button(*dialog, "&Interpolate"));
    m_tour.check("the refusal changes nothing", rainfall(map).empty());
    select(*dialog, controls, gauges, map);
    type(*dialog, "invDistInterp_Exponent_1Text", QStringLiteral("3"));
    m_tour.user.picture(QStringLiteral("inverse-distance"));
    m_tour.expectMessage("\"Interpolate\" clicked: the message",
                         QStringLiteral("Inverse distance interpolation successful."),
                         TourContext::button(*dialog, "&Interpolate"));
    std::vector<double> const known = rainfall(gauges);
    std::vector<double> const found = rainfall(map);
    auto const [least, most] = std::minmax_element(known.begin(), known.end());
    m_tour.check("every value of the map lies between those of the gauges",
                 !found.empty() && *std::min_element(found.begin(), found.end()) >= *least &&
                     *std::max_element(found.begin(), found.end()) <= *most);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("inverse-distance-after"));
    undo("the Edit menu names the step", QStringLiteral("Inverse-Distance Interpolation"));
    close(*dialog);
}

void InterpolationStation::byKriging()
{
    auto* const dialog = m_tour.openDialog<KrigingDialog>(Qt::Key_K);
    if (!m_tour.check("Alt+D, K opens Kriging", dialog != nullptr))
        return;
    Controls const controls{"krigingDlg_SourceZone_ListView", "krigingDlg_Variables_ListView",
                            "krigingDlg_DestZone_ComboBox"};
    QPushButton& button = TourContext::button(*dialog, "&Interpolate");
    m_tour.check("\"Interpolate\" is grey as long as nothing is selected", !button.isEnabled());
    select(*dialog, controls, gauges, map);
    m_tour.expectThat("it is not when everything is", [&] { return button.isEnabled(); });
    m_tour.user.picture(QStringLiteral("kriging"));
    m_tour.expectMessage("\"Interpolate\" clicked: the message", QStringLiteral("Kriging interpolation successful."),
                         button);
    m_tour.check("the map has values", !rainfall(map).empty());
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("kriging-after"));
    undo("the Edit menu names the step of kriging", QStringLiteral("Kriging"));

    std::vector<double> const truth = rainfall(forecast);
    m_tour.activate(*dialog);
    chooseDestination(*dialog, controls, forecast);
    m_tour.expectMessage("to the forecast by Alt+I: the message", QStringLiteral("Kriging interpolation successful."),
                         Qt::Key_I, Qt::AltModifier);
    // The forecast has the rainfall that the gauges were read from, between 12 and 35 mm.
    double const error = rootMeanSquare(truth, rainfall(forecast));
    m_tour.check("kriging finds the forecast within 1 mm on average, and not by leaving it alone",
                 error > 0.0 && error < 1.0);
    undo("the Edit menu names that step too", QStringLiteral("Kriging"));
    close(*dialog);
}

void InterpolationStation::linearly()
{
    auto* const dialog = m_tour.openDialog<LinearInterpDialog>(Qt::Key_N);
    if (!m_tour.check("Alt+D, N opens Linear Interpolation", dialog != nullptr))
        return;
    Controls const controls{"LinearIterp_SourceZones_ListView", "LinearIterp_SourceVariables_ListView",
                            "LinearIterp_DestZone_ComboBox"};
    QListView& sources = TourContext::list(*dialog, controls.sources);
    m_tour.check("gauges have no cells and are not offered", 2, sources.model()->rowCount());
    tryWhatIsRefused(*dialog, controls);
    // The forecast is selected by now; the first row is that of zone 2.
    chooseDestination(*dialog, controls, map);
    auto& constant = *dialog->findChild<QRadioButton*>(QStringLiteral("LinearIterp_Constant_RadioButton"));
    m_tour.user.click(constant, QPoint(8, constant.height() / 2));
    type(*dialog, "LinearIterp_ConstValue_LineEdit", QStringLiteral("10"));
    m_tour.user.picture(QStringLiteral("linear"));
    m_tour.expectMessage("\"Interpolate\" clicked: the message", QStringLiteral("Linear interpolation successful."),
                         TourContext::button(*dialog, "&Interpolate"));
    m_tour.check("the map has the forecast between its rows and columns, and the constant outside",
                 !rainfall(map).empty() && distanceFromForecast(10.0) < 1e-4);
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("linear-after"));
    undo("the Edit menu names the linear step", QStringLiteral("Linear Interpolation"));
    close(*dialog);
}

void InterpolationStation::tryWhatIsRefused(QDialog& dialog, Controls const& controls)
{
    QPushButton& button = TourContext::button(dialog, "&Interpolate");
    m_tour.expectMessage("nothing selected: the message about zones", QStringLiteral("No source zones were specified."),
                         button);
    m_tour.activate(dialog);
    m_tour.user.clickRow(TourContext::list(dialog, controls.sources), 0);
    m_tour.expectMessage("a zone clicked: the message about variables", QStringLiteral("No variables were specified."),
                         button);
    m_tour.activate(dialog);
    m_tour.user.clickRow(TourContext::list(dialog, controls.variables), rainfallRow);
    chooseDestination(dialog, controls, forecast);
    m_tour.expectMessage("the zone itself as the destination: the message",
                         QStringLiteral("Source zone is the same as destination zone."), button);
    m_tour.check("refusals change nothing", rainfall(map).empty());
    m_tour.activate(dialog);
}

void InterpolationStation::select(QDialog& dialog, Controls const& controls, int source, int destination)
{
    m_tour.activate(dialog);
    m_tour.user.clickRow(TourContext::list(dialog, controls.sources), source - 1);
    m_tour.user.clickRow(TourContext::list(dialog, controls.variables), rainfallRow);
    chooseDestination(dialog, controls, destination);
}

void InterpolationStation::chooseDestination(QDialog& dialog, Controls const& controls, int destination)
{
    auto const& box = *dialog.findChild<QComboBox*>(QLatin1String(controls.destination));
    m_tour.user.key(Qt::Key_D, Qt::AltModifier);
    m_tour.user.waitFor([&] { return box.hasFocus(); });
    m_tour.user.key(Qt::Key_Home);
    for (int row = 1; row < destination; ++row)
        m_tour.user.key(Qt::Key_Down);
    m_tour.user.settle();
}

void InterpolationStation::type(QDialog& dialog, char const* field, QString const& text)
{
    auto& edit = *dialog.findChild<QLineEdit*>(QLatin1String(field));
    m_tour.user.waitFor([&] { return edit.isEnabled(); });
    m_tour.user.click(edit);
    m_tour.user.key(Qt::Key_A, Qt::ControlModifier);
    m_tour.user.type(text);
    m_tour.user.key(Qt::Key_Tab);
    m_tour.user.settle();
}

void InterpolationStation::undo(char const* step, QString const& operation)
{
    m_tour.activate(m_tour.window);
    QAction const* const action = m_tour.action("undoAction");
    m_tour.expect(step, QStringLiteral("&Undo ") + operation, [&] { return action ? action->text() : QString(); });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("Ctrl+Z leaves the map without values", [] { return rainfall(map).empty(); });
}

void InterpolationStation::close(QDialog& dialog)
{
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the dialog", [&] { return !dialog.isVisible(); });
}

std::vector<double> InterpolationStation::rainfall(int zone)
{
    kernel::DataSet const& dataSet = TourContext::dataSet();
    kernel::Field const& field = *dataSet.field(zone, dataSet.findVariable("rainfall"));
    std::vector<double> values;
    if (field.isPassive())
        return values;
    auto const buffer = field.group()->buffer();
    for (std::int64_t at = 0; at < buffer->size(); ++at)
        values.push_back(buffer->value(at));
    return values;
}

double InterpolationStation::distanceFromForecast(double constant)
{
    // 13 columns on 10 km, 11 rows on 8 km.
    constexpr int columns = 13;
    constexpr int rows = 11;
    std::vector<double> const known = rainfall(forecast);
    std::vector<double> const found = rainfall(map);
    ZoneProbe const places(map);
    double largest = 0.0;
    for (std::size_t at = 0; at < found.size(); ++at) {
        ZoneProbe::Triple const place = places.point(static_cast<std::int64_t>(at));
        double const x = place[0] / 10.0 * (columns - 1);
        double const y = place[1] / 8.0 * (rows - 1);
        double expected = constant;
        if (x >= 0.0 && x <= columns - 1 && y >= 0.0 && y <= rows - 1) {
            int const i = std::min(static_cast<int>(x), columns - 2);
            int const j = std::min(static_cast<int>(y), rows - 2);
            auto const corner = [&](int right, int up) {
                return known[static_cast<std::size_t>((j + up) * columns + i + right)];
            };
            double const right = x - i;
            double const up = y - j;
            expected = (1.0 - up) * ((1.0 - right) * corner(0, 0) + right * corner(1, 0)) +
                       up * ((1.0 - right) * corner(0, 1) + right * corner(1, 1));
        }
        largest = std::max(largest, std::abs(found[at] - expected));
    }
    return largest;
}

} // namespace veldraw::tests
