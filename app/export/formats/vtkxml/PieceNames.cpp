#include "app/export/formats/vtkxml/PieceNames.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/SaveTarget.h"

#include <QFile>
#include <QXmlStreamReader>

#include <filesystem>

namespace veldraw::app {

namespace {

// As seen from the folder of the file that names it.
std::string seenFrom(std::string const& folder, std::string const& file)
{
    std::filesystem::path const path = std::filesystem::path(file).lexically_normal();
    return path.is_absolute() ? path.lexically_relative(std::filesystem::absolute(folder).lexically_normal()).string()
                              : path.string();
}

} // namespace

NamedPieces namedPieces(std::string const& path)
{
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        throw ExportError("the file that is there cannot be read");
    NamedPieces pieces;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd() && xml.name() != QLatin1String("AppendedData")) {
        xml.readNext();
        if (xml.isComment() && xml.text() == QLatin1String(markOfOwnPieces))
            pieces.areItsOwn = true;
        auto const name = xml.attributes().value(QLatin1String("file"));
        if (xml.isStartElement() && !name.isEmpty())
            pieces.files.insert(seenFrom(folderOf(path), name.toString().toStdString()));
    }
    if (file.error() != QFileDevice::NoError)
        throw ExportError("the file that is there cannot be read");
    return pieces;
}

} // namespace veldraw::app
