#pragma once

#include "app/export/writing/Writer.h"
#include "app/files/FileFormat.h"

#include <memory>
#include <vector>

namespace veldraw::app {

/// A format that data sets can be saved in.
struct WritableFormat : FileFormat
{
    std::unique_ptr<Writer> (*makeWriter)(); ///< never null
};

/// All formats that data sets can be saved in; Save As offers them in this order, so that the first one is its proposal. What users
/// see of them comes from here, as with readableFormats().
std::vector<WritableFormat> const& writableFormats();

} // namespace veldraw::app
