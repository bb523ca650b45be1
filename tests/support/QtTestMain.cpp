#include "tests/support/EventLoopWatchdog.h"

#include <QLocale>
#include <QString>

#include <clocale>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

// Any warning of Qt is a defect of ours, but for those that the surroundings give: what the offscreen platform cannot do,
// and accounts without a session.
void failOnWarning(QtMsgType type, QMessageLogContext const& context, QString const& message)
{
    if (message.contains(QStringLiteral("This plugin does not support propagateSizeHints()")) ||
        message.contains(QStringLiteral("This plugin does not support raise()")) ||
        message.contains(QStringLiteral("This plugin does not support grabbing the keyboard")) ||
        message.contains(QStringLiteral("XDG_RUNTIME_DIR not set")))
        return;
    std::fprintf(stderr, "%s (%s:%d)\n", qPrintable(message), context.file ? context.file : "?", context.line);
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ADD_FAILURE() << "Qt says: " << message.toStdString();
}

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    qInstallMessageHandler(failOnWarning);
    veldraw::tests::WatchedApplication application(argc, argv);
    veldraw::tests::EventLoopWatchdog const watchdog;
    std::setlocale(LC_NUMERIC, "C");
    QLocale english(QLocale::English, QLocale::UnitedStates);
    english.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
    QLocale::setDefault(english);
    return RUN_ALL_TESTS();
}
