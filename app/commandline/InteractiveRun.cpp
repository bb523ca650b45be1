#include "app/commandline/InteractiveRun.h"

#include "app/files/MappedMemory.h"
#include "app/import/Importer.h"
#include "app/window/MainWindow.h"
#include "host/MessagePresenter.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QApplication>
#include <QTimer>

#include <utility>

namespace veldraw::app {

namespace {

constexpr int pauseBetweenLooks = 2000; // milliseconds

// Says it once for all pages that are found missing in one go, but not while an operation runs.
void tellCutFiles(int& known)
{
    int const missing = missingMappedPages();
    if (sdk::AppLock::depth() == 0 && std::exchange(known, missing) < missing)
        host::MessagePresenter::present(cutFileWarning, MessageBoxType_Warning);
}

} // namespace

int runInteractively(QApplication& application, QStringList const& files, Deferral deferral)
{
    auto const reader = [deferral](QString const& path, kernel::Progress& progress) {
        return importFile(path, deferral, progress);
    };
    MainWindow window(kernel::Session::instance(), CentralView::ofPage(kernel::Session::instance()), reader);
    window.show();
    int known = missingMappedPages();
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, &window, [&known] { tellCutFiles(known); });
    looks.start(pauseBetweenLooks);
    if (!files.isEmpty())
        QTimer::singleShot(0, &window, [&] { window.openFiles(files, DocumentController::Place::FreshPage); });
    return application.exec();
}

} // namespace veldraw::app
