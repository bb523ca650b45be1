#pragma once

#include "app/Application.h"
#include "app/import/reading/Deferral.h"
#include "app/window/MainWindow.h"

#include <QSize>
#include <QString>
#include <QTemporaryDir>

#include <atomic>
#include <memory>

namespace veldraw::tests {

/// A program that drives the main window by clicks and keys instead of waiting for a person. It takes the options --samples and
/// --out, and neither reads nor leaves anything among the settings of whoever starts it.
class DrivenProgram
{
public:
    /// Parses the command line and shows the window. Ends the process after --help and wrong options.
    DrivenProgram(int& argc, char** argv, QString const& description, QSize const& windowSize);
    ~DrivenProgram();

    app::MainWindow& window() { return *m_window; }

    /// Folder of the bundled samples, and folder for what the program brings about.
    QString const& samples() const { return m_samples; }
    QString const& out() const { return m_out; }

    /// Which values the window loads with the files that it opens; may be changed at any time.
    std::atomic<app::Deferral>& deferral() { return m_deferral; }

    DrivenProgram(DrivenProgram const&) = delete;
    DrivenProgram& operator=(DrivenProgram const&) = delete;

private:
    struct OwnSettings
    {
        OwnSettings();
        QTemporaryDir folder;
    };

    void parse(QString const& description);

    OwnSettings m_settings; // before the application reads any
    app::Application m_application;
    QString m_samples;
    QString m_out;
    std::atomic<app::Deferral> m_deferral{app::Deferral::Auto}; // asked for by the thread that reads a file
    std::unique_ptr<app::MainWindow> m_window;
};

} // namespace veldraw::tests
