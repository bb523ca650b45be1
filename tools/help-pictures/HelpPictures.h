#pragma once

#include "app/window/MainWindow.h"
#include "tests/tour/UserDriver.h"
#include "tools/help-pictures/HelpSubject.h"

#include <QString>
#include <QStringList>

#include <atomic>

namespace veldraw::app {

/// Opens each dialog that has a help page, enters something sensible by clicks and keys, and takes pictures of the dialog, of the plot
/// that comes of it, and of the sample as it was, under the name of its file.
class HelpPictures
{
public:
    /// @param samples folder of the bundled samples, with line.mhd; @param out folder for the pictures
    /// @param deferral which values @p window loads with the files that it opens
    HelpPictures(MainWindow& window, QString samples, QString out, std::atomic<Deferral>& deferral);

    /// @return what went wrong, empty if nothing did
    QStringList take();

private:
    /// @return false when it is open already
    bool open(QString const& sample, Deferral deferral);
    void takeOf(HelpSubject const& subject);
    void takePlot(QString const& name);
    void takeDialog(QDialog& dialog, QString const& name);
    void save(QImage const& image, QString const& name);

    MainWindow& m_window;
    tests::UserDriver m_user;
    QString m_samples;
    QString m_out;
    std::atomic<Deferral>& m_deferral;
    QString m_open; // the sample
    QStringList m_problems;
};

} // namespace veldraw::app
