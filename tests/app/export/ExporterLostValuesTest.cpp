// Values that were lost while they were mapped are not saved.
#include "app/export/Exporter.h"
#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

constexpr std::int64_t pointsOfImage = 1 << 20;
constexpr std::int64_t bytesOfImage = 16 * pointsOfImage; // bytes, so that they are mapped

// Cuts a file short as soon as somebody works.
class CuttingProgress : public kernel::Progress
{
public:
    explicit CuttingProgress(std::string path)
        : m_path(std::move(path))
    {
    }

    bool isInterrupted() const override
    {
        std::filesystem::resize_file(m_path, 0);
        return false;
    }

private:
    std::string m_path;
};

std::string problemOfSaving(kernel::DataSet const& dataSet, std::string const& path, kernel::Progress& progress)
{
    try {
        app::exportDataSet(dataSet, QString::fromStdString(path), progress);
        return {};
    } catch (app::ExportError const& error) {
        return error.what();
    }
}

class LostValuesTest : public ::testing::Test
{
protected:
    LostValuesTest()
    {
        values = folder.write("a.raw", std::string(bytesOfImage, 'x'));
        dataSet = import(folder.write(
                             "a.mhd",
                             "ObjectType = Image\nNDims = 1\nDimSize = " + std::to_string(pointsOfImage) +
                                 "\nElementNumberOfChannels = 16\nElementType = MET_UCHAR\nElementDataFile = a.raw\n"))
                      .dataSet;
    }

    void expectRefusal(std::string const& path)
    {
        kernel::Progress unwatched;
        expectRefusal(path, unwatched);
    }

    void expectRefusal(std::string const& path, kernel::Progress& progress)
    {
        std::string const before = contentOf(path);
        std::string const files = folder.listing();
        EXPECT_THAT(problemOfSaving(*dataSet, path, progress),
                    AllOf(StartsWith("Cannot save \"" + path + "\": another program has cut \"" + values + "\" short"),
                          HasSubstr("open it again")));
        EXPECT_EQ(contentOf(path), before);
        EXPECT_EQ(folder.listing(), files);
    }

    TemporaryFolder folder;
    std::string values;
    std::shared_ptr<kernel::DataSet> dataSet;
};

} // namespace

TEST_F(LostValuesTest, AreSavedAsLongAsNothingIsLost)
{
    kernel::Progress unwatched;
    EXPECT_EQ(problemOfSaving(*dataSet, folder.path("a.vts"), unwatched), "");
}

TEST_F(LostValuesTest, AreNotSavedWhenPagesAreMissing)
{
    std::string const old = folder.write("old.vts", "what was saved before");
    std::filesystem::resize_file(values, bytesOfImage / 2);
    expectRefusal(old);
    expectRefusal(folder.path("fresh.vtm"));
    EXPECT_FALSE(std::filesystem::exists(folder.path("fresh.vtm")));
}

TEST_F(LostValuesTest, AreNotSavedWhenTheyAreLostMeanwhile)
{
    CuttingProgress progress(values);
    expectRefusal(folder.write("old.vts", "what was saved before"), progress);
    EXPECT_EQ(std::filesystem::file_size(values), 0) << "but not before";
}

TEST_F(LostValuesTest, AreNotSavedWhenTheLastOnesAreMissing)
{
    std::filesystem::resize_file(values, bytesOfImage - 1);
    expectRefusal(folder.write("old.vts", "what was saved before"));
}

TEST_F(LostValuesTest, AreNotSavedWhenSomebodyHasSeenThemMissing)
{
    std::filesystem::resize_file(values, 0);
    EXPECT_EQ(fieldOf(*dataSet, 1, "Value_1").group()->buffer()->value(pointsOfImage / 2), 0.0);
    folder.write("a.raw", std::string(bytesOfImage, 'y'));
    expectRefusal(folder.write("old.vts", "what was saved before"));
}

} // namespace veldraw::tests
