#include "app/import/formats/vtkxml/VtkXmlReader.h"

#include "app/files/PathChecks.h"
#include "app/files/WholeText.h"
#include "app/import/formats/vtkxml/BlockZones.h"
#include "app/import/formats/vtkxml/GridArrays.h"
#include "app/import/formats/vtkxml/VtkFile.h"

#include <QXmlStreamReader>
#include <vtkFieldData.h>

namespace veldraw::app {

namespace {

void readGrid(std::string const& path, ImportContext const& context, std::vector<ImportedZone>& zones)
{
    DeferredArrays deferred;
    auto const grid = readVtkFile(path, context, deferred);
    addZonesOf(grid, context.title, deferred, context.remarks, zones, context.progress);
}

// One piece that a multi-block file (.vtm) names.
struct MultiBlockPiece
{
    std::string path; // absolute, or relative to the current folder
    std::string file; // as the file spells it, for messages
    std::string name; // of the block; that of the block around it where it has none, else empty
};

QString attribute(QXmlStreamReader const& xml, char const* name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

bool isBlock(QXmlStreamReader const& xml)
{
    return xml.name() == QLatin1String("Block") || xml.name() == QLatin1String("Piece");
}

struct MultiBlockFile
{
    std::vector<MultiBlockPiece> pieces; // in the file's order; blocks without a file are left out
    bool hasFieldData = false;           // beside the pieces
};

MultiBlockFile multiBlockFile(std::string const& path, kernel::Progress const& progress)
{
    std::string const content = wholeText(path);
    QXmlStreamReader xml(QByteArray::fromRawData(content.data(), static_cast<int>(content.size())));
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("VTKFile") ||
        attribute(xml, "type") != QLatin1String("vtkMultiBlockDataSet"))
        throw ImportError("it is no VTK XML multi-block file");
    MultiBlockFile result;
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
    if (xml.hasError())
        throw ImportError("it is damaged or incomplete (" + xml.errorString().toStdString() + ", line " +
                          std::to_string(xml.lineNumber()) + ")");
    return result;
}

std::vector<std::string> namesOf(std::vector<MultiBlockPiece> const& pieces)
{
    std::vector<std::string> names;
    for (MultiBlockPiece const& piece : pieces)
        names.push_back(piece.file);
    return names;
}

void checkPiece(std::string const& path)
{
    std::string const extension = extensionOf(path);
    if (extension.size() != 3 || extension.compare(0, 2, "vt") != 0 ||
        std::string("irsup").find(extension[2]) == std::string::npos)
        throw ImportError("files of this kind cannot be parts");
    checkReadable(path);
}

// All pieces are loaded or the most important of each, instead of all of the first ones and nothing of the last.
void planFor(std::vector<MultiBlockPiece> const& pieces, LoadingPlan& plan, kernel::Progress& progress)
{
    if (plan.deferral() != Deferral::Auto)
        return;
    double bytes = 0.0;
    for (MultiBlockPiece const& piece : pieces) {
        progress.check();
        try {
            checkPiece(piece.path);
            bytes += GridArrays(piece.path, extensionOf(piece.path), progress).bytesToLoad(plan);
        } catch (ImportError const&) {
            // It is told with the piece's name when the piece is read.
        }
    }
    plan.setTotal(bytes);
}

// Field data that cannot be read keep nobody from the zones.
void readNotesOnDataSet(std::string const& path, ImportContext const& context, ImportedZone& zone)
{
    try {
        auto const object = readVtkFieldData(path, context);
        addNotesOnDataSet(*object->GetFieldData(), context.remarks, zone);
    } catch (ImportError const& error) {
        context.remarks.push_back(std::string("Data set: its field data were left out: ") + error.what());
    }
}

void readPieces(std::string const& path, ImportContext const& context, std::vector<ImportedZone>& zones)
{
    auto const [pieces, hasFieldData] = multiBlockFile(path, context.progress);
    requireInside(path, namesOf(pieces), context.outsidePaths);
    planFor(pieces, context.plan, context.progress);
    for (std::size_t n = 0; n < pieces.size(); ++n) {
        MultiBlockPiece const& piece = pieces[n];
        kernel::Progress ofPiece(context.progress, context.progress.total() / static_cast<std::int64_t>(pieces.size()));
        std::string const name = piece.name.empty() ? "Zone " + std::to_string(n + 1) : piece.name;
        try {
            checkPiece(piece.path);
            context.watch.add(piece.path);
            readGrid(piece.path, {name, context.watch, context.plan, ofPiece, context.remarks}, zones);
        } catch (ImportError const& error) {
            throw ImportError("its part \"" + piece.file + "\": " + error.what());
        }
    }
    if (hasFieldData && !zones.empty())
        readNotesOnDataSet(path, context, zones.front());
}

} // namespace

std::vector<ImportedZone> VtkXmlReader::read(std::string const& path, ImportContext const& context)
{
    std::vector<ImportedZone> zones;
    if (extensionOf(path) == "vtm")
        readPieces(path, context, zones);
    else
        readGrid(path, context, zones);
    return zones;
}

} // namespace veldraw::app
