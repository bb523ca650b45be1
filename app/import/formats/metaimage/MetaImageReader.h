#pragma once

#include "app/import/formats/metaimage/MetaImageHeader.h"
#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads MetaImage files: a header (.mhd) beside the file with the values, or both in one file (.mha).
///
/// They become one ordered zone. The coordinates X, Y, Z, as many as the image has axes, are computed. The values become the variable
/// "Value", or "Value_X" and so on where there are several channels. See RawType for how their types become the kernel's.
class MetaImageReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;

private:
    std::string dataFileOf(std::string const& path, OutsidePaths outsidePaths) const;
    std::int64_t offsetIn(std::string const& dataFile, std::int64_t size) const;
    void addCoordinates(ImportedZone& zone, ImportContext const& context) const;
    void addValues(ImportedZone& zone, FileStamp const& file, std::int64_t offset, ImportContext const& context) const;
    std::shared_ptr<kernel::ShareGroup> group(FieldDataType_e type, std::shared_ptr<kernel::ValueLoader> const& loader,
                                              double bytes, LoadingPlan::Need need, ImportContext const& context) const;
    kernel::ValueRange rangeInHeader() const;

    MetaImageHeader m_header;
};

} // namespace veldraw::app
