#include "app/import/formats/vtkxml/MultiBlockFile.h"

#include "app/files/ImportError.h"

#include <QXmlStreamReader>

#include <filesystem>
#include <fstream>
#include <iterator>

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

} // namespace

std::vector<MultiBlockPiece> multiBlockPieces(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string const content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    auto const folder = std::filesystem::path(path).parent_path();
    QXmlStreamReader xml(QByteArray::fromRawData(content.data(), static_cast<int>(content.size())));
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("VTKFile") ||
        attribute(xml, "type") != QLatin1String("vtkMultiBlockDataSet"))
        throw ImportError("it is no VTK XML multi-block file");
    std::vector<MultiBlockPiece> pieces;
    QStringList names;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("AppendedData"))
            return pieces; // what follows need not be XML
        if (xml.isStartElement() && isBlock(xml)) {
            names.append(attribute(xml, "name"));
        } else if (xml.isEndElement() && isBlock(xml)) {
            names.removeLast();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("DataSet")) {
            std::string const piece = attribute(xml, "file").toStdString();
            QString name = attribute(xml, "name");
            for (int n = names.size(); name.isEmpty() && n > 0; --n)
                name = names[n - 1];
            if (!piece.empty())
                pieces.push_back({(folder / piece).string(), piece, name.toStdString()});
        }
    }
    if (xml.hasError())
        throw ImportError("it is damaged or incomplete (" + xml.errorString().toStdString() + ", line " +
                          std::to_string(xml.lineNumber()) + ")");
    return pieces;
}

} // namespace veldraw::app
