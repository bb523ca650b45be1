#pragma once

#include "app/tour/UserDriver.h"
#include "app/window/MainWindow.h"
#include "tools/help-pictures/HelpSubject.h"

#include <QString>
#include <QStringList>

namespace veldraw::app {

/// Opens each dialog that has a help page, enters something sensible by clicks and keys, and takes pictures of the dialog and of the
/// plot that comes of it.
class HelpPictures
{
public:
    /// @param samples folder of the bundled samples; @param out folder for the pictures
    HelpPictures(MainWindow& window, QString samples, QString out);

    /// @return what went wrong, empty if nothing did
    QStringList take();

private:
    void openBar();
    void takeOf(HelpSubject const& subject);
    void takePlot(QString const& name);
    void takeDialog(QDialog& dialog, QString const& name);
    void save(QImage const& image, QString const& name);
    void activate(QWidget& widget);

    MainWindow& m_window;
    UserDriver m_user;
    QString m_samples;
    QString m_out;
    QStringList m_problems;
};

} // namespace veldraw::app
