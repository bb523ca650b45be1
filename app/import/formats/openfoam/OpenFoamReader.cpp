#include "app/import/formats/openfoam/OpenFoamReader.h"

#include "app/files/SizeCheck.h"
#include "app/import/formats/openfoam/OpenFoamCase.h"
#include "app/import/formats/vtkxml/WholeGrids.h"
#include "app/import/reading/Moments.h"

#include <charconv>

namespace veldraw::app {

namespace {

ReadRequest requestAt(OpenFoamCase const& all, std::size_t moment)
{
    ReadRequest request;
    request.what = ReadRequest::What::Format;
    request.path = all.pathInside();
    request.extension = "foam";
    if (moment < all.times.size()) {
        char text[32];
        request.text.assign(text, std::to_chars(text, text + sizeof text, all.times[moment]).ptr);
    }
    return request;
}

} // namespace

std::vector<ImportedZone> OpenFoamReader::read(std::string const& path, ImportContext const& context)
{
    OpenFoamCase const all = OpenFoamCase::of(path, context.progress);
    std::string const inside = all.pathInside();
    requireReadable(inside, all.needed);
    for (std::string const& name : all.present)
        context.watch.add(namedFile(inside, name));
    requireInside(inside, all.includedFiles(context.progress), context.outsidePaths);
    checkMemoryFor(all.bytes());
    auto const limits = ReaderLimits::forBytes(all.bytes(), all.isPacked());
    return readMoments(namedFile(inside, all.needed.front()), all.times, context,
                       [&](std::size_t moment, ImportContext const& ofMoment) {
                           std::vector<std::string> remarks;
                           auto const object = readWholeFile(requestAt(all, moment), limits, ofMoment, remarks);
                           return zonesOfGrids(object, remarks, ofMoment);
                       });
}

} // namespace veldraw::app
