#include "app/window/FilmSave.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FolderSave.h"
#include "app/export/writing/OutputFile.h"
#include "app/window/PictureFile.h"
#include "app/window/ProgressWindow.h"
#include "app/window/TimePlayer.h"
#include "host/MessageLog.h"
#include "kernel/operations/SetSolutionTime.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>

#include <algorithm>

namespace veldraw::app {

namespace {

QString stemOf(QString const& path)
{
    return QFileInfo(path).completeBaseName();
}

// As many digits as the last one needs, so that the names are in order.
std::vector<std::string> namesOf(QString const& path, std::size_t count)
{
    int const digits = std::max(4, QString::number(count).size());
    std::vector<std::string> names;
    for (std::size_t number = 1; number <= count; ++number)
        names.push_back(
            QStringLiteral("%1_%2.png").arg(stemOf(path)).arg(number, digits, 10, QLatin1Char('0')).toStdString());
    return names;
}

FolderSave::IsEarlier isPictureOf(QString const& path)
{
    QRegularExpression const pattern(QLatin1Char('^') + QRegularExpression::escape(stemOf(path)) +
                                     QStringLiteral("_\\d{4,}\\.png$"));
    return [pattern](std::string const& name) { return pattern.match(QString::fromStdString(name)).hasMatch(); };
}

void write(QByteArray const& content, std::string const& path)
{
    OutputFile file(path);
    file.write(content.constData(), static_cast<std::size_t>(content.size()));
    file.close();
}

} // namespace

FilmSave::FilmSave(kernel::Session& session, std::function<QImage()> grab, QWidget& window)
    : m_session(session)
    , m_grab(std::move(grab))
    , m_window(window)
{
}

QString FilmSave::folderFor(QString const& path)
{
    return QFileInfo(path).path() + QLatin1Char('/') + stemOf(path) + QStringLiteral("_film");
}

QString FilmSave::replaced(QString const& path)
{
    std::size_t const count = FolderSave::replacedFiles(folderFor(path).toStdString(), isPictureOf(path)).size();
    QString const pictures = count == 1 ? QStringLiteral("a picture") : QStringLiteral("%1 pictures").arg(count);
    return count == 0 ? QString() : QStringLiteral("the folder \"%1\" with %2").arg(folderFor(path), pictures);
}

std::size_t FilmSave::save(QString const& path)
{
    auto const frame = m_session.activeFrame();
    std::vector<double> const moments = TimePlayer::momentsOf(*frame);
    std::vector<std::string> const names = namesOf(path, moments.size());
    FolderSave save(folderFor(path).toStdString(), names, isPictureOf(path));
    bool hasMoved = false;
    auto const goBack = qScopeGuard([&] {
        if (hasMoved)
            m_session.undo();
    });
    m_run = kernel::nextUniqueId();
    ProgressWindow progress(QStringLiteral("Save Film"), &m_window);
    progress.show();
    for (std::size_t at = 0; at < moments.size(); ++at) {
        double const before = frame->solutionTime;
        show(moments[at]);
        hasMoved = hasMoved || before < frame->solutionTime || before > frame->solutionTime;
        write(encoded(m_grab(), QStringLiteral("png")), save.path(names[at]));
        progress.showFraction(static_cast<double>(at + 1) / static_cast<double>(moments.size()));
        QCoreApplication::processEvents();
        if (progress.isCancelled())
            throw kernel::Interrupted();
    }
    kernel::Progress unwatched;
    std::vector<std::string> remarks;
    save.commit(unwatched, remarks);
    for (std::string const& remark : remarks)
        host::MessageLog::instance().add(MessageBoxType_Warning, remark);
    return moments.size();
}

void FilmSave::show(double moment)
{
    if (m_session.perform(kernel::SetSolutionTime(m_session.activeFrame()->id, moment, m_run)))
        return;
    if (m_session.isInterrupted())
        throw kernel::Interrupted();
    throw ExportError(m_session.lastError());
}

} // namespace veldraw::app
