#include "app/export/formats/vtkxml/VtkXmlWriter.h"

#include "app/export/formats/vtkxml/AuxiliaryArrays.h"
#include "app/export/formats/vtkxml/PieceNames.h"
#include "app/export/formats/vtkxml/ZoneFileWriter.h"
#include "app/export/writing/FileSave.h"
#include "app/export/writing/OutputFile.h"
#include "app/files/PathChecks.h"
#include "platform/vdsdkcommon/ShortestText.h"

#include <QXmlStreamWriter>
#include <vtkDataArray.h>
#include <vtkFieldData.h>
#include <vtkSmartPointer.h>
#include <vtkStringArray.h>
#include <vtkVariant.h>

#include <algorithm>
#include <memory>

namespace veldraw::app {

namespace {

struct Piece
{
    std::string name;
    std::string file; // seen from the folder of the file that names it
};

QString toQt(std::string const& text)
{
    return QString::fromStdString(text);
}

// The field data that stand beside the pieces.
vtkSmartPointer<vtkFieldData> notesOn(kernel::DataSet const& dataSet)
{
    auto notes = vtkSmartPointer<vtkFieldData>::New();
    AuxiliaryArrays arrays(*notes);
    arrays.addItems(dataSet.auxiliaryData());
    arrays.addItemsOfVariables(dataSet, uniqueVariableNames(dataSet));
    arrays.addList();
    return notes;
}

// As VTK writes texts without a binary form: a number for each byte, and a zero at the end of each text.
QString asNumbers(vtkStringArray& texts)
{
    QString numbers;
    for (vtkIdType n = 0; n < texts.GetNumberOfValues(); ++n) {
        for (char const c : texts.GetValue(n))
            numbers += QString::number(static_cast<unsigned char>(c)) + QLatin1Char(' ');
        numbers += QStringLiteral("0 ");
    }
    return numbers;
}

QString asNumbers(vtkDataArray& number)
{
    std::string text;
    if (number.GetDataType() == VTK_DOUBLE)
        sdk::appendShortest(text, number.GetComponent(0, 0));
    else
        text = std::to_string(number.GetVariantValue(0).ToTypeInt64());
    return toQt(text);
}

void writeNotes(QXmlStreamWriter& xml, vtkFieldData& notes)
{
    if (notes.GetNumberOfArrays() == 0)
        return;
    xml.writeStartElement(QStringLiteral("FieldData"));
    for (int n = 0; n < notes.GetNumberOfArrays(); ++n) {
        vtkAbstractArray& array = *notes.GetAbstractArray(n);
        auto* const texts = vtkStringArray::SafeDownCast(&array);
        bool const isWhole = array.GetDataType() != VTK_DOUBLE;
        xml.writeStartElement(texts ? QStringLiteral("Array") : QStringLiteral("DataArray"));
        xml.writeAttribute(QStringLiteral("type"), texts     ? QStringLiteral("String")
                                                   : isWhole ? QStringLiteral("Int64")
                                                             : QStringLiteral("Float64"));
        xml.writeAttribute(QStringLiteral("Name"), QString::fromUtf8(array.GetName()));
        xml.writeAttribute(QStringLiteral("NumberOfTuples"), QString::number(array.GetNumberOfTuples()));
        xml.writeAttribute(QStringLiteral("format"), QStringLiteral("ascii"));
        xml.writeCharacters(texts ? asNumbers(*texts) : asNumbers(*notes.GetArray(n)));
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

// VTK's own writer could not be told where the pieces will stand in the end.
QByteArray textNaming(std::vector<Piece> const& pieces, vtkFieldData& notes)
{
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeComment(QLatin1String(markOfOwnPieces));
    xml.writeStartElement(QStringLiteral("VTKFile"));
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("vtkMultiBlockDataSet"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    xml.writeAttribute(QStringLiteral("byte_order"), QStringLiteral("LittleEndian"));
    xml.writeAttribute(QStringLiteral("header_type"), QStringLiteral("UInt64"));
    xml.writeStartElement(QStringLiteral("vtkMultiBlockDataSet"));
    int index = 0;
    for (Piece const& piece : pieces) {
        xml.writeEmptyElement(QStringLiteral("DataSet"));
        xml.writeAttribute(QStringLiteral("index"), QString::number(index++));
        xml.writeAttribute(QStringLiteral("name"), toQt(piece.name));
        xml.writeAttribute(QStringLiteral("file"), toQt(piece.file));
    }
    xml.writeEndElement();
    writeNotes(xml, notes);
    xml.writeEndDocument();
    return text;
}

void writeBytes(std::string const& path, QByteArray const& bytes)
{
    OutputFile file(path);
    file.write(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    file.close();
}

// A file whose name cannot stand in XML would be lost.
void requireXmlName(std::string const& file)
{
    QString const text = toQt(file);
    auto const isLost = [](QChar c) {
        return c == QChar::ReplacementCharacter || c.unicode() < 0x20 || c.unicode() >= 0xFFFE;
    };
    if (std::any_of(text.begin(), text.end(), isLost))
        throw ExportError("a file cannot name zones that stand in \"" + file +
                          "\": choose a name without odd characters");
}

std::unique_ptr<PendingSave> writePieces(kernel::DataSet const& dataSet, std::string const& path,
                                         ExportContext const& context)
{
    std::vector<std::string> formats;
    for (auto const& zone : dataSet.zones())
        formats.push_back(ZoneFileWriter::pieceFormat(*zone));
    auto save = std::make_unique<PiecesSave>(path, formats, namedPieces);
    requireXmlName(save->pieceName(0));
    ZoneFileWriter const writer(dataSet, ZoneFileWriter::Notes::OfZone);
    std::vector<Piece> pieces;
    for (std::size_t n = 0; n < formats.size(); ++n) {
        kernel::Zone const& source = *dataSet.zones()[n];
        kernel::Progress ofZone(context.progress, workOf(source));
        ofZone.check();
        writer.write(static_cast<int>(n) + 1, formats[n], save->piecePath(n), ofZone);
        pieces.push_back({source.name, save->pieceName(n)});
    }
    writeBytes(save->path(), textNaming(pieces, *notesOn(dataSet)));
    return save;
}

std::unique_ptr<PendingSave> writeOneZone(kernel::DataSet const& dataSet, std::string const& path,
                                          ExportContext const& context)
{
    if (dataSet.zoneCount() != 1)
        throw ExportError("this format takes one zone, and there are " + std::to_string(dataSet.zoneCount()) +
                          "; .vtm takes them all");
    auto save = std::make_unique<FileSave>(path);
    kernel::Progress ofZone(context.progress, workOf(*dataSet.zone(1)));
    ofZone.check();
    ZoneFileWriter(dataSet, ZoneFileWriter::Notes::OfDataSet).write(1, extensionOf(path), save->path(), ofZone);
    return save;
}

} // namespace

std::unique_ptr<PendingSave> VtkXmlWriter::write(kernel::DataSet const& dataSet, std::string const& path,
                                                 ExportContext const& context)
{
    return extensionOf(path) == "vtm" ? writePieces(dataSet, path, context) : writeOneZone(dataSet, path, context);
}

} // namespace veldraw::app
