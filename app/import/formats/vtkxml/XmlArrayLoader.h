#pragma once

#include "app/files/FileStamp.h"
#include "app/import/formats/vtkxml/VtkFile.h"
#include "app/import/raw/RawType.h"
#include "app/import/raw/SharedArray.h"
#include "kernel/storage/ValueLoader.h"

#include <vtkDataArray.h>

#include <string>

namespace veldraw::app {

/// Brings one component of an array of a VTK XML file by VTK's reader, which reads that array alone.
class XmlArrayLoader : public kernel::ValueLoader
{
public:
    struct Place
    {
        FileStamp file;
        std::string extension; ///< lower case, without the dot
        XmlSection section;
        std::string name; ///< of the array, as VTK says it
        int components = 1;
        int component = 0; ///< from 0
    };

    /// @param type   of the numbers in the file
    /// @param tuples     values that there must be
    /// @param whole      the same for all components of the array
    /// @param knownRange what the file says of the component's values
    XmlArrayLoader(Place place, RawType type, std::int64_t tuples, std::shared_ptr<SharedArray> whole,
                   kernel::ValueRange const& knownRange);

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override { return m_range; }
    bool canLoad() const override { return m_place.file.isUnchanged(); }
    Array array() const override;

private:
    SharedArray::Components read(kernel::Progress& progress) const;
    vtkDataArray* arrayIn(vtkDataObject* grid) const;

    Place m_place;
    RawType m_type;
    std::int64_t m_tuples;
    std::shared_ptr<SharedArray> m_whole;
    kernel::ValueRange m_range;
};

} // namespace veldraw::app
