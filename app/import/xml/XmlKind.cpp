#include "app/import/xml/XmlKind.h"

#include "app/import/xml/XmlTags.h"

#include <map>

namespace veldraw::app {

XmlKind XmlKind::of(std::string const& path, kernel::Progress const& progress)
{
    XmlTags tags(path, progress);
    XmlTags::Tag tag;
    if (!tags.next(tag) || tag.name != "VTKFile")
        return {};
    return {tag.text("type"), !tag.text("compressor").empty()};
}

bool XmlKind::isOf(std::string const& extension) const
{
    static std::map<std::string, std::string> const types{{"vti", "ImageData"},
                                                          {"vtr", "RectilinearGrid"},
                                                          {"vts", "StructuredGrid"},
                                                          {"vtu", "UnstructuredGrid"},
                                                          {"vtp", "PolyData"}};
    auto const found = types.find(extension);
    return found != types.end() && found->second == type;
}

} // namespace veldraw::app
