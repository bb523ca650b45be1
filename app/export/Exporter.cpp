#include "app/export/Exporter.h"

#include "app/export/WritableFormats.h"
#include "app/export/writing/WriteReason.h"
#include "app/files/PathChecks.h"
#include "kernel/base/Progress.h"
#include "kernel/operations/LoadVariables.h"

#include <QFileInfo>

#include <memory>
#include <new>
#include <system_error>

namespace veldraw::app {

namespace {

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

// What has been lost of values in a mapped file reads as zeros, which must not take the place of the file.
void requireWhole(kernel::DataSet const& dataSet)
{
    for (auto const& zone : dataSet.zones()) {
        for (kernel::Field const& field : zone->fields) {
            std::string const loss = field.isPassive() ? std::string() : field.group()->whatIsLost();
            if (!loss.empty())
                throw ExportError(loss);
        }
    }
}

std::int64_t workOfAll(kernel::DataSet const& dataSet)
{
    std::int64_t work = 0;
    for (auto const& zone : dataSet.zones())
        work += workOf(*zone);
    return work;
}

std::unique_ptr<Writer> writerFor(std::string const& path)
{
    WritableFormat const* const format = findFormat(writableFormats(), extensionOf(path));
    if (!format)
        throw ExportError("files of this kind (." + extensionOf(path) +
                          ") cannot be written; these can: " + allExtensions(writableFormats(), "."));
    return format->makeWriter();
}

std::vector<std::string> exportTo(kernel::DataSet const& dataSet, std::string const& path, kernel::Progress& progress,
                                  Replacing replacing)
{
    requireAllLoaded(dataSet);
    requireWhole(dataSet);
    if (dataSet.zoneCount() == 0)
        throw ExportError("there are no zones to write");
    auto const writer = writerFor(path);
    std::string const others = writer->alsoReplaces(dataSet, path);
    if (replacing == Replacing::ChosenFile && !others.empty())
        throw WouldReplaceMore("it would also replace " + others);
    progress.setTotal(2 * workOfAll(dataSet)); // bringing it to the disk may take as long as writing it
    std::vector<std::string> remarks;
    auto const save = writer->write(dataSet, path, {progress, remarks});
    requireWhole(dataSet); // its values have been read by now
    save->commit(progress, remarks);
    return remarks;
}

} // namespace

std::vector<std::string> exportDataSet(kernel::DataSet const& dataSet, QString const& path, kernel::Progress& progress,
                                       Replacing replacing)
{
    std::string const name = path.toStdString();
    std::string const start = "Cannot save \"" + name + "\": ";
    try {
        return exportTo(dataSet, name, progress, replacing);
    } catch (kernel::Interrupted const&) {
        throw;
    } catch (WouldReplaceMore const& error) {
        throw WouldReplaceMore(start + error.what() + ".");
    } catch (ExportError const& error) {
        throw ExportError(start + error.what() + ".");
    } catch (std::bad_alloc const&) {
        throw ExportError(start + "there is not enough memory.");
    } catch (std::system_error const& error) {
        throw ExportError(start + reasonOf(error.code().value()) + ".");
    } catch (std::exception const& error) {
        throw ExportError(start + error.what() + ".");
    }
}

std::vector<std::string> exportDataSet(kernel::DataSet const& dataSet, QString const& path, Replacing replacing)
{
    kernel::Progress unwatched;
    return exportDataSet(dataSet, path, unwatched, replacing);
}

QString alsoReplaced(kernel::DataSet const& dataSet, QString const& path)
{
    try {
        std::string const name = path.toStdString();
        return QString::fromStdString(writerFor(name)->alsoReplaces(dataSet, name));
    } catch (std::exception const&) {
        return {};
    }
}

bool replacesFile(kernel::DataSet const& dataSet, QString const& path)
{
    try {
        return QFileInfo::exists(path) && savedPath(dataSet, path) == path;
    } catch (std::exception const&) {
        return false;
    }
}

QString savedPath(kernel::DataSet const& dataSet, QString const& path)
{
    std::string const name = path.toStdString();
    return QString::fromStdString(writerFor(name)->madePath(dataSet, name));
}

// All is asked for, also what is loaded: it would be let go of to make room for the rest.
bool loadWholeDataSet(kernel::Session& session, kernel::DataSet& dataSet)
{
    kernel::NumberSet zones;
    kernel::NumberSet variables;
    bool isMissing = false;
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        if (dataSet.zone(zone)->isDeferred() && !session.perform(kernel::LoadDimensions(dataSet, zone)))
            return false;
        zones.insert(zone);
    }
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
        variables.insert(variable);
        for (int const zone : zones)
            isMissing = isMissing || !dataSet.field(zone, variable)->isLoaded();
    }
    return !isMissing || session.perform(kernel::LoadVariables(dataSet, zones, variables));
}

QStringList exportNameFilters()
{
    return nameFiltersOf(writableFormats());
}

} // namespace veldraw::app
