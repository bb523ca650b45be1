#pragma once

#include "app/import/ImportedZone.h"
#include "app/import/LoadingPlan.h"
#include "app/import/files/FileWatch.h"
#include "app/import/metaimage/MetaImageHeader.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Makes an ordered zone of a MetaImage file: a header (.mhd) beside the file with the values, or both in one file (.mha).
///
/// The coordinates X, Y, Z, as many as the image has axes, are computed. The values become the variable "Value", or
/// "Value_X" and so on where there are several channels. See RawType for how their types become the kernel's.
class MetaImageImport
{
public:
    /// @param watch   gets the file with the values
    /// @param remarks takes sentences for the user
    MetaImageImport(FileWatch& watch, LoadingPlan& plan, std::vector<std::string>& remarks, kernel::Progress& progress);

    /// @param title name of the zone
    /// @throws ImportError, kernel::Interrupted
    ImportedZone read(std::string const& path, std::string const& title);

private:
    std::string dataFileOf(std::string const& path) const;
    std::int64_t offsetIn(std::string const& dataFile, std::int64_t size) const;
    void addCoordinates(ImportedZone& zone);
    void addValues(ImportedZone& zone, FileStamp const& file, std::int64_t offset);
    std::shared_ptr<kernel::ShareGroup> group(FieldDataType_e type, std::shared_ptr<kernel::ValueLoader> const& loader,
                                              double bytes, LoadingPlan::Need need);
    kernel::ValueRange rangeInHeader() const;

    FileWatch& m_watch;
    LoadingPlan& m_plan;
    std::vector<std::string>& m_remarks;
    kernel::Progress& m_progress;
    MetaImageHeader m_header;
};

} // namespace veldraw::app
