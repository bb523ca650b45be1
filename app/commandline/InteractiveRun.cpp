#include "app/commandline/InteractiveRun.h"

#include "app/import/Importer.h"
#include "app/window/CutFileLook.h"
#include "app/window/MainWindow.h"

#include <QApplication>
#include <QTimer>

namespace veldraw::app {

namespace {

constexpr int pauseBetweenLooks = 2000; // milliseconds

} // namespace

int runInteractively(QApplication& application, CommandLineOptions const& options)
{
    auto const reader = [&options](FileGroup const& group, OutsidePaths outsidePaths, kernel::Progress& progress) {
        bool const follows = options.outsidePaths == OutsidePaths::Follow;
        return importGroup(group, options.deferral, progress, follows ? OutsidePaths::Follow : outsidePaths);
    };
    MainWindow window(kernel::Session::instance(), CentralView::ofPage(kernel::Session::instance()), reader);
    window.show();
    CutFileLook const look(pauseBetweenLooks);
    window.keepRecovery(RecoveryActions::standardFolder());
    QTimer::singleShot(0, &window, [&] {
        using Place = DocumentController::Place;
        bool const isRecovered = window.offerRecovery();
        if (!options.files.isEmpty())
            window.openFiles(options.files, isRecovered ? Place::NewFrames : Place::FreshPage);
    });
    return application.exec();
}

} // namespace veldraw::app
