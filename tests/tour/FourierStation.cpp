#include "tests/tour/FourierStation.h"

#include "dialogs/fourier/FourierTransformDialog.h"
#include "kernel/frames/Page.h"
#include "kernel/session/Session.h"

#include <QAbstractButton>
#include <QDialog>
#include <QListView>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veldraw::tests {

using namespace app;

using dialogs::data::FourierTransformDialog;

namespace {

// What the sample is made of, in hertz.
constexpr double slowTone = 8.0;
constexpr double quickTone = 31.0;

QString const atStart = QStringLiteral("1 zones, 4 variables, 1 frames");
QString const variablesAtStart = QStringLiteral("time, signal, envelope, temperature");

std::vector<std::shared_ptr<kernel::Frame>> const& frames()
{
    return kernel::Session::instance().activePage()->frames;
}

kernel::Frame const& resultsFrame()
{
    return *frames().back();
}

QString size()
{
    kernel::DataSet const& data = TourContext::dataSet();
    return QStringLiteral("%1 zones, %2 variables, %3 frames")
        .arg(data.zoneCount())
        .arg(data.variableCount())
        .arg(frames().size());
}

std::vector<double> valuesOf(kernel::LineMap const& map, kernel::UniqueId kernel::LineMap::*axis)
{
    kernel::DataSet const& data = TourContext::dataSet();
    auto const buffer = data.field(data.zoneNumber(map.zone), data.variableNumber(map.*axis))->group()->buffer();
    std::vector<double> values;
    for (std::int64_t at = 0; at < buffer->size(); ++at)
        values.push_back(buffer->value(at));
    return values;
}

/// A curve of amplitudes over frequencies.
struct Spectrum
{
    explicit Spectrum(kernel::LineMap const& map)
        : frequencies(valuesOf(map, &kernel::LineMap::xVariable))
        , amplitudes(valuesOf(map, &kernel::LineMap::yVariable))
    {
    }

    /// The frequency with the largest amplitude from a frequency on, of those that the curve shows.
    double peakFrom(double lowest) const
    {
        std::size_t best = 0;
        for (std::size_t at = 1; at < frequencies.size(); ++at)
            if (frequencies[at] >= lowest && (best == 0 || amplitudes[at] > amplitudes[best]))
                best = at;
        return frequencies[best];
    }

    std::vector<double> frequencies;
    std::vector<double> amplitudes;
};

bool isAt(double frequency, double tone)
{
    return std::abs(frequency - tone) < 1e-9;
}

} // namespace

FourierStation::FourierStation(TourContext& context, QString file)
    : m_tour(context)
    , m_file(std::move(file))
{
}

void FourierStation::run()
{
    open();
    QDialog* const dialog = openDialog();
    if (!dialog)
        return;
    transformOverTheCorner(*dialog);
    transformAgainSideBySide(*dialog);
    transformBesideTheOldResults(*dialog);
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes Discrete Fourier Transform", [&] { return !dialog->isVisible(); });
    undoAllAndRedo();
}

void FourierStation::open()
{
    m_tour.window.openFiles({m_file}, DocumentController::Place::FreshPage);
    m_tour.check("the time series has a time and three signals", variablesAtStart, TourContext::variableNames());
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("fourier-before"));
}

QDialog* FourierStation::openDialog()
{
    auto* const dialog = m_tour.openDialog<FourierTransformDialog>(Qt::Key_F);
    if (!m_tour.check("Alt+D, F opens Discrete Fourier Transform", dialog != nullptr))
        return nullptr;
    m_tour.check("its window title", QStringLiteral("Discrete Fourier Transform"), dialog->windowTitle());
    m_tour.check("its first zone is selected", 1,
                 TourContext::selectedRowCount(TourContext::list(*dialog, "sourceZonesListView")));
    QPushButton& button = TourContext::button(*dialog, "&Transform");
    m_tour.check("\"Transform\" is grey as long as no variable is selected", !button.isEnabled());
    m_tour.user.clickRow(TourContext::list(*dialog, "dependentVariablesListView"), 0);
    m_tour.user.settle();
    m_tour.check("and with the independent variable alone", !button.isEnabled());
    m_tour.user.clickRow(TourContext::list(*dialog, "dependentVariablesListView"), 1);
    m_tour.expectThat("it is not with the signal", [&] { return button.isEnabled(); });
    return dialog;
}

void FourierStation::transformOverTheCorner(QDialog& dialog)
{
    m_tour.user.picture(QStringLiteral("fourier-dialog"));
    auto const source = frames().front();
    if (!transform("\"Transform\" clicked: a curve in a frame more, and no message", dialog, 1))
        return;
    m_tour.check("a zone and three variables more", QStringLiteral("2 zones, 7 variables, 2 frames"), size());
    m_tour.check("the frame that was active is active", kernel::Session::instance().activeFrame() == source);
    kernel::Rectangle const& whole = source->rectangle;
    m_tour.check("the new frame lies over its upper right quarter",
                 resultsFrame().rectangle ==
                     (kernel::Rectangle{whole.x + whole.width / 2.0, whole.y, whole.width / 2.0, whole.height / 2.0}));
    checkPeaks("the largest peaks stand at 8 and 31 hertz");
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("fourier-in-corner"));
}

void FourierStation::transformAgainSideBySide(QDialog& dialog)
{
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_W, Qt::AltModifier);
    m_tour.user.type(QStringLiteral("Han"));
    m_tour.user.key(Qt::Key_P, Qt::AltModifier);
    m_tour.user.key(Qt::Key_End);
    if (!transform("\"Transform\" again, with a window: another curve in the same frame", dialog, 2))
        return;
    m_tour.check("the old results are replaced", QStringLiteral("2 zones, 7 variables, 2 frames"), size());
    kernel::Page const& page = *kernel::Session::instance().activePage();
    double const half = page.paperHeight / 2.0;
    m_tour.check("the frames stand on top of each other",
                 frames().front()->rectangle == (kernel::Rectangle{0.0, 0.0, page.paperWidth, half}) &&
                     resultsFrame().rectangle == (kernel::Rectangle{0.0, half, page.paperWidth, half}));
    checkPeaks("the peaks are where they were");
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("fourier-tiled"));
}

void FourierStation::transformBesideTheOldResults(QDialog& dialog)
{
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_Z, Qt::AltModifier);
    m_tour.user.key(Qt::Key_V, Qt::AltModifier);
    auto const isOff = [&dialog](char const* name) {
        return !dialog.findChild<QAbstractButton*>(QLatin1String(name))->isChecked();
    };
    m_tour.expectThat("Alt+Z and Alt+V have old results kept",
                      [&] { return isOff("latestResultZonesCheckBox") && isOff("latestResultVariablesCheckBox"); });
    if (!transform("without \"Replace\": a third curve", dialog, 3))
        return;
    m_tour.check("the new results stand beside the old ones", QStringLiteral("3 zones, 10 variables, 2 frames"),
                 size());
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_P, Qt::AltModifier);
    m_tour.user.key(Qt::Key_Home);
    if (!transform("the same over the corner: a fourth one", dialog, 4))
        return;
    m_tour.check("and those again", QStringLiteral("4 zones, 13 variables, 2 frames"), size());
    checkPeaks("the peaks are the same in all of them");
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("fourier-four-times"));
}

void FourierStation::undoAllAndRedo()
{
    QString const withResults = size();
    int const steps = undoAll();
    m_tour.expect("Ctrl+Z leads back to the time series alone", atStart, &size);
    m_tour.check("with the same variables", variablesAtStart, TourContext::variableNames());
    for (int step = 0; step < steps; ++step)
        m_tour.user.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    m_tour.expect("as many times Ctrl+Shift+Z leads forth", withResults, &size);
    m_tour.check("with four curves", 4, static_cast<int>(resultsFrame().lineMaps.size()));
    checkPeaks("and the peaks");
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("fourier-redone"));
    undoAll();
    m_tour.expect("and all of it back again", atStart, &size);
}

/// @return how many times Ctrl+Z was pressed
int FourierStation::undoAll()
{
    constexpr int most = 100; // far more than four runs make
    kernel::History const& history = kernel::Session::instance().history();
    int steps = 0;
    m_tour.activate(m_tour.window);
    for (; history.canUndo() && steps < most; ++steps)
        m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    return steps;
}

bool FourierStation::transform(char const* step, QDialog& dialog, std::size_t curves)
{
    return m_tour.expectSilence(step, TourContext::button(dialog, "&Transform"),
                                [=] { return frames().size() == 2 && resultsFrame().lineMaps.size() == curves; });
}

void FourierStation::checkPeaks(char const* step)
{
    auto const& maps = resultsFrame().lineMaps;
    bool const stand = std::all_of(maps.begin(), maps.end(), [](kernel::LineMap const& map) {
        Spectrum const spectrum(map);
        return isAt(spectrum.peakFrom(0.0), slowTone) && isAt(spectrum.peakFrom(2.0 * slowTone), quickTone);
    });
    m_tour.check(step, !maps.empty() && stand);
}

} // namespace veldraw::tests
