#include "dialogs/datasetinfo/LoaderInstructionsParser.h"

#include <boost/lexical_cast.hpp>

#include <cstddef>

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool holdsKeyword(std::wstring const& word, wchar_t const* keyword)
{
    return word.find(keyword) != std::wstring::npos;
}

} // namespace

LoaderInstructionsParser::Words LoaderInstructionsParser::files(Words const& instructions,
                                                                std::string const& loaderName)
{
    if (loaderName == "VELDRAW")
        return instructions;
    Words files;
    for (std::size_t place = 0; place + 1 < instructions.size(); ++place) {
        std::wstring const& word = instructions[place];
        if (holdsKeyword(word, L"FILENAME_")) {
            files.push_back(instructions[++place]);
        } else if (holdsKeyword(word, L"FILELIST_")) {
            for (int left = boost::lexical_cast<int>(instructions[++place]);
                 left > 0 && place + 1 < instructions.size(); --left)
                files.push_back(instructions[++place]);
        } else if (holdsKeyword(word, L"DIRNAME_")) {
            files.push_back(instructions[++place]);
        }
    }
    return files;
}

} // namespace veldraw::sdk::ui::propertymanager
