#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace veldraw::app {

/// A question for the name of a file that is to be written.
struct FileNameQuestion
{
    QString title;
    QString baseName;    ///< what is proposed: a path without an extension
    QStringList filters; ///< of the file dialog; the first one's extension is proposed

    /// Whether to write under this name would replace the file that has it; the user is asked then.
    std::function<bool(QString const& path)> replaces;

    /// Writes the file. @return false to be asked again
    std::function<bool(QString const& path)> write;
};

/// Asks for a name and writes, again with the typed name until that succeeds or the user cancels.
/// @param window parent of the dialogs
void askForName(QWidget& window, FileNameQuestion const& question);

/// Asks whether what is there may be replaced. @param what a sentence that says what would be
bool mayReplace(QWidget& window, QString const& what);

} // namespace veldraw::app
