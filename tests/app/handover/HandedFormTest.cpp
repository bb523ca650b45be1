#include "app/handover/HandedForm.h"

#include "app/handover/HandedDataCheck.h"
#include "app/handover/Nonsense.h"
#include "tests/app/handover/HandedSample.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

namespace {

constexpr unsigned int seed = 20261122;
std::vector<std::uint64_t> const segments{4096, 4096};

// Looked at again, by numbers without any bound.
void expectWithinSegments(app::HandedArray const& array)
{
    if (array.type == app::HandedArray::Type::Text || array.tuples == 0)
        return;
    ASSERT_GT(array.tuples, 0);
    ASSERT_GT(array.components, 0);
    ASSERT_LT(array.segment, segments.size());
    long double const bits[] = {1, 8, 8, 16, 16, 32, 32, 64, 64, 32, 64, 64};
    long double const needed = bits[static_cast<int>(array.type)] * static_cast<long double>(array.tuples) *
                               static_cast<long double>(array.components) / 8.0L;
    ASSERT_LE(static_cast<long double>(array.offset) + needed, 4096.0L);
}

void expectWithinSegments(app::HandedBlock const& block)
{
    if (block.grid) {
        for (auto const* arrays : {&block.grid->ofPoints, &block.grid->ofCells, &block.grid->ofGrid,
                                   &block.grid->coordinates, &block.grid->cellTypes, &block.grid->faces}) {
            for (app::HandedArray const& array : *arrays)
                expectWithinSegments(array);
        }
        for (app::HandedCells const& cells : block.grid->cells) {
            expectWithinSegments(cells.offsets);
            expectWithinSegments(cells.points);
        }
    }
    for (app::HandedBlock const& inner : block.blocks)
        expectWithinSegments(inner);
}

std::string mutatedBytes(std::string bytes, std::mt19937& random)
{
    for (auto n = 1 + random() % 3; n > 0 && !bytes.empty(); --n) {
        std::size_t const at = random() % bytes.size();
        switch (random() % 5) {
        case 0:
            bytes[at] = static_cast<char>(random() % 256);
            break;
        case 1:
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << (random() % 8)));
            break;
        case 2:
            bytes[at] = random() % 2 == 0 ? '\xff' : '\x7f';
            break;
        case 3:
            bytes.erase(at, 1 + random() % 16);
            break;
        default:
            bytes.insert(at, bytes.substr(random() % bytes.size(), 1 + random() % 16));
        }
    }
    return bytes;
}

} // namespace

TEST(HandedForm, BringsBackWhatItWasMadeOf)
{
    std::string const bytes = app::asBytes(handedBlocks());
    app::HandedData const data = app::fromBytes(bytes);
    EXPECT_EQ(app::asBytes(data), bytes);
    ASSERT_EQ(data.block.blocks.size(), 6U);
    EXPECT_EQ(data.block.blocks[0].name, "block 0");
    app::HandedGrid const& mesh = *data.block.blocks[0].grid;
    EXPECT_EQ(mesh.time, 2.5);
    EXPECT_EQ(mesh.ofPoints[0].name, "v");
    EXPECT_EQ(mesh.ofPoints[0].components, 3);
    EXPECT_EQ(mesh.ofPoints[0].componentNames, (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(mesh.ofGrid[0].texts, std::vector<std::string>{"Wing"});
    EXPECT_EQ(mesh.cells[0].points.offset, 128U);
    EXPECT_EQ(data.block.blocks[1].grid->spacing, (std::array<double, 3>{1, 2, 3}));
    EXPECT_EQ(data.block.blocks[5].content, app::HandedBlock::Content::Nothing);
    EXPECT_EQ(data.remarks, std::vector<std::string>{"something was left out"});
    EXPECT_NO_THROW(app::checkHandedData(data, segments));
}

TEST(HandedForm, OfDamagedBytesIsRefusedOrLiesWithinTheMemory)
{
    std::string const whole = app::asBytes(handedBlocks());
    std::mt19937 random(seed);
    std::printf("seed %u\n", seed);
    int refused = 0;
    int taken = 0;
    for (int n = 0; n < 20000; ++n) {
        SCOPED_TRACE(n);
        std::string const bytes = mutatedBytes(whole, random);
        try {
            app::HandedData const data = app::fromBytes(bytes);
            app::checkHandedData(data, segments);
            ASSERT_NO_FATAL_FAILURE(expectWithinSegments(data.block));
            ++taken;
        } catch (app::Nonsense const&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 5000);
    EXPECT_GT(taken, 100) << "some damage is harmless";
}

TEST(HandedForm, OfBytesThatEndTooEarlyIsRefused)
{
    std::string const whole = app::asBytes(handedBlocks());
    for (std::size_t size = 0; size < whole.size(); ++size)
        ASSERT_THROW(app::fromBytes(whole.substr(0, size)), app::Nonsense) << size;
    EXPECT_THROW(app::fromBytes(whole + "x"), app::Nonsense);
}

// Each takes hundreds of bytes of memory.
TEST(HandedForm, HasNoBlocksWithoutNumber)
{
    app::HandedData data;
    data.block.content = app::HandedBlock::Content::Blocks;
    data.block.blocks.resize(2);
    for (app::HandedBlock& half : data.block.blocks) {
        half.content = app::HandedBlock::Content::Blocks;
        half.blocks.resize(99000);
    }
    EXPECT_NO_THROW(app::fromBytes(app::asBytes(data)));
    data.block.blocks.back().blocks.resize(102000);
    EXPECT_THROW(app::fromBytes(app::asBytes(data)), app::Nonsense);
}

TEST(HandedForm, HasNoBlocksWithinBlocksWithoutEnd)
{
    app::HandedData data;
    app::HandedBlock* innermost = &data.block;
    for (int n = 0; n < 60; ++n) {
        innermost->content = app::HandedBlock::Content::Blocks;
        innermost->blocks.resize(1);
        innermost = &innermost->blocks.front();
    }
    EXPECT_THROW(app::fromBytes(app::asBytes(data)), app::Nonsense);
}

} // namespace veldraw::tests
