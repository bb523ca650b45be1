#include "app/window/ImportJob.h"

#include "platform/vdsdkcommon/AppLock.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QProgressBar>
#include <QProgressDialog>
#include <QTimer>

#include <atomic>
#include <future>

namespace veldraw::app {

namespace {

constexpr int delayOfProgressWindow = 500; // milliseconds
constexpr int progressSteps = 1000;
constexpr int refreshInterval = 50; // milliseconds

// Calls a function when its scope ends, whatever way.
class FinalCall
{
public:
    explicit FinalCall(std::function<void()> function)
        : m_function(std::move(function))
    {
    }
    ~FinalCall() { m_function(); }
    FinalCall(FinalCall const&) = delete;
    FinalCall& operator=(FinalCall const&) = delete;

private:
    std::function<void()> m_function;
};

// The bar is set by us: the window's own setValue() would run the event loop inside a timer's slot.
QProgressBar& prepare(QProgressDialog& window, QString const& path)
{
    auto* const bar = new QProgressBar;
    bar->setRange(0, progressSteps);
    window.setObjectName(QStringLiteral("importProgress"));
    window.setBar(bar);
    window.setLabelText(QStringLiteral("Reading %1 ...").arg(QFileInfo(path).fileName()));
    window.setCancelButtonText(QStringLiteral("Cancel"));
    window.setWindowModality(Qt::ApplicationModal);
    window.setAutoClose(false);
    window.setAutoReset(false);
    window.setMinimumWidth(360);
    window.reset(); // stops the window's own timer: it shows when we say so
    return *bar;
}

} // namespace

ImportJob::ImportJob(Reader reader)
    : m_reader(std::move(reader))
{
}

ImportResult ImportJob::run(QString const& path, QWidget* parent) const
{
    sdk::AppLock const lock(sdk::AppLock::DoNotRecord);
    std::atomic<double> done{0.0};
    std::atomic<bool> isCancelled{false};
    bool isFinished = false;
    QEventLoop waiting;
    auto const finish = [&] { // runs on this thread
        isFinished = true;
        waiting.quit();
    };
    std::future<ImportResult> result = std::async(std::launch::async, [&] {
        FinalCall const tell([&] { QMetaObject::invokeMethod(&waiting, finish, Qt::QueuedConnection); });
        return m_reader(path, [&](double fraction) {
            done = fraction;
            return !isCancelled;
        });
    });

    QProgressDialog window(parent);
    QProgressBar& bar = prepare(window, path);
    QObject::connect(&window, &QProgressDialog::canceled, &window, [&] { isCancelled = true; });
    QTimer refresh;
    QObject::connect(&refresh, &QTimer::timeout, &bar, [&] { bar.setValue(static_cast<int>(done * progressSteps)); });
    QTimer::singleShot(delayOfProgressWindow, &window, [&] {
        window.show();
        refresh.start(refreshInterval);
        waiting.quit();
    });
    // Nothing may be clicked as long as no window tells what is going on.
    waiting.exec(QEventLoop::ExcludeUserInputEvents);
    while (!isFinished)
        waiting.exec();
    return result.get();
}

} // namespace veldraw::app
