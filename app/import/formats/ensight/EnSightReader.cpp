#include "app/import/formats/ensight/EnSightReader.h"

#include "app/files/PlainText.h"
#include "app/files/SizeCheck.h"
#include "app/import/formats/ensight/EnSightCase.h"
#include "app/import/formats/ensight/EnSightFiles.h"
#include "app/import/formats/vtkxml/WholeGrids.h"
#include "app/import/reading/Moments.h"
#include "app/import/zones/AuxiliaryItems.h"

#include <filesystem>
#include <map>
#include <set>

namespace veldraw::app {

namespace {

// Each file once, with the geometry of the first moment at which it is wanted.
void checkContents(std::string const& path, EnSightCase const& all, std::vector<double> const& times,
                   ImportContext const& context)
{
    std::map<std::string, EnSightShape> shapes;
    std::set<std::string> known;
    for (double const time : times) {
        EnSightShape const* shape = nullptr;
        for (auto const& [part, name] : all.filesAt(time)) {
            try {
                std::string const file = namedFile(path, name);
                if (part->components == 0 && shapes.count(name) == 0)
                    shapes[name] = EnSightShape::of(file, context.progress);
                if (part->components == 0)
                    shape = &shapes[name];
                else if (shape && known.insert(name).second)
                    checkEnSightValues(file, *shape, part->components, context.progress);
            } catch (ImportError const& error) {
                throw ImportError("its part \"" + name + "\": " + error.what());
            }
        }
    }
}

double bytesOfFiles(std::string const& path, std::vector<std::string> const& names)
{
    double bytes = 0.0;
    for (std::string const& name : names)
        bytes += static_cast<double>(FileStamp(namedFile(path, name)).size());
    return bytes;
}

ReadRequest requestAt(std::string const& path, EnSightCase const& all, double time)
{
    ReadRequest request;
    request.what = ReadRequest::What::Format;
    request.path = std::filesystem::absolute(path).string();
    request.extension = "case";
    request.text = all.textAt(time, ReadRequest::folderMark);
    return request;
}

std::vector<ImportedZone> readMoment(std::string const& path, EnSightCase const& all, double time,
                                     ImportContext const& context)
{
    std::vector<std::string> remarks;
    std::vector<std::string> names;
    for (EnSightCase::File const& file : all.filesAt(time))
        names.push_back(file.name);
    auto const limits = ReaderLimits::forBytes(bytesOfFiles(path, names), false);
    auto const object = readWholeFile(requestAt(path, all, time), limits, context, remarks);
    return zonesOfGrids(object, remarks, context);
}

void addConstants(EnSightCase const& all, ImportedZone& zone, std::vector<std::string>& remarks)
{
    AuxiliaryItems items;
    for (auto const& [name, value] : all.constants)
        items.add(asUtf8(name), asUtf8(value));
    addMissing(zone.notesOnDataSet, items.data());
    for (std::string const& text : items.remarks())
        remarks.push_back("Data set: " + text);
}

} // namespace

std::vector<ImportedZone> EnSightReader::read(std::string const& path, ImportContext const& context)
{
    EnSightCase const all = EnSightCase::of(path);
    std::vector<std::string> const names = all.files();
    requireInside(path, names, context.outsidePaths);
    requireReadable(path, names); // VTK's reader would tell one that is missing by a number of its kind
    for (std::string const& name : names)
        context.watch.add(namedFile(path, name));
    for (std::string const& line : all.leftOut)
        context.remarks.push_back("left out: " + asUtf8(line));
    checkMemoryFor(bytesOfFiles(path, names));
    std::vector<double> const times = all.times();
    checkContents(path, all, times.empty() ? std::vector<double>{0.0} : times, context);
    auto zones = readMoments(path, times, context, [&](std::size_t moment, ImportContext const& ofMoment) {
        return readMoment(path, all, times.empty() ? 0.0 : times[moment], ofMoment);
    });
    if (!zones.empty())
        addConstants(all, zones.front(), context.remarks);
    return zones;
}

} // namespace veldraw::app
