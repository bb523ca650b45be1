#include "app/commandline/InteractiveRun.h"

#include "app/files/MappedMemory.h"
#include "app/import/Importer.h"
#include "app/window/MainWindow.h"
#include "host/MessagePresenter.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QApplication>
#include <QTimer>

namespace veldraw::app {

namespace {

constexpr int pauseBetweenLooks = 2000; // milliseconds

// Once for each file, but not while an operation runs.
void tellCutFiles()
{
    if (sdk::AppLock::depth() > 0)
        return;
    std::vector<std::string> const files = takeCutFiles();
    if (!files.empty())
        host::MessagePresenter::present(cutFileWarning(files), MessageBoxType_Warning);
}

} // namespace

int runInteractively(QApplication& application, CommandLineOptions const& options)
{
    auto const reader = [&options](QString const& path, OutsidePaths outsidePaths, kernel::Progress& progress) {
        bool const follows = options.outsidePaths == OutsidePaths::Follow;
        return importFile(path, options.deferral, progress, follows ? OutsidePaths::Follow : outsidePaths);
    };
    MainWindow window(kernel::Session::instance(), CentralView::ofPage(kernel::Session::instance()), reader);
    window.show();
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, &window, [] { tellCutFiles(); });
    looks.start(pauseBetweenLooks);
    if (!options.files.isEmpty())
        QTimer::singleShot(0, &window, [&] { window.openFiles(options.files, DocumentController::Place::FreshPage); });
    return application.exec();
}

} // namespace veldraw::app
