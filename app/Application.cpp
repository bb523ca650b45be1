#include "app/Application.h"

#include "platform/vdsdkbase/VelUtilDialog.h"

#include <QLocale>

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
    try {
        return QApplication::notify(receiver, event);
    } catch (std::exception const& error) {
        if (*error.what() != '\0')
            VelUtilDialogErrMsg(error.what());
        return true;
    }
}

} // namespace veldraw::app
