#include "app/export/formats/vtkxml/VtkXmlWriter.h"

#include "app/export/formats/vtkxml/AuxiliaryArrays.h"
#include "app/export/formats/vtkxml/ZoneFileWriter.h"
#include "app/files/PathChecks.h"
#include "platform/vdsdkcommon/ShortestText.h"

#include <QXmlStreamWriter>
#include <vtkDataArray.h>
#include <vtkFieldData.h>
#include <vtkSmartPointer.h>
#include <vtkStringArray.h>
#include <vtkVariant.h>

#include <filesystem>
#include <fstream>

namespace veldraw::app {

namespace {

namespace fs = std::filesystem;

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
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.constData(), bytes.size());
    file.close();
    if (!file)
        throw ExportError("the file could not be written; the disk may be full");
}

void writePieces(kernel::DataSet const& dataSet, std::string const& path, ExportContext const& context)
{
    std::string const name = baseNameOf(path);
    fs::path const folder = fs::path(path).parent_path() / name;
    context.files.addFolder(folder.string());
    ZoneFileWriter const writer(dataSet, ZoneFileWriter::Notes::OfZone);
    std::vector<Piece> pieces;
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        kernel::Zone const& source = *dataSet.zone(zone);
        std::string const format = ZoneFileWriter::pieceFormat(source);
        std::string const file = name + "_" + std::to_string(zone) + "." + format;
        kernel::Progress ofZone(context.progress, workOf(source));
        ofZone.check();
        writer.write(zone, format, context.files.add((folder / file).string()), ofZone);
        pieces.push_back({source.name, name + "/" + file});
    }
    writeBytes(context.files.add(path), textNaming(pieces, *notesOn(dataSet)));
}

void writeOneZone(kernel::DataSet const& dataSet, std::string const& path, ExportContext const& context)
{
    if (dataSet.zoneCount() != 1)
        throw ExportError("this format takes one zone, and there are " + std::to_string(dataSet.zoneCount()) +
                          "; .vtm takes them all");
    kernel::Progress ofZone(context.progress, workOf(*dataSet.zone(1)));
    ofZone.check();
    ZoneFileWriter(dataSet, ZoneFileWriter::Notes::OfDataSet)
        .write(1, extensionOf(path), context.files.add(path), ofZone);
}

} // namespace

void VtkXmlWriter::write(kernel::DataSet const& dataSet, std::string const& path, ExportContext const& context)
{
    if (extensionOf(path) == "vtm")
        writePieces(dataSet, path, context);
    else
        writeOneZone(dataSet, path, context);
}

} // namespace veldraw::app
