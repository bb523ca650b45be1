#include "app/files/ScratchFile.h"

#include "app/import/raw/RawArray.h"
#include "app/import/raw/RawArrayLoader.h"
#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

// Sends temporary files into a folder of the test's.
class ScratchFileTest : public ::testing::Test
{
protected:
    ScratchFileTest() { ::setenv("TMPDIR", m_scratch.path("").c_str(), 1); }
    ~ScratchFileTest() override { ::unsetenv("TMPDIR"); }

    // A number of 32 bits that starts at an odd place, with two neighbours in its tuple.
    app::RawArray oddArray(std::int64_t tuples)
    {
        std::string content = "x";
        for (std::int64_t n = 0; n < 12 * tuples; ++n)
            content += static_cast<char>(n * 37 + n / 256);
        return {app::FileStamp(m_folder.write("a.raw", content)), 1, app::RawType::Float32, tuples, 3, 1, false};
    }

    TemporaryFolder const m_folder;
    TemporaryFolder const m_scratch;
};

// Files may not grow beyond some bytes as long as it lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit const limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

    FileSizeLimit(FileSizeLimit const&) = delete;
    FileSizeLimit& operator=(FileSizeLimit const&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

} // namespace

TEST_F(ScratchFileTest, GivesTheSameBitsAsReading)
{
    kernel::Progress progress;
    app::RawArray array = oddArray(1000003);
    for (app::RawType const type :
         {app::RawType::Float32, app::RawType::UInt32, app::RawType::Int16, app::RawType::UInt8}) {
        array.type = type;
        for (bool const bigEndian : {false, true}) {
            array.bigEndian = bigEndian;
            auto const read = app::readValues(array, progress);
            auto const copied = app::copyToScratch(array, progress);
            ASSERT_EQ(copied->type(), read->type());
            ASSERT_EQ(copied->size(), read->size());
            for (std::int64_t n = 0; n < read->size(); ++n)
                ASSERT_EQ(copied->bits(n), read->bits(n));
        }
    }
}

TEST_F(ScratchFileTest, HasNoNameThatCouldBeLeftBehind)
{
    app::ScratchFile const file(5);
    file.write(0, {'a', 'b', 'c', 'd', 'e'});
    EXPECT_EQ(m_scratch.listing(), "");
    EXPECT_EQ(std::string(static_cast<char const*>(file.map().get()), 5), "abcde");
}

TEST_F(ScratchFileTest, TellsWhenThereIsNoRoomForIt)
{
    FileSizeLimit const limit(1 << 20);
    try {
        app::ScratchFile const file(1 << 21);
        FAIL() << "more than the limit";
    } catch (app::ImportError const& error) {
        EXPECT_THAT(error.what(),
                    HasSubstr("no temporary file of 2097152 bytes can be made in \"" + m_scratch.path("")));
        EXPECT_THAT(error.what(), HasSubstr("it would be larger than a file may be"));
    }
}

TEST_F(ScratchFileTest, TellsWhenItsFolderIsMissing)
{
    ::setenv("TMPDIR", m_scratch.path("nowhere").c_str(), 1);
    EXPECT_THROW(app::ScratchFile(1), app::ImportError);
}

TEST_F(ScratchFileTest, EndsWhenInterrupted)
{
    kernel::Progress progress;
    progress.interrupt();
    EXPECT_THROW(app::copyToScratch(oddArray(10), progress), kernel::Interrupted);
}

TEST_F(ScratchFileTest, IsUsedForWhatTakesMuchOfTheMemoryAndCannotBeMapped)
{
    std::int64_t const tuples = std::int64_t(1) << 40;
    std::string const path = m_folder.write("a.raw", "");
    std::filesystem::resize_file(path, 4 * static_cast<std::uintmax_t>(tuples) + 1);
    app::RawArray array{app::FileStamp(path), 1, app::RawType::Float32, tuples, 1, 0, false};
    EXPECT_FALSE(app::RawArrayLoader::canBeMapped(array));
    app::RawArrayLoader loader(array, std::make_shared<app::SharedArray>());
    EXPECT_TRUE(loader.isMapped());
    FileSizeLimit const limit(1 << 20);
    kernel::Progress progress;
    EXPECT_THROW(loader.load(progress), app::ImportError) << "no room for the temporary file";
    array.tuples = 1000;
    EXPECT_FALSE(app::RawArrayLoader(array, std::make_shared<app::SharedArray>()).isMapped());
}

} // namespace veldraw::tests
