#include "tests/tour/Tour.h"

#include "app/import/Importer.h"
#include "kernel/session/Session.h"
#include "tests/tour/AxialDuplicationStation.h"
#include "tests/tour/AxialRotationStation.h"
#include "tests/tour/CancelledSaveStation.h"
#include "tests/tour/ContourStation.h"
#include "tests/tour/DataSetInfoStation.h"
#include "tests/tour/DeleteVariableStation.h"
#include "tests/tour/DuplicateZoneStation.h"
#include "tests/tour/FourierStation.h"
#include "tests/tour/InterpolationStation.h"
#include "tests/tour/JournalStation.h"
#include "tests/tour/LoadVariableStation.h"
#include "tests/tour/LongTableStation.h"
#include "tests/tour/MirrorZoneStation.h"
#include "tests/tour/SliceStation.h"
#include "tests/tour/SpreadsheetStation.h"
#include "tests/tour/TimeStation.h"
#include "tests/tour/TriangulationStation.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSet>

namespace veldraw::tests {

using namespace app;

namespace {

QString const savedName = QStringLiteral("flow-changed");

QString sizeOf(kernel::DataSet const& dataSet)
{
    return QStringLiteral("%1 zones, %2 variables").arg(dataSet.zoneCount()).arg(dataSet.variableCount());
}

} // namespace

Tour::Tour(MainWindow& window, QString samples, QString out, std::atomic<Deferral>& deferral)
    : m_tour(window, out, deferral)
    , m_samples(std::move(samples))
    , m_out(std::move(out))
{
}

TourReport const& Tour::run()
{
    removeFormerResults();
    openSamples();
    lookAtPlots();
    DeleteVariableStation(m_tour).run();
    SpreadsheetStation(m_tour).run();
    DuplicateZoneStation(m_tour).run();
    AxialRotationStation(m_tour).run();
    saveResult();
    InterpolationStation(m_tour, m_samples + QStringLiteral("/rainfall.vtm")).run();
    TriangulationStation(m_tour, m_samples + QStringLiteral("/island.vtm")).run();
    FourierStation(m_tour, m_samples + QStringLiteral("/timeseries.csv")).run();
    LoadVariableStation(m_tour, m_samples + QStringLiteral("/tetra.vtu")).run();
    DataSetInfoStation(m_tour, m_samples + QStringLiteral("/tetra.vtu"), m_samples + QStringLiteral("/transient.vtm"))
        .run();
    LongTableStation(m_tour, m_samples + QStringLiteral("/line.mhd")).run();
    CancelledSaveStation(m_tour, m_out).run();
    SliceStation(m_tour, m_samples + QStringLiteral("/flow.vtm"), m_samples + QStringLiteral("/tetra.vtu")).run();
    ContourStation(m_tour, m_samples + QStringLiteral("/tetra.vtu")).run();
    TimeStation(m_tour, m_samples + QStringLiteral("/transient.vtm"), m_out).run();
    openBar();
    MirrorZoneStation(m_tour).run();
    pickZone();
    AxialDuplicationStation(m_tour).run();
    JournalStation(m_tour, m_out).run();
    m_tour.check("no message came unasked", QString(), m_tour.user.unexpectedMessages().join(QLatin1Char('|')));
    return m_tour.report;
}

// What an earlier tour has left would pass for what this one shows, and a file would bring up one more question. Nothing
// else in the folder is touched.
void Tour::removeFormerResults()
{
    QDir out(m_out);
    for (QString const& picture : out.entryList({QStringLiteral("[0-9][0-9]-*.png")}, QDir::Files))
        out.remove(picture);
    out.remove(savedName + QStringLiteral(".vtm"));
    QDir(out.filePath(savedName)).removeRecursively();
    for (QString const& name : {QStringLiteral("by-hand"), QStringLiteral("again")})
        QDir(out.filePath(name)).removeRecursively();
    for (QString const& name :
         {QStringLiteral("by-hand.vtm"), QStringLiteral("journal.vdo"), QStringLiteral("again.vdo")})
        out.remove(name);
}

void Tour::openSamples()
{
    m_tour.activate(m_tour.window);
    QStringList files;
    for (char const* name : {"flow.vtm", "tetra.vtu", "transient.vtm", "timeseries.csv"})
        files.push_back(m_samples + QLatin1Char('/') + QLatin1String(name));
    m_tour.window.openFiles(files, DocumentController::Place::FreshPage);
    m_tour.check("four samples open, a frame each", 4,
                 static_cast<int>(kernel::Session::instance().activePage()->frames.size()));
    m_tour.expectThat("plots are drawn in colour", [&] { return coloursOnPage() > 100; });
    m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("samples"));
}

void Tour::lookAtPlots()
{
    m_tour.window.openFiles({m_samples + QStringLiteral("/flow.vtm")}, DocumentController::Place::FreshPage);
    m_tour.check("one sample opened on a fresh page", 1,
                 static_cast<int>(kernel::Session::instance().activePage()->frames.size()));
    QImage const before = m_tour.restingPlot();
    m_tour.user.picture(QStringLiteral("opened"));
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_P, Qt::AltModifier);
    m_tour.user.key(Qt::Key_2);
    m_tour.expectThat("Alt+P, 2 shows a 2D plot that differs from the 3D plot",
                      [&] { return m_tour.plot() != before; });
    m_tour.user.picture(QStringLiteral("in-2d"));
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("Ctrl+Z goes back to 3D",
                      [] { return kernel::Session::instance().activeFrame()->plotType == PlotType_Cartesian3D; });
}

void Tour::saveResult()
{
    QString const file = m_out + QLatin1Char('/') + savedName + QStringLiteral(".vtm");
    m_tour.saveAs(file, QStringLiteral("save-as"));
    if (!m_tour.check("Ctrl+S, a name, Return: the file is there", QFile::exists(file)))
        return;
    m_tour.check("the saved file has what the window shows", sizeOf(TourContext::dataSet()),
                 sizeOf(*importFile(file).dataSet));
}

// The unstructured sample, with its displacements as the vector.
void Tour::openBar()
{
    m_tour.window.openFiles({m_samples + QStringLiteral("/tetra.vtu")}, DocumentController::Place::FreshPage);
    int const first = TourContext::dataSet().findVariable("displacement_X");
    bool assigned = first > 0;
    for (int component = 0; component < 3; ++component)
        assigned = assigned && m_tour.assignVariable("UVW"[component], first + component);
    m_tour.check("Ctrl+4, Tab and arrows assign the vector", assigned);
}

void Tour::pickZone()
{
    m_tour.activate(m_tour.window);
    m_tour.restingPlot();
    m_tour.user.click(*m_tour.window.centralWidget());
    std::vector<kernel::Pick> const& picks = kernel::Session::instance().picks();
    m_tour.expectThat("a click in the plot picks the zone",
                      [&] { return picks.size() == 1 && picks.front().zone == TourContext::dataSet().zone(1)->id; });
    m_tour.user.picture(QStringLiteral("picked"));
}

int Tour::coloursOnPage()
{
    QImage const image = m_tour.plot();
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 2)
        for (int x = 0; x < image.width(); x += 2)
            colours.insert(image.pixel(x, y));
    return colours.size();
}

} // namespace veldraw::tests
