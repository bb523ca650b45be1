#include "app/import/formats/vtkxml/PieceList.h"

#include "app/files/PathChecks.h"
#include "app/files/WholeText.h"

#include <QXmlStreamReader>

#include <map>

namespace veldraw::app {

namespace {

QString attribute(QXmlStreamReader const& xml, char const* name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

bool isBlock(QXmlStreamReader const& xml)
{
    return xml.name() == QLatin1String("Block") || xml.name() == QLatin1String("Piece");
}

void requireSound(QXmlStreamReader const& xml)
{
    if (xml.hasError())
        throw ImportError("it is damaged or incomplete (" + xml.errorString().toStdString() + ", line " +
                          std::to_string(xml.lineNumber()) + ")");
}

// What the first tag of a parallel file says, by its extension.
char const* parallelType(std::string const& extension)
{
    static std::map<std::string, char const*> const types{{"pvti", "PImageData"},
                                                          {"pvtr", "PRectilinearGrid"},
                                                          {"pvts", "PStructuredGrid"},
                                                          {"pvtu", "PUnstructuredGrid"},
                                                          {"pvtp", "PPolyData"}};
    return types.at(extension);
}

GridPiece pieceAt(QXmlStreamReader const& xml, std::string const& path)
{
    std::string const file = attribute(xml, "Source").toStdString();
    if (file.empty())
        throw ImportError("a piece of it names no file (line " + std::to_string(xml.lineNumber()) + ")");
    if (extensionOf(file) != extensionOf(path).substr(1))
        throw ImportError("its part \"" + file + "\": files of this kind cannot be parts");
    return {namedFile(path, file), file, {}};
}

} // namespace

PieceList multiBlockPieces(std::string const& path, kernel::Progress const& progress)
{
    std::string const content = wholeText(path);
    QXmlStreamReader xml(QByteArray::fromRawData(content.data(), static_cast<int>(content.size())));
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("VTKFile") ||
        attribute(xml, "type") != QLatin1String("vtkMultiBlockDataSet"))
        throw ImportError("it is no VTK XML multi-block file");
    PieceList result;
    QStringList names; // of the blocks that are open, or of those around them
    while (!xml.atEnd()) {
        progress.check();
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("AppendedData"))
            return result; // what follows need not be XML
        if (xml.isStartElement() && isBlock(xml)) {
            QString const name = attribute(xml, "name");
            names.append(name.isEmpty() && !names.isEmpty() ? names.last() : name);
        } else if (xml.isEndElement() && isBlock(xml)) {
            names.removeLast();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("DataSet")) {
            std::string const piece = attribute(xml, "file").toStdString();
            QString name = attribute(xml, "name");
            if (name.isEmpty() && !names.isEmpty())
                name = names.last();
            if (!piece.empty())
                result.pieces.push_back({namedFile(path, piece), piece, name.toStdString()});
        } else if (xml.isStartElement() && xml.name().endsWith(QLatin1String("Array"))) {
            result.hasFieldData = true;
        }
    }
    requireSound(xml);
    return result;
}

PieceList parallelPieces(std::string const& path, ImportContext const& context)
{
    std::string const content = wholeText(path);
    QXmlStreamReader xml(QByteArray::fromRawData(content.data(), static_cast<int>(content.size())));
    std::string const extension = extensionOf(path);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("VTKFile") ||
        attribute(xml, "type") != QLatin1String(parallelType(extension)))
        throw ImportError("it is no parallel VTK XML file of the kind that ." + extension + " stands for");
    PieceList result;
    while (!xml.atEnd()) {
        context.progress.check();
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("Piece"))
            result.pieces.push_back(pieceAt(xml, path));
    }
    requireSound(xml);
    for (std::size_t n = 0; n < result.pieces.size(); ++n)
        result.pieces[n].name = result.pieces.size() == 1 ? context.title : context.title + " " + std::to_string(n + 1);
    return result;
}

} // namespace veldraw::app
