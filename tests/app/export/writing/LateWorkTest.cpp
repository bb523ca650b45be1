#include "app/export/writing/LateWork.h"

#include "app/export/formats/vtkxml/PieceNames.h"
#include "app/export/writing/FileSave.h"
#include "app/export/writing/FolderSave.h"
#include "app/export/writing/PiecesSave.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/support/AllocationFailure.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>

namespace veldraw::tests {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// One kind of save, prepared so far that it is only to be put in place.
struct Kind
{
    std::function<std::unique_ptr<app::PendingSave>(std::string const& text)> prepare;
    std::function<std::string()> content; ///< of what users see
};

/// How many names there are in a folder and the folders in it.
std::ptrdiff_t namesIn(std::string const& folder)
{
    std::filesystem::recursive_directory_iterator const all(folder);
    return std::distance(begin(all), end(all));
}

void writeTo(std::string const& path, std::string const& text)
{
    std::ofstream(path, std::ios_base::binary) << text;
}

/// Lets each request for memory fail while a save replaces an older one; each has to say what is true.
void sweepCommit(TemporaryFolder const& folder, Kind const& kind)
{
    kernel::Progress progress;
    std::vector<std::string> remarks;
    kind.prepare("0")->commit(progress, remarks);
    ASSERT_EQ(kind.content(), "0");
    auto const names = namesIn(folder.path(""));
    int refused = 0;
    int remarked = 0;
    for (auto const lasting : {AllocationFailure::Lasting::Once, AllocationFailure::Lasting::FromThenOn}) {
        bool hasFailed = true;
        for (int request = 1; hasFailed; ++request) {
            SCOPED_TRACE(request);
            std::string const before = kind.content();
            std::string const text = before == "0" ? "1" : "0";
            remarks.clear();
            bool isSaid = false;
            {
                auto const save = kind.prepare(text);
                AllocationFailure const failure(request, lasting);
                try {
                    save->commit(progress, remarks);
                    isSaid = true;
                } catch (std::bad_alloc const&) {
                    ++refused;
                }
                hasFailed = failure.hasHappened();
            }
            EXPECT_EQ(kind.content(), isSaid ? text : before);
            EXPECT_THAT(remarks,
                        AnyOf(IsEmpty(), ElementsAre(HasSubstr("All is saved, but there was not enough memory"))));
            remarked += remarks.empty() ? 0 : 1;
            remarks.clear();
            kind.prepare(text)->commit(progress, remarks);
            EXPECT_THAT(remarks, IsEmpty());
            EXPECT_EQ(kind.content(), text);
            EXPECT_EQ(namesIn(folder.path("")), names) << "the next save removes what is left";
        }
    }
    EXPECT_GT(refused, 2);
    EXPECT_GT(remarked, 2);
}

} // namespace

TEST(LateWork, IsNoRefusalOfAFile)
{
    TemporaryFolder const folder;
    std::string const path = folder.path("a.vts");
    auto const prepare = [&](std::string const& text) {
        auto save = std::make_unique<app::FileSave>(path);
        writeTo(save->path(), text);
        return save;
    };
    sweepCommit(folder, {prepare, [&] { return contentOf(path); }});
}

TEST(LateWork, IsNoRefusalOfAFileWithPieces)
{
    TemporaryFolder const folder;
    std::string const path = folder.path("a.vtm");
    auto const prepare = [&](std::string const& text) {
        auto save = std::make_unique<app::PiecesSave>(path, std::vector<std::string>{"vts"}, app::namedPieces);
        writeTo(save->piecePath(0), text);
        writeTo(save->path(), std::string("<?xml version=\"1.0\"?><!--") + app::markOfOwnPieces +
                                  "--><VTKFile><DataSet file=\"" + save->pieceName(0) + "\"/></VTKFile>");
        return save;
    };
    auto const content = [&] { return contentOf(folder.path(*app::namedPieces(path).files.begin())); };
    sweepCommit(folder, {prepare, content});
}

TEST(LateWork, IsNoRefusalOfAFolder)
{
    TemporaryFolder const folder;
    auto const prepare = [&](std::string const& text) {
        auto save = std::make_unique<app::FolderSave>(folder.path("a"), std::vector<std::string>{"1.csv"},
                                                      [](std::string const&) { return true; });
        writeTo(save->path("1.csv"), text);
        return save;
    };
    sweepCommit(folder, {prepare, [&] { return contentOf(folder.path("a/1.csv")); }});
}

} // namespace veldraw::tests
