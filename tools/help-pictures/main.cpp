#include "app/Application.h"
#include "app/import/Importer.h"
#include "app/window/CentralView.h"
#include "app/window/MainWindow.h"
#include "host/KernelBridge.h"
#include "tools/help-pictures/HelpPictures.h"

#include <QCommandLineParser>
#include <QSettings>
#include <QTemporaryDir>

#include <atomic>
#include <cstdio>

// Takes the pictures of the help pages: exit status 0 when all were taken.
int main(int argc, char** argv)
{
    using namespace veldraw;

    // Pictures depend on nobody's settings.
    QTemporaryDir const settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());

    app::Application application(argc, argv);
    host::KernelBridge::install();
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Takes the pictures of the help pages from the real dialogs."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("samples"), QStringLiteral("Folder of the samples."), QStringLiteral("folder")});
    parser.addOption({QStringLiteral("out"), QStringLiteral("Folder for the pictures."), QStringLiteral("folder")});
    parser.process(application);

    QStringList problems;
    {
        // Files are read by a thread of their own.
        std::atomic<app::Deferral> deferral(app::Deferral::Auto);
        auto const reader = [&deferral](QString const& path, app::ImportJob::Progress const& progress) {
            return app::importDeferring(deferral, path, progress);
        };
        app::MainWindow window(kernel::Session::instance(), app::CentralView::ofPage(kernel::Session::instance()),
                               reader);
        window.move(0, 0);
        window.resize(1100, 700);
        window.show();
        app::HelpPictures pictures(window, parser.value(QStringLiteral("samples")), parser.value(QStringLiteral("out")),
                                   deferral);
        problems = pictures.take();
    }
    host::KernelBridge::shutDown();
    for (QString const& problem : problems)
        std::fprintf(stderr, "veldraw_help_pictures: %s\n", qPrintable(problem));
    return problems.isEmpty() ? 0 : 1;
}
