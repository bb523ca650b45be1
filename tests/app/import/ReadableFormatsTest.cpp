#include "app/import/ReadableFormats.h"

#include "app/export/Exporter.h"
#include "app/export/WritableFormats.h"
#include "app/import/Importer.h"
#include "tests/app/support/FileHelpers.h"

#include <gmock/gmock.h>
#include <set>
#include <sstream>

namespace veldraw::tests {

namespace {

using ::testing::AllOf;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

// The list that follows the first line with these words in the README.
std::vector<std::string> listInReadme(std::string const& words)
{
    std::string const bullet = "  - ";
    std::istringstream text(contentOf(VELDRAW_README));
    std::vector<std::string> items;
    bool isFound = false;
    for (std::string line; std::getline(text, line);) {
        if (isFound && line.compare(0, bullet.size(), bullet) == 0)
            items.push_back(line.substr(bullet.size()));
        else if (!items.empty())
            break;
        isFound = isFound || line.find(words) != std::string::npos;
    }
    return items;
}

template <typename Format>
std::vector<std::string> listFor(std::vector<Format> const& formats)
{
    std::vector<std::string> items;
    for (app::FileFormat const& format : formats)
        items.push_back(format.description + " (`" + format.extensionList(".") + "`)");
    return items;
}

template <typename Format>
void expectSound(std::vector<Format> const& formats)
{
    std::set<std::string> seen;
    for (app::FileFormat const& format : formats) {
        EXPECT_FALSE(format.description.empty());
        EXPECT_FALSE(format.extensions.empty()) << format.description;
        for (std::string const& extension : format.extensions) {
            EXPECT_TRUE(seen.insert(extension).second) << extension << " stands twice";
            EXPECT_EQ(extension.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789"), std::string::npos)
                << extension;
        }
    }
}

} // namespace

TEST(FormatList, HasEachExtensionOnceInLowerCaseWithoutTheDot)
{
    expectSound(app::readableFormats());
    expectSound(app::writableFormats());
}

TEST(FormatList, MakesAReaderOrWriterForEachFormat)
{
    for (app::ReadableFormat const& format : app::readableFormats()) {
        EXPECT_FALSE(format.loader.empty()) << format.description;
        EXPECT_NE(format.makeReader(), nullptr) << format.description;
    }
    for (app::WritableFormat const& format : app::writableFormats())
        EXPECT_NE(format.makeWriter(), nullptr) << format.description;
}

TEST(FormatList, IsTheOneInTheReadme)
{
    EXPECT_THAT(listInReadme("**Opens**"), ElementsAreArray(listFor(app::readableFormats())));
    EXPECT_THAT(listInReadme("**Saves**"), ElementsAreArray(listFor(app::writableFormats())));
}

TEST(FormatList, GivesTheFiltersOfTheFileDialogs)
{
    QStringList const read = app::importNameFilters();
    EXPECT_EQ(read.size(), static_cast<int>(app::readableFormats().size()) + 2);
    EXPECT_TRUE(read.first().startsWith(QStringLiteral("All data files (*.vti *.vtr "))) << read.first().toStdString();
    for (char const* pattern : {" *.vtk ", " *.mha ", " *.csv "})
        EXPECT_TRUE(read.first().contains(QLatin1String(pattern))) << read.first().toStdString();
    EXPECT_TRUE(read.contains(QStringLiteral("MetaImage files (*.mhd *.mha)")));
    EXPECT_EQ(read.last(), QStringLiteral("All files (*)"));
    QStringList const written = app::exportNameFilters();
    EXPECT_EQ(written.size(), static_cast<int>(app::writableFormats().size()));
    EXPECT_EQ(written.first(), QStringLiteral("VTK XML, all zones (*.vtm)"));
}

TEST(FormatList, IsToldToWhoComesWithAnotherKindOfFile)
{
    TemporaryFolder const folder;
    EXPECT_THAT(
        problemWith(folder.write("picture.png", "x")),
        AllOf(HasSubstr("files of this kind (.png) cannot be read; these can: .vti .vtr "), HasSubstr(" .csv ")));
    auto const data = import(folder.write("table.csv", "a\n1\n")).dataSet;
    try {
        app::exportDataSet(*data, QString::fromStdString(folder.path("picture.png")));
        ADD_FAILURE() << "was written";
    } catch (app::ExportError const& error) {
        EXPECT_THAT(error.what(), AllOf(HasSubstr("files of this kind (.png) cannot be written; these can: .vtm .vts "),
                                        HasSubstr(" .csv ")));
    }
}

} // namespace veldraw::tests
