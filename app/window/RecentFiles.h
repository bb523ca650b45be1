#pragma once

#include <QStringList>

namespace veldraw::app {

/// The files that were opened last, newest first, kept in the user's settings.
class RecentFiles
{
public:
    static constexpr int limit = 10;

    /// Absolute paths.
    QStringList list() const;

    /// Puts the file in front; it stands there once.
    void add(QString const& path);
    void remove(QString const& path);
    void clear();
};

} // namespace veldraw::app
