#include "app/Application.h"

#include "host/KernelReason.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QLocale>
#include <QThread>

#include <clocale>
#include <exception>

namespace veldraw::app {

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("veldraw"));
    setApplicationDisplayName(QStringLiteral("Veldraw"));
    setOrganizationName(QStringLiteral("veldraw"));
    // Qt has just set the user's locale: number texts must read the same everywhere, "1.5" and never "1,5".
    std::setlocale(LC_NUMERIC, "C");
    QLocale english(QLocale::English, QLocale::UnitedStates);
    english.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
    QLocale::setDefault(english);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    if (QThread::currentThread() != thread())
        return QApplication::notify(receiver, event); // the session belongs to the user-interface thread
    host::KernelReason const reason;
    try {
        return QApplication::notify(receiver, event);
    } catch (std::exception const& error) {
        // What threw may have suspended drawing, and nobody is left to resume it; an action that still runs does so itself.
        if (sdk::AppLock::depth() == 0)
            kernel::Session::instance().setDrawing(true);
        if (*error.what() != '\0')
            reason.tellFailure(error.what());
        return true;
    }
}

} // namespace veldraw::app
