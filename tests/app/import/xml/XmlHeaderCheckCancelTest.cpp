// A cancel ends each way through a large file, before any reader of a library gets it; and none waits for a pipe.
#include "app/files/ImportError.h"
#include "app/import/formats/metaimage/MetaImageLines.h"
#include "app/import/formats/table/CsvReader.h"
#include "app/import/formats/vtklegacy/LegacyHeaderCheck.h"
#include "app/import/xml/Base64Text.h"
#include "app/import/xml/NumbersInText.h"
#include "app/import/xml/XmlArrayList.h"
#include "app/import/xml/XmlArrayPrefix.h"
#include "app/import/xml/XmlHeaderCheck.h"
#include "app/import/xml/XmlKind.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/WatchedProgress.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace veldraw::tests {

namespace {

constexpr std::size_t manyBytes = std::size_t{3} << 20;

std::string manyNumbers()
{
    std::string text;
    while (text.size() < manyBytes)
        text += "1.5 2.5 3.5 4.5 5.5 6.5 7.5 8.5\n";
    return text;
}

class CancelledHeader : public ::testing::Test
{
protected:
    TemporaryFolder const folder;
    std::string const text =
        folder.write("a.vti", "<VTKFile type=\"ImageData\"><ImageData>" + manyNumbers() + "</ImageData></VTKFile>");
    InterruptedProgress const cancelled;
};

} // namespace

TEST_F(CancelledHeader, IsNotCheckedToItsEnd)
{
    app::XmlHeaderCheck check(text, static_cast<std::int64_t>(manyBytes), cancelled);
    EXPECT_THROW(check.run(), kernel::Interrupted);
    EXPECT_THROW(app::XmlArrayList(text, cancelled), kernel::Interrupted);
}

TEST_F(CancelledHeader, IsNotLookedForToTheEndWhereThereIsNone)
{
    EXPECT_THROW(app::XmlKind::of(folder.write("b.vti", manyNumbers()), cancelled), kernel::Interrupted);
}

TEST_F(CancelledHeader, HasItsValuesNotDecodedToTheEnd)
{
    std::string const values = folder.write("c", std::string(2 * manyBytes, 'A'));
    EXPECT_THROW(app::Base64Text(values, 0).bytesBehind(4, 1 << 30, cancelled), kernel::Interrupted);
    EXPECT_THROW(app::countNumbersInText(folder.write("d", manyNumbers()), 0, 1 << 30, cancelled), kernel::Interrupted);
}

TEST_F(CancelledHeader, OfALegacyFileIsNotCheckedToItsEnd)
{
    EXPECT_THROW(app::checkLegacyHeader(text, static_cast<std::int64_t>(manyBytes), cancelled), kernel::Interrupted);
}

TEST_F(CancelledHeader, IsNotWaitedForWhereAPipeHasTakenThePlaceOfTheFile)
{
    std::string const pipe = folder.path("pipe.vti");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    kernel::Progress const unwatched;
    EXPECT_THROW(app::XmlKind::of(pipe, unwatched), app::ImportError);
    EXPECT_THROW(app::XmlHeaderCheck(pipe, 100, unwatched).run(), app::ImportError);
    EXPECT_THROW(app::XmlArrayPrefix::read(pipe, 0, {}), app::ImportError);
    EXPECT_THROW(app::Base64Text(pipe, 0), app::ImportError);
    EXPECT_THROW(app::countNumbersInText(pipe, 0, 10, unwatched), app::ImportError);
    EXPECT_THROW(app::checkLegacyHeader(pipe, 100, unwatched), app::ImportError);
    EXPECT_THROW(app::MetaImageLines{pipe}, app::ImportError);
    kernel::Progress progress;
    EXPECT_THROW(app::CsvReader(progress).read(pipe, "zone"), app::ImportError);
}

} // namespace veldraw::tests
