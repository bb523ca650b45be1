#include "app/handover/HandedForm.h"

#include "app/handover/ByteWriter.h"

namespace veldraw::app {

namespace {

constexpr std::size_t longestText = std::size_t{1} << 28;
constexpr int deepestBlock = 50;
// What each takes up at least, so that no count asks for more memory than the bytes do.
constexpr std::size_t bytesOfArray = 8 + 1 + 4 + 8 + 8 + 4 + 4 + 8 + 8;
constexpr std::size_t bytesOfCells = 2 * bytesOfArray;
constexpr std::size_t bytesOfBlock = 2;
constexpr std::size_t bytesOfText = 8;

void write(ByteWriter& to, HandedArray const& array)
{
    to.text(array.name);
    to.number(static_cast<std::uint8_t>(array.type));
    to.number(array.components);
    to.number(array.tuples);
    to.texts(array.componentNames);
    to.number(array.purposes);
    to.number(array.segment);
    to.number(array.offset);
    to.texts(array.texts);
}

HandedArray readArray(ByteReader& from)
{
    HandedArray array;
    array.name = from.name(handover::longestName);
    array.type = from.enumerator(HandedArray::Type::Text);
    array.components = from.number<std::int32_t>();
    array.tuples = from.number<std::int64_t>();
    array.componentNames = from.names(handover::longestName);
    array.purposes = from.number<std::uint32_t>();
    array.segment = from.number<std::uint32_t>();
    array.offset = from.number<std::uint64_t>();
    array.texts.resize(from.count(bytesOfText));
    for (std::string& text : array.texts)
        text = from.text(longestText);
    return array;
}

void write(ByteWriter& to, std::vector<HandedArray> const& arrays)
{
    to.number(static_cast<std::uint64_t>(arrays.size()));
    for (HandedArray const& array : arrays)
        write(to, array);
}

std::vector<HandedArray> readArrays(ByteReader& from)
{
    std::size_t const count = from.count(bytesOfArray);
    std::vector<HandedArray> arrays;
    for (std::size_t n = 0; n < count; ++n)
        arrays.push_back(readArray(from));
    return arrays;
}

void write(ByteWriter& to, HandedGrid const& grid)
{
    to.number(static_cast<std::uint8_t>(grid.kind));
    to.flag(grid.time.has_value());
    to.number(grid.time.value_or(0.0));
    write(to, grid.ofPoints);
    write(to, grid.ofCells);
    write(to, grid.ofGrid);
    for (std::int32_t const number : grid.extent)
        to.number(number);
    for (double const number : grid.origin)
        to.number(number);
    for (double const number : grid.spacing)
        to.number(number);
    for (double const number : grid.direction)
        to.number(number);
    write(to, grid.coordinates);
    to.number(static_cast<std::uint64_t>(grid.cells.size()));
    for (HandedCells const& cells : grid.cells) {
        write(to, cells.offsets);
        write(to, cells.points);
    }
    write(to, grid.cellTypes);
    write(to, grid.faces);
}

template <typename Numbers>
void readNumbers(ByteReader& from, Numbers& numbers)
{
    for (auto& number : numbers)
        number = from.number<typename Numbers::value_type>();
}

HandedGrid readGrid(ByteReader& from)
{
    HandedGrid grid;
    grid.kind = from.enumerator(HandedGrid::Kind::Surface);
    bool const hasTime = from.flag();
    auto const time = from.number<double>();
    if (hasTime)
        grid.time = time;
    grid.ofPoints = readArrays(from);
    grid.ofCells = readArrays(from);
    grid.ofGrid = readArrays(from);
    readNumbers(from, grid.extent);
    readNumbers(from, grid.origin);
    readNumbers(from, grid.spacing);
    readNumbers(from, grid.direction);
    grid.coordinates = readArrays(from);
    for (std::size_t left = from.count(bytesOfCells); left > 0; --left) {
        HandedArray offsets = readArray(from);
        HandedArray points = readArray(from);
        grid.cells.push_back({std::move(offsets), std::move(points)});
    }
    grid.cellTypes = readArrays(from);
    grid.faces = readArrays(from);
    return grid;
}

void write(ByteWriter& to, HandedBlock const& block)
{
    to.number(static_cast<std::uint8_t>(block.content));
    to.flag(block.name.has_value());
    if (block.name)
        to.text(*block.name);
    if (block.content == HandedBlock::Content::Grid) {
        write(to, *block.grid);
    } else if (block.content == HandedBlock::Content::Blocks) {
        write(to, block.ofBlocks);
        to.number(static_cast<std::uint64_t>(block.blocks.size()));
        for (HandedBlock const& inner : block.blocks)
            write(to, inner);
    } else if (block.content == HandedBlock::Content::Other) {
        to.text(block.kind);
    }
}

// @param left how many more there may be: each takes a hundred times more memory than bytes
HandedBlock readBlock(ByteReader& from, int depth, std::size_t& left)
{
    if (depth > deepestBlock || left == 0)
        throw Nonsense("blocks without end");
    --left;
    HandedBlock block;
    block.content = from.enumerator(HandedBlock::Content::Other);
    if (from.flag())
        block.name = from.name(handover::longestName);
    if (block.content == HandedBlock::Content::Grid) {
        block.grid = readGrid(from);
    } else if (block.content == HandedBlock::Content::Blocks) {
        block.ofBlocks = readArrays(from);
        for (std::size_t count = from.count(bytesOfBlock); count > 0; --count)
            block.blocks.push_back(readBlock(from, depth + 1, left));
    } else if (block.content == HandedBlock::Content::Other) {
        block.kind = from.name(handover::longestName);
    }
    return block;
}

} // namespace

std::string asBytes(HandedData const& data)
{
    ByteWriter to;
    write(to, data.block);
    to.texts(data.remarks);
    to.texts(data.warnings);
    return to.bytes();
}

HandedData fromBytes(std::string_view bytes)
{
    ByteReader from(bytes);
    HandedData data;
    std::size_t left = handover::mostBlocks;
    data.block = readBlock(from, 0, left);
    data.remarks = from.names(handover::longestName);
    data.warnings = from.names(handover::longestName);
    from.expectEnd();
    return data;
}

} // namespace veldraw::app
