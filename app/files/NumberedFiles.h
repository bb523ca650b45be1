#pragma once

#include <QStringList>

#include <vector>

namespace veldraw::app {

/// Files that are opened together: one by itself, or several whose names differ in the number at their end alone.
struct FileGroup
{
    QStringList paths; ///< one at least; several in the order of their numbers
    QString name;      ///< without folder and extension; of several without the number and what parts it from the name

    bool isSeries() const { return paths.size() > 1; }
};

/// Puts files together that are moments of one thing by their names, such as "wake_008.vtu", "wake_009.vtu" and "wake_010.vtu": of one folder and
/// kind, named alike but for the digits before the extension. A group stands where its first file does; a file that is there twice is no series.
std::vector<FileGroup> groupsOf(QStringList const& paths);

/// The number at the end of a file's name, 0 where there is none.
double numberOf(QString const& path);

} // namespace veldraw::app
