#pragma once

#include "app/export/Exporter.h"
#include "app/import/Importer.h"
#include "app/window/PictureFile.h"
#include "app/window/RecentFiles.h"
#include "kernel/operations/CommandText.h"
#include "kernel/session/Session.h"

#include <QObject>

#include <functional>
#include <map>
#include <optional>

class QWidget;

namespace veldraw::app {

/// Opens files into the session and saves what is in it, with the questions and messages that belong to that.
class DocumentController : public QObject
{
    Q_OBJECT

public:
    /// Reads a file, or several that are one series. In the program it is importGroup(), with its exceptions.
    using FileReader =
        std::function<ImportResult(FileGroup const& group, OutsidePaths outsidePaths, kernel::Progress& progress)>;

    enum class Place
    {
        FreshPage, ///< closes what is open; each file gets a frame on a new page
        NewFrames  ///< each file gets a frame on the present page
    };

    /// @param window parent of questions and dialogs
    DocumentController(kernel::Session& session, QWidget& window, FileReader reader);
    ~DocumentController() override;

    /// Opens files. Files that cannot be read are told in one message and change nothing; on a fresh page, what was open stays
    /// when no file at all can be read. A cancel opens none of them. A file that names others outside of its folder is opened when the user
    /// says so. Files that are named alike but for their numbers are opened as one transient data set. New frames are one step of the history.
    /// What the session refuses, as without memory, is told too.
    /// @return false when nothing was opened
    bool open(QStringList const& paths, Place place);

    /// Asks for files and opens them.
    bool openByDialog(Place place);

    /// Opens a file of the list of recent files. A file that no longer exists is told and leaves the list.
    bool openRecent(QString const& path);

    /// Asks for a name and writes the active data set; the extension chooses the format. It asks before more than that file is
    /// replaced. After a failure, which is told, it
    /// asks again with the same name, until the data is saved or the user cancels.
    bool saveAs();
    bool save(QString const& path);

    /// Asks for a name and writes @p picture, in the same way. @param options what the picture was made with, for the journal
    bool savePictureAs(PagePicture const& picture, PictureOptions const& options);
    bool savePicture(PagePicture const& picture, PictureOptions const& options, QString const& path);

    /// Leaves a picture in the clipboard.
    void copyPicture(PagePicture const& picture);

    /// Asks for a printer and prints a picture. A failure is told.
    void printPicture(PagePicture const& picture);

    /// Asks for a name and saves a picture of each moment of the active frame, in the same way. @param grab takes a picture of the page
    bool saveFilmAs(std::function<QImage()> const& grab);

    /// Asks what to do about unsaved changes, if there are any. @return false when the user wants to go on with them
    bool mayCloseData();

    /// The file that a data set was opened from or saved to last, empty if there is none.
    QString fileOf(kernel::DataSet const& dataSet) const;

    RecentFiles& recentFiles() { return m_recentFiles; }

Q_SIGNALS:
    /// One sentence for the status bar.
    void told(QString const& text);
    void recentFilesChanged();
    /// A file is being opened; without a name, none is any more.
    void opening(QString const& fileName);
    /// A data set has another file now.
    void fileChanged();

private:
    struct Opened
    {
        QString path; // of the first, if it is a series of several
        std::shared_ptr<kernel::Frame> frame;
        QStringList paths;

        bool isSeries() const { return paths.size() > 1; }
    };

    ImportResult read(FileGroup const& group, OutsidePaths outsidePaths);
    std::optional<ImportResult> readAsking(FileGroup const& group);
    std::vector<Opened> readAll(QStringList const& paths);
    bool put(std::vector<Opened> const& opened, Place place);
    bool putIntoSession(std::vector<Opened> const& opened, Place place);
    enum class Outcome
    {
        Saved,
        Cancelled,
        Refused
    };

    Outcome writeTo(QString const& path);
    Outcome writeFilm(QString const& path, std::function<QImage()> const& grab);
    Outcome attempt(std::function<void()> const& save);
    std::vector<std::string> write(kernel::DataSet& dataSet, QString const& path, Replacing replacing);
    QString whatIsUnsaved() const;
    bool isLocked();
    static void tellError(QString const& text);
    void record(kernel::CommandText const& command) noexcept;
    QString lastFolder() const;
    void keepFolder(QString const& path);

    kernel::Session& m_session;
    QWidget& m_window;
    FileReader m_reader;
    RecentFiles m_recentFiles;
    std::map<kernel::UniqueId, QString> m_files; // of data sets
};

} // namespace veldraw::app
