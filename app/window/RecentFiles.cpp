#include "app/window/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace veldraw::app {

namespace {

QString const key = QStringLiteral("recentFiles");

} // namespace

QStringList RecentFiles::list() const
{
    return QSettings().value(key).toStringList().mid(0, limit);
}

void RecentFiles::add(QString const& path)
{
    QString const absolute = QFileInfo(path).absoluteFilePath();
    QStringList files = list();
    files.removeAll(absolute);
    files.prepend(absolute);
    QSettings().setValue(key, QStringList(files.mid(0, limit)));
}

void RecentFiles::remove(QString const& path)
{
    QStringList files = list();
    files.removeAll(path);
    QSettings().setValue(key, files);
}

void RecentFiles::clear()
{
    QSettings().remove(key);
}

} // namespace veldraw::app
