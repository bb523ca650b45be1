#include "dialogs/datasetinfo/ImportedFiles.h"

#include "dialogs/datasetinfo/LoaderInstructionsParser.h"
#include "dialogs/property/KernelText.h"
#include "platform/vdsdkbase/VelUtilImport.h"
#include "platform/vdsdkbase/VelUtilString.h"

#include <QString>

#include <boost/lexical_cast.hpp>

#include <filesystem>

namespace veldraw::sdk::ui::propertymanager {

namespace {

using Words = LoaderInstructionsParser::Words;

/// What the kernel remembers of one load.
class LoaderInstructions
{
public:
    /// @param number one-based
    explicit LoaderInstructions(int number) { VelUtilImportGetLoaderInstrByNum(number, m_loader.place(), &m_words); }
    ~LoaderInstructions() { VelUtilStringListDealloc(&m_words); }
    LoaderInstructions(LoaderInstructions const&) = delete;
    LoaderInstructions& operator=(LoaderInstructions const&) = delete;

    std::string loader() const { return m_loader.get() ? m_loader.get() : ""; }
    Words words() const;

private:
    KernelText m_loader;
    StringList_s* m_words = nullptr;
};

Words LoaderInstructions::words() const
{
    Words words;
    for (int number = 1; number <= VelUtilStringListGetCount(m_words); ++number)
        words.push_back(QString::fromUtf8(VelUtilStringListGetRawStringPtr(m_words, number)).toStdWString());
    return words;
}

Words filesOf(LoaderInstructions const& instructions)
{
    try {
        return LoaderInstructionsParser::files(instructions.words(), instructions.loader());
    } catch (boost::bad_lexical_cast const&) {
        return Words();
    }
}

// By way of UTF-8: a path would convert wide text by the user's locale, which may not know its characters.
std::string preferredText(std::wstring const& file)
{
    return std::filesystem::path(QString::fromStdWString(file).toStdString()).make_preferred().string();
}

} // namespace

std::string importedFiles()
{
    std::string text;
    int const count = VelUtilImportGetLoaderInstrCount();
    for (int number = 1; number <= count; ++number) {
        for (std::wstring const& file : filesOf(LoaderInstructions(number)))
            text += preferredText(file) + '\n';
    }
    return text;
}

} // namespace veldraw::sdk::ui::propertymanager
