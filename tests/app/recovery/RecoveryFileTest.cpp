#include "app/recovery/RecoveryFile.h"

#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/FullDisk.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <sys/stat.h>

namespace veldraw::tests {

using app::RecoveryFile;

namespace {

class RecoveryFileTest : public ::testing::Test
{
protected:
    RecoveryFileTest() { makeFile(); }

    void makeFile()
    {
        file.reset();
        file = std::make_unique<RecoveryFile>(folder.path("deep/down"), [this](std::string const& reason) {
            std::lock_guard<std::mutex> const guard(mutex);
            reasons.push_back(reason);
        });
    }

    /// Contents of all files, one behind the other.
    std::vector<std::string> contents() const
    {
        std::vector<std::string> all;
        std::error_code error;
        for (auto const& entry : std::filesystem::directory_iterator(folder.path("deep/down"), error))
            all.push_back(contentOf(entry.path().string()));
        return all;
    }

    TemporaryFolder folder;
    std::mutex mutex;
    std::vector<std::string> reasons;
    std::unique_ptr<RecoveryFile> file;
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(RecoveryFileTest, HasWhatItWasGivenInOrder)
{
    EXPECT_TRUE(file->finish());
    EXPECT_EQ(Texts{}, contents()) << "nothing is made before there is something to write";
    file->begin("a");
    file->append("b");
    for (int n = 0; n < 1000; ++n)
        file->append("c");
    EXPECT_TRUE(file->finish());
    EXPECT_EQ(Texts{"ab" + std::string(1000, 'c')}, contents());
}

TEST_F(RecoveryFileTest, IsWrittenThoughNobodyWaits)
{
    file->begin("a");
    ASSERT_TRUE(file->finish());
    auto const start = std::chrono::steady_clock::now();
    file->append("b");
    file->append("c");
    while (contents() != Texts{"abc"} && std::chrono::steady_clock::now() - start < std::chrono::seconds(10))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST_F(RecoveryFileTest, TakesThePlaceOfTheOneBefore)
{
    file->begin("a");
    file->begin("b");
    ASSERT_TRUE(file->finish());
    EXPECT_EQ(Texts{"b"}, contents());
    file->remove();
    file->append("to nothing");
    EXPECT_TRUE(file->finish());
    EXPECT_EQ(Texts{}, contents());
}

TEST_F(RecoveryFileTest, StaysWhereItIsNotRemoved)
{
    file->begin("a");
    file->append("b");
    file.reset();
    EXPECT_EQ(Texts{"ab"}, contents());
    makeFile();
    file->begin("c");
    ASSERT_TRUE(file->finish());
    EXPECT_EQ(2u, contents().size()) << "that of a run before is left alone";
}

TEST_F(RecoveryFileTest, IsForNobodyElseToRead)
{
    file->begin("a");
    ASSERT_TRUE(file->finish());
    struct stat status
    {
    };
    ASSERT_EQ(0, ::stat(folder.path("deep/down").c_str(), &status));
    EXPECT_EQ(0700u, status.st_mode & 0777U);
    auto const entry = *std::filesystem::directory_iterator(folder.path("deep/down"));
    ASSERT_EQ(0, ::stat(entry.path().c_str(), &status));
    EXPECT_EQ(0600u, status.st_mode & 0777U);
}

TEST_F(RecoveryFileTest, KeepsWhatItHasWhenTheDiskIsFull)
{
    file->begin("abc");
    ASSERT_TRUE(file->finish());
    {
        FullDisk const disk;
        file->append("defg");
        EXPECT_FALSE(file->finish());
        file->append("h");
    }
    file->append("i");
    EXPECT_FALSE(file->finish());
    EXPECT_EQ(Texts{"abc"}, contents()) << "no part of a record, and nothing behind a hole";
    EXPECT_EQ(1u, reasons.size());
    file->begin("jklmnop");
    EXPECT_TRUE(file->finish()) << "there is room again";
    EXPECT_EQ(Texts{"jklmnop"}, contents());
}

TEST_F(RecoveryFileTest, KeepsTheOneBeforeWhereThereIsNoRoomForAnother)
{
    file->begin("abc");
    ASSERT_TRUE(file->finish());
    FullDisk const disk;
    file->begin("defgh");
    EXPECT_FALSE(file->finish());
    EXPECT_EQ(Texts{"abc"}, contents());
}

TEST_F(RecoveryFileTest, SaysWhyItCannotBeMade)
{
    folder.write("deep", "no folder");
    file->begin("a");
    file->append("b");
    EXPECT_FALSE(file->finish());
    EXPECT_EQ(1u, reasons.size());
    EXPECT_EQ("no folder", contentOf(folder.path("deep")));
}

} // namespace veldraw::tests
