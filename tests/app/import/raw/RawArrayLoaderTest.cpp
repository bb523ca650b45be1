#include "app/import/raw/RawArrayLoader.h"

#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

// Numbers of 16 bits, big-endian, so that they have to be read: the n-th of all is n * 7 in 16 bits.
app::RawArray bigEndianArray(TemporaryFolder const& folder, std::int64_t tuples, int components)
{
    std::string content;
    for (std::int64_t n = 0; n < tuples * components; ++n) {
        auto const number = static_cast<std::uint16_t>(n * 7);
        content += static_cast<char>(number / 256);
        content += static_cast<char>(number % 256);
    }
    return {app::FileStamp(folder.write("a.raw", content)), 0, app::RawType::UInt16, tuples, components, 0, true};
}

std::vector<std::shared_ptr<kernel::Buffer>> loadAllOf(app::RawArray array)
{
    auto const whole = std::make_shared<app::SharedArray>();
    kernel::Progress progress;
    std::vector<std::shared_ptr<kernel::Buffer>> result;
    for (array.component = 0; array.component < array.components; ++array.component)
        result.push_back(app::RawArrayLoader(array, whole).load(progress));
    return result;
}

void expectValues(std::vector<std::shared_ptr<kernel::Buffer>> const& components)
{
    auto const count = static_cast<std::int64_t>(components.size());
    for (std::int64_t component = 0; component < count; ++component) {
        kernel::Buffer const& values = *components[static_cast<std::size_t>(component)];
        EXPECT_EQ(values.type(), FieldDataType_Int32);
        for (std::int64_t n = 0; n < values.size(); ++n)
            ASSERT_EQ(values.value(n), static_cast<std::uint16_t>((n * count + component) * 7));
    }
}

bool haveOneOwner(std::vector<std::shared_ptr<kernel::Buffer>> const& components)
{
    for (auto const& buffer : components) {
        if (buffer->owner() != components.front()->owner())
            return false;
    }
    return true;
}

// Sends temporary files into a folder as long as it lives.
class ScratchIn
{
public:
    explicit ScratchIn(std::string const& folder) { ::setenv("TMPDIR", folder.c_str(), 1); }
    ~ScratchIn() { ::unsetenv("TMPDIR"); }
    ScratchIn(ScratchIn const&) = delete;
    ScratchIn& operator=(ScratchIn const&) = delete;
};

} // namespace

// The whole file was once read for each of them.
TEST(RawArrayLoader, ReadsTheComponentsOfASmallArrayOnce)
{
    TemporaryFolder const folder;
    for (int const components : {2, 3, 5000}) {
        auto const loaded = loadAllOf(bigEndianArray(folder, 20, components));
        EXPECT_TRUE(haveOneOwner(loaded)) << components;
        expectValues(loaded);
    }
}

TEST(RawArrayLoader, SaysWhatTheComponentsTakeTogether)
{
    TemporaryFolder const folder;
    app::RawArray array = bigEndianArray(folder, 1000, 3);
    auto const whole = std::make_shared<app::SharedArray>();
    app::RawArrayLoader first(array, whole);
    array.component = 1;
    app::RawArrayLoader const second(array, whole);
    EXPECT_EQ(second.array().identity, first.array().identity);
    EXPECT_EQ(second.array().bytes, 3 * 4 * 1000);
    kernel::Progress progress;
    auto const values = first.load(progress);
    EXPECT_EQ(second.array().bytes, 0);
    EXPECT_EQ(first.array().bytes, 3 * 4 * 1000) << "is given away once";
}

TEST(RawArrayLoader, ReadsAFewComponentsOfALargeArrayAlone)
{
    TemporaryFolder const folder;
    auto const loaded = loadAllOf(bigEndianArray(folder, 1500000, 3));
    EXPECT_FALSE(haveOneOwner(loaded));
    expectValues(loaded);
}

TEST(RawArrayLoader, BringsManyComponentsOfALargeArrayThroughOneTemporaryFile)
{
    TemporaryFolder const folder;
    TemporaryFolder const scratch;
    app::RawArray const array = bigEndianArray(folder, 100000, 50);
    {
        ScratchIn const there(scratch.path(""));
        auto const loaded = loadAllOf(array);
        EXPECT_TRUE(haveOneOwner(loaded));
        expectValues(loaded);
    }
    ScratchIn const nowhere(scratch.path("none"));
    EXPECT_THROW(loadAllOf(array), app::ImportError) << "no other way is taken";
}

TEST(RawArrayLoader, CountsAsMuchAsDoneAsThereAreValues)
{
    TemporaryFolder const folder;
    app::RawArray array = bigEndianArray(folder, 1000, 3);
    auto const whole = std::make_shared<app::SharedArray>();
    for (array.component = 0; array.component < 3; ++array.component) {
        kernel::Progress progress;
        progress.setTotal(1000);
        auto const values = app::RawArrayLoader(array, whole).load(progress);
        EXPECT_LE(progress.done(), 1000);
    }
}

} // namespace veldraw::tests
