#include "app/import/formats/series/SeriesList.h"

#include "app/files/ImportError.h"
#include "app/files/NamedFiles.h"
#include "app/files/WholeText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamReader>

#include <cmath>

namespace veldraw::app {

namespace {

std::string textOf(QXmlStreamReader const& xml, char const* name)
{
    return xml.attributes().value(QLatin1String(name)).toString().toStdString();
}

// The moment 0 where a file has no time of its own.
double timeOf(QXmlStreamReader const& xml)
{
    QString const text = xml.attributes().value(QLatin1String("timestep")).toString().trimmed();
    if (text.isEmpty())
        return 0.0;
    bool isNumber = false;
    double const time = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(time))
        throw ImportError("its time step \"" + text.toStdString() + "\" is no number (line " +
                          std::to_string(xml.lineNumber()) + ")");
    return time;
}

SeriesEntry entryAt(QXmlStreamReader const& xml, std::string const& path)
{
    SeriesEntry entry;
    entry.file = textOf(xml, "file");
    if (entry.file.empty())
        throw ImportError("a part of it names no file (line " + std::to_string(xml.lineNumber()) + ")");
    entry.path = namedFile(path, entry.file);
    entry.part = textOf(xml, "group") + '\n' + textOf(xml, "part");
    entry.name = textOf(xml, "name");
    entry.time = timeOf(xml);
    return entry;
}

SeriesEntry entryOf(QJsonValue const& value, int place, std::string const& path)
{
    std::string const which = "entry " + std::to_string(place + 1) + " of its \"files\" ";
    QJsonObject const object = value.toObject();
    SeriesEntry entry;
    entry.file = object.value(QLatin1String("name")).toString().toStdString();
    if (entry.file.empty())
        throw ImportError(which + "names no file");
    entry.path = namedFile(path, entry.file);
    QJsonValue const time = object.value(QLatin1String("time"));
    if (!time.isUndefined() && !time.isDouble())
        throw ImportError(which + "has a time that is no number");
    entry.time = time.toDouble(place);
    return entry;
}

} // namespace

SeriesList collectionOf(std::string const& path, kernel::Progress const& progress)
{
    std::string const content = wholeText(path);
    QXmlStreamReader xml(QByteArray::fromRawData(content.data(), static_cast<int>(content.size())));
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("VTKFile") ||
        xml.attributes().value(QLatin1String("type")) != QLatin1String("Collection"))
        throw ImportError("it is no collection of VTK XML files");
    SeriesList list;
    while (!xml.atEnd()) {
        progress.check();
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("DataSet"))
            list.push_back(entryAt(xml, path));
    }
    if (xml.hasError())
        throw ImportError("it is damaged or incomplete (" + xml.errorString().toStdString() + ", line " +
                          std::to_string(xml.lineNumber()) + ")");
    return list;
}

SeriesList jsonSeriesOf(std::string const& path, kernel::Progress const& progress)
{
    std::string const content = wholeText(path);
    QJsonParseError error;
    QJsonDocument const document =
        QJsonDocument::fromJson(QByteArray::fromRawData(content.data(), static_cast<int>(content.size())), &error);
    if (error.error != QJsonParseError::NoError)
        throw ImportError("it is damaged or incomplete (" + error.errorString().toStdString() + ", byte " +
                          std::to_string(error.offset) + ")");
    QJsonValue const files = document.object().value(QLatin1String("files"));
    if (!files.isArray())
        throw ImportError("it has no list of \"files\"");
    SeriesList list;
    QJsonArray const entries = files.toArray();
    for (int place = 0; place < entries.size(); ++place) {
        progress.check();
        list.push_back(entryOf(entries.at(place), place, path));
    }
    return list;
}

} // namespace veldraw::app
