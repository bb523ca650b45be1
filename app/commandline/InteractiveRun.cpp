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

int runInteractively(QApplication& application, QStringList const& files, Deferral deferral)
{
    auto const reader = [deferral](QString const& path, kernel::Progress& progress) {
        return importFile(path, deferral, progress);
    };
    MainWindow window(kernel::Session::instance(), CentralView::ofPage(kernel::Session::instance()), reader);
    window.show();
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, &window, [] { tellCutFiles(); });
    looks.start(pauseBetweenLooks);
    if (!files.isEmpty())
        QTimer::singleShot(0, &window, [&] { window.openFiles(files, DocumentController::Place::FreshPage); });
    return application.exec();
}

} // namespace veldraw::app
