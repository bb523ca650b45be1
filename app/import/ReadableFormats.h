#pragma once

#include "app/files/FileFormat.h"
#include "app/import/reading/Reader.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// A format of files that can be opened.
struct ReadableFormat : FileFormat
{
    std::string loader;                      ///< what a data set calls the loader that it came by
    std::unique_ptr<Reader> (*makeReader)(); ///< never null
    bool mayBeEmpty = false;                 ///< such a file need not say anything: what counts is where it stands
};

/// All formats that can be opened, in the order in which they are shown. What users see of the formats comes from here: file
/// dialog, command line help, messages, and the list in the README, which a test holds against this one.
std::vector<ReadableFormat> const& readableFormats();

} // namespace veldraw::app
