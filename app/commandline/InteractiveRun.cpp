#include "app/commandline/InteractiveRun.h"

#include "app/import/Importer.h"
#include "app/window/MainWindow.h"

#include <QApplication>
#include <QTimer>

namespace veldraw::app {

int runInteractively(QApplication& application, QStringList const& files)
{
    MainWindow window(kernel::Session::instance(), CentralView::ofPage(kernel::Session::instance()), importFile);
    window.show();
    if (!files.isEmpty())
        QTimer::singleShot(0, &window, [&] { window.openFiles(files, DocumentController::Place::FreshPage); });
    return application.exec();
}

} // namespace veldraw::app
