#include "dialogs/datasetinfo/LoaderInstructionsParser.h"

#include <boost/lexical_cast.hpp>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Words = std::vector<std::wstring>;

Words filesIn(Words const& instructions, std::string const& loader = "VTK")
{
    return sdk::ui::propertymanager::LoaderInstructionsParser::files(instructions, loader);
}

TEST(LoaderInstructionsParser, FindsNothingInNoWords)
{
    EXPECT_THAT(filesIn({}), IsEmpty());
    EXPECT_THAT(filesIn({}, "VELDRAW"), IsEmpty());
}

TEST(LoaderInstructionsParser, TakesAllWordsOfOurOwnLoaderForFiles)
{
    Words const words{L"a.dat", L"FILENAME_", L"FILELIST_", L"b.dat"};
    EXPECT_THAT(filesIn(words, "VELDRAW"), ElementsAreArray(words));
}

TEST(LoaderInstructionsParser, KnowsOurOwnLoaderByItsExactNameOnly)
{
    for (char const* const name : {"veldraw", "VELDRAW ", "VELDRAW2", ""})
        EXPECT_THAT(filesIn({L"a.dat", L"b.dat"}, name), IsEmpty()) << name;
}

TEST(LoaderInstructionsParser, TakesTheWordBehindAKeywordForAFileOrAFolder)
{
    EXPECT_THAT(filesIn({L"STANDARDSYNTAX", L"1.0", L"FILENAME_GRID", L"wing.x", L"DIRNAME_OUT", L"/data", L"last"}),
                ElementsAre(L"wing.x", L"/data"));
}

TEST(LoaderInstructionsParser, FindsAKeywordAnywhereInAWord)
{
    EXPECT_THAT(filesIn({L"my FILENAME_ here", L"a", L"-DIRNAME_", L"b", L"xFILELIST_x", L"1", L"c"}),
                ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(filesIn({L"filename_", L"a", L"FILENAME", L"b"}), IsEmpty()) << "no keywords";
}

TEST(LoaderInstructionsParser, LooksForTheKeywordsInTheirOrder)
{
    EXPECT_THAT(filesIn({L"DIRNAME_FILELIST_FILENAME_", L"7", L"b"}), ElementsAre(L"7"));
    EXPECT_THAT(filesIn({L"DIRNAME_FILELIST_", L"1", L"b"}), ElementsAre(L"b"));
}

TEST(LoaderInstructionsParser, DoesNotLookForKeywordsInFileNames)
{
    EXPECT_THAT(filesIn({L"FILENAME_", L"FILENAME_", L"a", L"b"}), ElementsAre(L"FILENAME_"));
    EXPECT_THAT(filesIn({L"FILELIST_", L"1", L"DIRNAME_", L"a"}), ElementsAre(L"DIRNAME_"));
}

TEST(LoaderInstructionsParser, FindsNoValueBehindAKeywordInTheLastPlace)
{
    for (wchar_t const* const keyword : {L"FILENAME_", L"FILELIST_", L"DIRNAME_"}) {
        EXPECT_THAT(filesIn({keyword}), IsEmpty());
        EXPECT_THAT(filesIn({L"FILENAME_", L"a", keyword}), ElementsAre(L"a"));
    }
}

TEST(LoaderInstructionsParser, TakesAsManyFilesAsAListSays)
{
    EXPECT_THAT(filesIn({L"FILELIST_", L"2", L"a", L"b", L"c", L"FILENAME_", L"d"}), ElementsAre(L"a", L"b", L"d"));
    EXPECT_THAT(filesIn({L"FILELIST_", L"+2", L"a", L"b", L"c"}), ElementsAre(L"a", L"b"));
    EXPECT_THAT(filesIn({L"FILELIST_", L"0", L"a", L"b"}), IsEmpty());
}

TEST(LoaderInstructionsParser, EndsAListOfFilesWithTheWords)
{
    EXPECT_THAT(filesIn({L"FILELIST_", L"3", L"a", L"b"}), ElementsAre(L"a", L"b"));
    EXPECT_THAT(filesIn({L"FILELIST_", L"2147483647", L"a"}), ElementsAre(L"a"));
    EXPECT_THAT(filesIn({L"FILELIST_", L"3"}), IsEmpty());
}

TEST(LoaderInstructionsParser, TakesNoFilesForANegativeNumberAndGoesOn)
{
    EXPECT_THAT(filesIn({L"FILELIST_", L"-2", L"a", L"FILENAME_", L"b"}), ElementsAre(L"b"));
}

TEST(LoaderInstructionsParser, ThrowsForWhatIsNoWholeNumber)
{
    for (wchar_t const* const number : {L"", L"two", L"3 ", L" 3", L"2.5", L"2147483648", L"-2147483649", L"0x2"})
        EXPECT_THROW(filesIn({L"FILELIST_", number, L"a"}), boost::bad_lexical_cast);
}

} // namespace
} // namespace veldraw::tests
