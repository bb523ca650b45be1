#pragma once

#include <string>
#include <vector>

namespace veldraw::sdk::ui::propertymanager {

/// Finds the files in what the kernel remembers of a load.
///
/// The words of the loader "VELDRAW" are the files themselves. In those of any other loader a word that contains
///
/// | keyword | is followed by |
/// |---|---|
/// | "FILENAME_" | a file |
/// | "FILELIST_" | a number, and so many files |
/// | "DIRNAME_" | a folder |
class LoaderInstructionsParser
{
public:
    using Words = std::vector<std::wstring>;

    /// Files and folders in the order of the words. A word in the last place is no keyword, and a list of files ends with the
    /// words at the latest.
    /// @throws boost::bad_lexical_cast when no whole number stands behind "FILELIST_"
    static Words files(Words const& instructions, std::string const& loaderName);
};

} // namespace veldraw::sdk::ui::propertymanager
