#include "tests/tour/DrivenProgram.h"

#include "app/import/Importer.h"
#include "app/window/CentralView.h"
#include "host/KernelBridge.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QSettings>

#include <cstdio>
#include <cstdlib>

namespace veldraw::tests {

using namespace app;

DrivenProgram::OwnSettings::OwnSettings()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
}

DrivenProgram::DrivenProgram(int& argc, char** argv, QString const& description, QSize const& windowSize)
    : m_application(argc, argv)
{
    host::KernelBridge::install();
    parse(description);
    auto const reader = [this](FileGroup const& group, OutsidePaths outsidePaths, kernel::Progress& progress) {
        return importGroup(group, m_deferral, progress, outsidePaths);
    };
    kernel::Session& session = kernel::Session::instance();
    m_window = std::make_unique<MainWindow>(session, CentralView::ofPage(session), reader);
    m_window->move(0, 0);
    m_window->resize(windowSize);
    m_window->show();
}

DrivenProgram::~DrivenProgram()
{
    m_window.reset();
    host::KernelBridge::shutDown();
}

void DrivenProgram::parse(QString const& description)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    parser.addHelpOption();
    parser.addOption({QStringLiteral("samples"), QStringLiteral("Folder of the samples."), QStringLiteral("folder")});
    parser.addOption(
        {QStringLiteral("out"), QStringLiteral("Folder for pictures and results."), QStringLiteral("folder")});
    parser.process(m_application);
    m_samples = parser.value(QStringLiteral("samples"));
    if (!QFileInfo::exists(m_samples + QStringLiteral("/.complete"))) {
        std::fprintf(stderr, "%s: --samples has to name the folder that veldraw_make_samples filled for ./run\n",
                     qUtf8Printable(QFileInfo(m_application.applicationFilePath()).fileName()));
        std::exit(2);
    }
    m_out = parser.value(QStringLiteral("out"));
}

} // namespace veldraw::tests
