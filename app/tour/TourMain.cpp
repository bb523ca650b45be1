#include "app/Application.h"
#include "app/import/Importer.h"
#include "app/tour/Tour.h"
#include "app/window/CentralView.h"
#include "app/window/MainWindow.h"
#include "host/KernelBridge.h"

#include <QCommandLineParser>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <atomic>
#include <cstdio>
#include <cstdlib>

// The tour of ./run: exit status 0 when every step was as expected.
int main(int argc, char** argv)
{
    using namespace veldraw;

    // A tour neither reads nor leaves anything among the settings of the person who starts it.
    QTemporaryDir const settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());

    app::Application application(argc, argv);
    host::KernelBridge::install();
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Uses the program by clicks and keys and checks what comes of it."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("samples"), QStringLiteral("Folder of the samples."), QStringLiteral("folder")});
    parser.addOption(
        {QStringLiteral("out"), QStringLiteral("Folder for pictures and results."), QStringLiteral("folder")});
    parser.process(application);

    // Whatever goes wrong, nobody has to wait for ever.
    QTimer::singleShot(180000, [] {
        std::fputs("veldraw_tour: stood still for three minutes\n", stderr);
        std::_Exit(1);
    });

    bool asExpected = false;
    {
        // Files are read by a thread of their own.
        std::atomic<app::Deferral> deferral(app::Deferral::Auto);
        auto const reader = [&deferral](QString const& path, app::ImportJob::Progress const& progress) {
            return app::importDeferring(deferral, path, progress);
        };
        app::MainWindow window(kernel::Session::instance(), app::CentralView::ofPage(kernel::Session::instance()),
                               reader);
        window.move(0, 0);
        window.resize(1500, 1000);
        window.show();
        app::Tour tour(window, parser.value(QStringLiteral("samples")), parser.value(QStringLiteral("out")), deferral);
        app::TourReport const& report = tour.run();
        QTextStream(stdout) << report.toText();
        asExpected = report.allAsExpected();
    }
    host::KernelBridge::shutDown();
    return asExpected ? 0 : 1;
}
