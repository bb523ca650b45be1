#include "app/import/child/ReaderLimits.h"

#include "app/files/ImportError.h"
#include "tests/app/support/FileHelpers.h"

#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>

namespace veldraw::tests {

TEST(ReaderLimits, GrowWithTheFile)
{
    TemporaryFolder const folder;
    std::string const small = folder.write("small.vtu", std::string(1000, 'x'));
    std::string const large = folder.write("large.vtu", "");
    std::filesystem::resize_file(large, 100000000); // takes no room on the disk
    auto const ofSmall = app::ReaderLimits::forFile(small, false);
    EXPECT_EQ(ofSmall.seconds, 5);
    EXPECT_EQ(ofSmall.quietSeconds, 30);
    EXPECT_EQ(ofSmall.allSeconds, 300);
    auto const ofLarge = app::ReaderLimits::forFile(large, false);
    EXPECT_EQ(ofLarge.seconds, 55);
    EXPECT_EQ(ofLarge.quietSeconds, 80);
    EXPECT_EQ(ofLarge.allSeconds, 800);
    EXPECT_GT(ofSmall.bytes, 0);
    EXPECT_GE(ofLarge.bytes, ofSmall.bytes);
    EXPECT_LE(ofSmall.bytes, 256000000 + 40 * 1000);
    EXPECT_LE(ofLarge.bytes, 256000000 + std::int64_t{40} * 100000000);
}

TEST(ReaderLimits, LeaveCompressedFilesMoreOfAll)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.vtu", std::string(1000000, 'x'));
    auto const plain = app::ReaderLimits::forFile(path, false);
    auto const compressed = app::ReaderLimits::forFile(path, true);
    EXPECT_EQ(compressed.seconds, 25);
    EXPECT_EQ(compressed.quietSeconds, 50);
    EXPECT_EQ(compressed.allSeconds, 500);
    EXPECT_GE(compressed.bytes, plain.bytes);
    EXPECT_LE(compressed.bytes, 256000000 + std::int64_t{2500} * 1000000);
}

TEST(ReaderLimits, AreNoneForAFileThatIsNotThere)
{
    EXPECT_THROW(app::ReaderLimits::forFile("/nowhere/a.vtu", false), app::ImportError);
}

} // namespace veldraw::tests
