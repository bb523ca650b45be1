#pragma once

#include "app/import/FileStamp.h"
#include "app/import/RawType.h"
#include "kernel/data/ValueLoader.h"

#include <string>

namespace veldraw::app {

/// Brings one component of an array of a VTK XML file by VTK's reader, which reads the grid again, but no other array.
class XmlArrayLoader : public kernel::ValueLoader
{
public:
    struct Place
    {
        FileStamp file;
        std::string extension; ///< lower case, without the dot
        std::string name;      ///< of the array, as VTK says it
        bool inCells = false;
        int component = 0; ///< from 0
    };

    /// @param type   of the numbers in the file
    /// @param tuples values that there must be
    XmlArrayLoader(Place place, RawType type, std::int64_t tuples);

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;

private:
    Place m_place;
    RawType m_type;
    std::int64_t m_tuples;
};

} // namespace veldraw::app
