#include "app/files/MappedMemory.h"

#include "app/import/raw/RawArray.h"
#include "app/import/raw/RawArrayLoader.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/OpenFiles.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace veldraw::tests {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

constexpr std::int64_t manyBytes = 32 << 20;

app::RawArray bytesIn(std::string const& path, std::int64_t count, std::int64_t offset = 0)
{
    return {app::FileStamp(path), offset, app::RawType::UInt8, count, 1, 0, false};
}

// Makes the file large enough to be mapped.
app::RawArray largeArray(std::string const& path, int components)
{
    std::filesystem::resize_file(path, manyBytes);
    app::RawArray array = bytesIn(path, manyBytes / components);
    array.components = components;
    return array;
}

std::shared_ptr<kernel::Buffer> mapped(app::RawArray const& array)
{
    return app::mapComponents(array).at(static_cast<std::size_t>(array.component));
}

} // namespace

TEST(MappedFile, ShowsTheBytesOfTheFileFromAnyOffset)
{
    TemporaryFolder const folder;
    std::string content(20000, ' ');
    for (std::size_t n = 0; n < content.size(); ++n)
        content[n] = static_cast<char>(n % 251);
    std::string const path = folder.write("a.raw", content);
    for (std::int64_t const offset : {0, 1, 4095, 4096, 9999}) {
        auto const buffer = mapped(bytesIn(path, 20000 - offset, offset));
        for (std::int64_t n = 0; n < buffer->size(); ++n)
            ASSERT_EQ(buffer->value(n), static_cast<double>((n + offset) % 251));
    }
}

TEST(MappedFile, NeverWritesToTheFile)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", "12345");
    auto const buffer = mapped(bytesIn(path, 5));
    buffer->setValue(2, 200.0);
    EXPECT_EQ(buffer->value(2), 200.0);
    EXPECT_EQ(contentOf(path), "12345");
    EXPECT_EQ(mapped(bytesIn(path, 5))->value(2), static_cast<double>('3'));
}

TEST(MappedFile, LivesOnWhenTheFileIsRemoved)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", "12345");
    auto const buffer = mapped(bytesIn(path, 5));
    std::filesystem::remove(path);
    EXPECT_EQ(buffer->value(4), static_cast<double>('5'));
}

TEST(MappedFile, ReadsAsZerosWhereTheFileHasBeenCutShort)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", std::string(100000, 'x'));
    auto const buffer = mapped(bytesIn(path, 100000));
    EXPECT_EQ(app::lossAt(buffer->data()), "");
    std::filesystem::resize_file(path, 4096);
    EXPECT_EQ(buffer->value(0), static_cast<double>('x'));
    EXPECT_EQ(buffer->value(99999), 0.0);
    EXPECT_EQ(buffer->value(99998), 0.0);
    EXPECT_THAT(app::lossAt(buffer->data()), HasSubstr("another program has cut \"" + path + "\" short"));
}

TEST(MappedFile, KnowsThatPagesWereMissingAlsoWhenTheFileIsLongAgain)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", std::string(100000, 'x'));
    auto const buffer = mapped(bytesIn(path, 100000));
    std::filesystem::resize_file(path, 0);
    EXPECT_EQ(buffer->value(50000), 0.0);
    folder.write("a.raw", std::string(100000, 'x'));
    EXPECT_EQ(buffer->value(99999), static_cast<double>('x'));
    EXPECT_EQ(buffer->value(50000), 0.0) << "though the file has it again";
    EXPECT_NE(app::lossAt(buffer->data()), "");
    auto const again = mapped(bytesIn(path, 100000));
    EXPECT_EQ(app::lossAt(again->data()), "") << "is whole";
}

// The rest of a page of which the file has a part reads as zeros without a fault.
TEST(MappedFile, KnowsThatTheEndOfAPageIsMissing)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", std::string(8000, 'x'));
    auto const buffer = mapped(bytesIn(path, 8000));
    auto const start = mapped(bytesIn(path, 4000));
    std::filesystem::resize_file(path, 7000);
    EXPECT_EQ(buffer->value(7500), 0.0);
    EXPECT_NE(app::lossAt(buffer->data()), "");
    EXPECT_EQ(app::lossAt(start->data()), "") << "has all of its bytes";
}

TEST(MappedFile, LosesNothingWhenItIsRemovedOrReplaced)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", std::string(8000, 'x'));
    auto const buffer = mapped(bytesIn(path, 8000));
    folder.write("b.raw", "short");
    std::filesystem::rename(folder.path("b.raw"), path);
    EXPECT_EQ(buffer->value(7999), static_cast<double>('x'));
    EXPECT_EQ(app::lossAt(buffer->data()), "");
    std::filesystem::remove(path);
    EXPECT_EQ(app::lossAt(buffer->data()), "");
}

TEST(MappedFile, IsToldOnceWhenItWasCutAlsoAfterItsLastUse)
{
    TemporaryFolder const folder;
    std::string const first = folder.write("a.raw", std::string(100000, 'x'));
    std::string const second = folder.write("b.raw", std::string(100000, 'x'));
    app::takeCutFiles();
    auto const buffer = mapped(bytesIn(first, 100000));
    auto const other = mapped(bytesIn(first, 90000));
    auto brief = mapped(bytesIn(second, 100000));
    EXPECT_THAT(app::takeCutFiles(), IsEmpty());
    std::filesystem::resize_file(first, 0);
    std::filesystem::resize_file(second, 0);
    EXPECT_THAT(app::takeCutFiles(), IsEmpty()) << "nobody has looked yet";
    EXPECT_EQ(brief->value(0), 0.0);
    brief.reset();
    EXPECT_EQ(buffer->value(0), 0.0);
    EXPECT_EQ(other->value(70000), 0.0);
    EXPECT_THAT(app::takeCutFiles(), UnorderedElementsAre(first, second));
    EXPECT_EQ(buffer->value(90000), 0.0);
    EXPECT_THAT(app::takeCutFiles(), IsEmpty());
    EXPECT_THAT(app::cutFileWarning({first, second}), HasSubstr("\"" + first + "\", \"" + second + "\""));
}

// A file of a thousand pieces must leave the session some files to open.
TEST(MappedFile, IsNotKeptOpenWhereThereAreMany)
{
    TemporaryFolder const folder;
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    rlimit const few{100, before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &few);
    std::vector<std::shared_ptr<kernel::Buffer>> buffers;
    for (int n = 0; n < 90; ++n)
        buffers.push_back(mapped(bytesIn(folder.write(std::to_string(n), std::string(8000, 'x')), 8000)));
    std::filesystem::resize_file(folder.path("0"), 7000);
    std::filesystem::resize_file(folder.path("89"), 7000);
    std::vector<std::string> const losses{app::lossAt(buffers[0]->data()), app::lossAt(buffers[1]->data()),
                                          app::lossAt(buffers[89]->data())};
    std::size_t const open = openFileCount();
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_LT(open, 60U);
    EXPECT_NE(losses[0], "");
    EXPECT_EQ(losses[1], "");
    EXPECT_NE(losses[2], "") << "of those that are not kept open too";
}

TEST(MappedFile, RefusesAFileThatIsTooShortOrNotTheOneThatWasLookedAt)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", "12345");
    app::RawArray const array = bytesIn(path, 6);
    EXPECT_THROW(mapped(array), app::ImportError);
    app::RawArray const good = bytesIn(path, 5);
    std::filesystem::remove(path);
    EXPECT_THROW(mapped(good), app::ImportError);
    folder.write("a.raw", "123456");
    EXPECT_THROW(mapped(good), app::ImportError);
}

TEST(MappedFile, IsUsedForLargeArraysThatStandAsTheKernelWantsThem)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", "");
    std::filesystem::resize_file(path, manyBytes + 64);
    app::RawArray array = bytesIn(path, manyBytes / 4, 4);
    array.type = app::RawType::Float32;
    EXPECT_TRUE(app::RawArrayLoader::canBeMapped(array));
    array.offset = 5;
    EXPECT_FALSE(app::RawArrayLoader::canBeMapped(array));
    array.offset = 4;
    array.bigEndian = true;
    EXPECT_FALSE(app::RawArrayLoader::canBeMapped(array));
    array.bigEndian = false;
    array.type = app::RawType::UInt32;
    EXPECT_FALSE(app::RawArrayLoader::canBeMapped(array));
    array.type = app::RawType::Float32;
    array.tuples = 1000;
    EXPECT_FALSE(app::RawArrayLoader::canBeMapped(array));
}

TEST(MappedFile, GivesTheSameValuesAsReading)
{
    TemporaryFolder const folder;
    std::string content;
    for (int n = 0; n < 3000; ++n)
        content += static_cast<char>(n * 7);
    app::RawArray array = bytesIn(folder.write("a.raw", content), 500);
    array.type = app::RawType::Int16;
    array.components = 3;
    for (array.component = 0; array.component < 3; ++array.component) {
        kernel::Progress progress;
        auto const read = app::readValues(array, progress);
        auto const inPlace = mapped(array);
        ASSERT_EQ(read->size(), inPlace->size());
        for (std::int64_t n = 0; n < read->size(); ++n)
            ASSERT_EQ(read->value(n), inPlace->value(n));
    }
}

TEST(MappedFile, IsMappedOnceForAllComponents)
{
    TemporaryFolder const folder;
    app::RawArray array = largeArray(folder.write("a.raw", ""), 4);
    auto const whole = std::make_shared<app::SharedArray>();
    kernel::Progress progress;
    std::vector<std::shared_ptr<kernel::Buffer>> components;
    for (array.component = 0; array.component < 4; ++array.component)
        components.push_back(app::RawArrayLoader(array, whole).load(progress));
    for (auto const& buffer : components)
        EXPECT_EQ(buffer->owner(), components.front()->owner());
}

TEST(MappedFile, GivesNoFurtherComponentOnceTheFileHasChanged)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", "");
    app::RawArray array = largeArray(path, 2);
    auto const whole = std::make_shared<app::SharedArray>();
    kernel::Progress progress;
    auto const first = app::RawArrayLoader(array, whole).load(progress);
    std::filesystem::resize_file(path, manyBytes + 1);
    array.component = 1;
    EXPECT_THROW(app::RawArrayLoader(array, whole).load(progress), app::ImportError);
}

} // namespace veldraw::tests
