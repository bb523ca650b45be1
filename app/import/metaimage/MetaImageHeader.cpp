#include "app/import/metaimage/MetaImageHeader.h"

#include "app/import/metaimage/MetaImageParser.h"

namespace veldraw::app {

MetaImageHeader MetaImageHeader::read(std::string const& path)
{
    return MetaImageParser(path).run();
}

std::int64_t MetaImageHeader::pointCount() const
{
    std::int64_t count = 1;
    for (std::int64_t const dim : dims)
        count *= dim;
    return count;
}

} // namespace veldraw::app
