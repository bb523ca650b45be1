#include "app/window/WindowTitle.h"

#include "app/window/DocumentController.h"
#include "kernel/session/Session.h"

#include <QFileInfo>

namespace veldraw::app {

namespace {

QString documentName(kernel::Frame const& frame, DocumentController const& documents)
{
    QString const file = frame.dataSet ? documents.fileOf(*frame.dataSet) : QString();
    return file.isEmpty() ? QString::fromStdString(frame.name) : QFileInfo(file).fileName();
}

bool isFileNamed(std::string const& path, std::string const& name)
{
    bool const endsWithName =
        path.size() >= name.size() && path.compare(path.size() - name.size(), name.size(), name) == 0;
    return endsWithName && (path.size() == name.size() || path[path.size() - name.size() - 1] == '/');
}

// A data set is called after the file that it was read from until somebody gives it a title.
bool isNamedAfterItsFile(kernel::DataSet const& dataSet)
{
    for (kernel::LoaderInstructions const& load : dataSet.loaderInstructions()) {
        for (std::string const& word : load.words) {
            if (isFileNamed(word, dataSet.title()))
                return true;
        }
    }
    return false;
}

QString givenTitle(kernel::Frame const& frame)
{
    bool const isGiven = frame.dataSet && !isNamedAfterItsFile(*frame.dataSet);
    return isGiven ? QString::fromStdString(frame.dataSet->title()) : QString();
}

// Else it would be the mark of changes.
QString withoutMark(QString text)
{
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

} // namespace

QString mainWindowTitle(kernel::Session const& session, DocumentController const& documents)
{
    auto const frame = session.activeFrame();
    if (!frame)
        return QStringLiteral("[*]");
    QString const document = documentName(*frame, documents);
    QString const title = givenTitle(*frame);
    QString const whole = withoutMark(document) + QStringLiteral("[*]");
    return title.isEmpty() || title == document ? whole : whole + QStringLiteral(" \u2013 ") + withoutMark(title);
}

} // namespace veldraw::app
