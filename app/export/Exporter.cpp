#include "app/export/Exporter.h"

#include "app/export/AtomicFiles.h"
#include "app/export/CsvExport.h"
#include "app/export/VtkExport.h"
#include "app/import/files/PathChecks.h"
#include "kernel/compute/Interrupted.h"

#include <QXmlStreamWriter>

#include <filesystem>
#include <fstream>
#include <new>

namespace veldraw::app {

namespace {

namespace fs = std::filesystem;

QString toQt(std::string const& text)
{
    return QString::fromStdString(text);
}

void writeBytes(std::string const& path, QByteArray const& bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.constData(), bytes.size());
    file.close();
    if (!file)
        throw ExportError("the file could not be written; the disk may be full");
}

// The file that names the pieces; VTK's own writer could not be told where the pieces will stand in the end.
QByteArray multiBlockText(std::vector<std::pair<std::string, std::string>> const& namesAndFiles)
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
    for (auto const& [name, file] : namesAndFiles) {
        xml.writeEmptyElement(QStringLiteral("DataSet"));
        xml.writeAttribute(QStringLiteral("index"), QString::number(index++));
        xml.writeAttribute(QStringLiteral("name"), toQt(name));
        xml.writeAttribute(QStringLiteral("file"), toQt(file));
    }
    xml.writeEndDocument();
    return text;
}

// A measure of the bytes that a zone takes in a file.
std::int64_t workOf(kernel::Zone const& zone)
{
    std::int64_t work = 1;
    for (kernel::Field const& field : zone.fields)
        work += field.isPassive() ? 0 : field.group()->buffer()->bytes();
    return work;
}

std::int64_t workOf(kernel::DataSet const& dataSet)
{
    std::int64_t work = 0;
    for (auto const& zone : dataSet.zones())
        work += workOf(*zone);
    return work;
}

ExportResult exportPieces(kernel::DataSet const& dataSet, std::string const& path, kernel::Progress& progress)
{
    AtomicFiles files;
    std::string const name = baseNameOf(path);
    fs::path const folder = fs::path(path).parent_path() / name;
    files.addFolder(folder.string());
    VtkExport const writer(dataSet);
    ExportResult result;
    result.files.append(toQt(path));
    std::vector<std::pair<std::string, std::string>> pieces;
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        kernel::Zone const& source = *dataSet.zone(zone);
        std::string const format = VtkExport::pieceFormat(source);
        std::string const file = name + "_" + std::to_string(zone) + "." + format;
        kernel::Progress ofZone(progress, workOf(source));
        ofZone.check();
        writer.write(zone, format, files.add((folder / file).string()), ofZone);
        pieces.emplace_back(source.name, name + "/" + file);
        result.files.append(toQt((folder / file).string()));
    }
    writeBytes(files.add(path), multiBlockText(pieces));
    files.commit(progress);
    return result;
}

ExportResult exportOneZone(kernel::DataSet const& dataSet, std::string const& path, std::string const& format,
                           kernel::Progress& progress)
{
    if (dataSet.zoneCount() != 1)
        throw ExportError("this format takes one zone, and there are " + std::to_string(dataSet.zoneCount()) +
                          "; .vtm takes them all");
    AtomicFiles files;
    {
        kernel::Progress ofZone(progress, workOf(*dataSet.zone(1)));
        ofZone.check();
        VtkExport(dataSet).write(1, format, files.add(path), ofZone);
    }
    files.commit(progress);
    return {{toQt(path)}, {}};
}

void addLeftOut(ExportResult& result, kernel::Zone const& zone, std::vector<std::string> const& variables)
{
    for (std::string const& name : variables)
        result.remarks.push_back("Zone \"" + zone.name + "\": \"" + name + "\" is cell-centred and was left out");
}

void addHidden(ExportResult& result, kernel::Zone const& zone)
{
    if (auto const hidden = zone.hidden(ValueLocation_Nodal))
        result.remarks.push_back("Zone \"" + zone.name + "\": its " + std::to_string(hidden->count()) +
                                 " hidden points are rows like others, since a table cannot tell them apart");
}

ExportResult exportTables(kernel::DataSet const& dataSet, std::string const& path, char separator,
                          kernel::Progress& progress)
{
    AtomicFiles files;
    ExportResult result;
    fs::path const target(path);
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        fs::path file = target;
        if (dataSet.zoneCount() > 1)
            file.replace_filename(target.stem().string() + "_" + std::to_string(zone) + target.extension().string());
        kernel::Progress ofZone(progress, workOf(*dataSet.zone(zone)));
        ofZone.check();
        addLeftOut(result, *dataSet.zone(zone), writeCsv(dataSet, zone, separator, files.add(file.string()), ofZone));
        addHidden(result, *dataSet.zone(zone));
        result.files.append(toQt(file.string()));
    }
    if (dataSet.zoneCount() > 1)
        result.remarks.push_back("A table holds one zone: " + std::to_string(dataSet.zoneCount()) +
                                 " files were written, with the zone's number in their names");
    files.commit(progress);
    return result;
}

// A file without them would pass for the whole data set.
void requireAllLoaded(kernel::DataSet const& dataSet)
{
    for (auto const& zone : dataSet.zones()) {
        if (zone->isDeferred())
            throw ExportError("the dimensions of zone \"" + zone->name + "\" are not loaded");
        for (std::size_t n = 0; n < zone->fields.size(); ++n) {
            if (!zone->fields[n].isLoaded())
                throw ExportError("\"" + dataSet.variables()[n]->name + "\" of zone \"" + zone->name +
                                  "\" is not loaded");
        }
    }
}

ExportResult exportTo(kernel::DataSet const& dataSet, std::string const& path, kernel::Progress& progress)
{
    requireAllLoaded(dataSet);
    std::string const extension = extensionOf(path);
    if (dataSet.zoneCount() == 0)
        throw ExportError("there are no zones to write");
    // Bringing it to the disk may take as long as writing it.
    progress.setTotal(2 * workOf(dataSet));
    if (extension == "csv" || extension == "tsv")
        return exportTables(dataSet, path, extension == "csv" ? ',' : '\t', progress);
    if (extension == "vtm")
        return exportPieces(dataSet, path, progress);
    if (extension == "vti" || extension == "vts" || extension == "vtu" || extension == "vtp")
        return exportOneZone(dataSet, path, extension, progress);
    throw ExportError("files of this kind (." + extension + ") cannot be written");
}

} // namespace

ExportResult exportDataSet(kernel::DataSet const& dataSet, QString const& path, kernel::Progress& progress)
{
    std::string const name = path.toStdString();
    std::string const start = "Cannot save \"" + name + "\": ";
    try {
        return exportTo(dataSet, name, progress);
    } catch (kernel::Interrupted const&) {
        throw;
    } catch (ExportError const& error) {
        throw ExportError(start + error.what() + ".");
    } catch (std::bad_alloc const&) {
        throw ExportError(start + "there is not enough memory.");
    } catch (std::exception const& error) {
        throw ExportError(start + error.what() + ".");
    }
}

ExportResult exportDataSet(kernel::DataSet const& dataSet, QString const& path)
{
    kernel::Progress unwatched;
    return exportDataSet(dataSet, path, unwatched);
}

QStringList exportNameFilters()
{
    return {QStringLiteral("VTK XML, all zones (*.vtm)"),
            QStringLiteral("VTK XML, one ordered zone (*.vts)"),
            QStringLiteral("VTK XML, one finite-element zone (*.vtu)"),
            QStringLiteral("VTK XML, one surface zone (*.vtp)"),
            QStringLiteral("VTK XML, one uniform grid (*.vti)"),
            QStringLiteral("Comma-separated values (*.csv)"),
            QStringLiteral("Tab-separated values (*.tsv)")};
}

} // namespace veldraw::app
