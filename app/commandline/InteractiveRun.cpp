#include "app/commandline/InteractiveRun.h"

#include "app/import/Importer.h"
#include "app/window/MainWindow.h"

#include <QApplication>
#include <QTimer>

namespace veldraw::app {

int runInteractively(QApplication& application, QStringList const& files, Deferral deferral)
{
    auto const reader = [deferral](QString const& path, ImportJob::Progress const& progress) {
        return importDeferring(deferral, path, progress);
    };
    MainWindow window(kernel::Session::instance(), CentralView::ofPage(kernel::Session::instance()), reader);
    window.show();
    if (!files.isEmpty())
        QTimer::singleShot(0, &window, [&] { window.openFiles(files, DocumentController::Place::FreshPage); });
    return application.exec();
}

} // namespace veldraw::app
