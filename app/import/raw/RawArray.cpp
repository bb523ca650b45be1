#include "app/import/raw/RawArray.h"

#include "app/files/ImportError.h"
#include "app/files/MappedMemory.h"
#include "app/files/ScratchFile.h"
#include "app/files/SystemReason.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <unistd.h>
#include <vector>

namespace veldraw::app {

namespace {

constexpr std::int64_t bytesOfChunk = 1 << 22;

// Closes a file at the end of its scope.
class StampedFile
{
public:
    explicit StampedFile(FileStamp const& file)
        : m_descriptor(file.open())
    {
    }
    ~StampedFile() { ::close(m_descriptor); }

    int descriptor() const { return m_descriptor; }

    StampedFile(StampedFile const&) = delete;
    StampedFile& operator=(StampedFile const&) = delete;

private:
    int m_descriptor;
};

void readBytes(int descriptor, std::int64_t position, std::vector<char>& bytes, std::string const& path)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        ssize_t const got =
            ::pread(descriptor, bytes.data() + done, bytes.size() - done, position + static_cast<std::int64_t>(done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw ImportError("\"" + path + "\" cannot be read: " + systemReason(errno));
        if (got == 0)
            throw ImportError("\"" + path + "\" has become shorter while it was read");
        done += static_cast<std::size_t>(got);
    }
}

template <typename Stored, typename Kept>
void convert(RawArray const& array, std::vector<char> const& bytes, void* target)
{
    std::size_t const step = sizeof(Stored) * static_cast<std::size_t>(array.components);
    char const* from = bytes.data() + sizeof(Stored) * static_cast<std::size_t>(array.component);
    Kept* to = static_cast<Kept*>(target);
    for (std::size_t left = bytes.size() / step; left > 0; --left, from += step, ++to) {
        std::array<char, sizeof(Stored)> raw;
        std::memcpy(raw.data(), from, sizeof(Stored));
        if (array.bigEndian)
            std::reverse(raw.begin(), raw.end());
        // Where nothing is converted, the bits of a number that is none must not be touched either.
        if constexpr (std::is_same_v<Stored, Kept>) {
            std::memcpy(static_cast<void*>(to), raw.data(), sizeof(Stored));
        } else {
            Stored value;
            std::memcpy(&value, raw.data(), sizeof(Stored));
            *to = static_cast<Kept>(value);
        }
    }
}

void convertAny(RawArray const& array, std::vector<char> const& bytes, void* target)
{
    switch (array.type) {
    case RawType::Int8:
        return convert<std::int8_t, std::int16_t>(array, bytes, target);
    case RawType::UInt8:
        return convert<std::uint8_t, std::uint8_t>(array, bytes, target);
    case RawType::Int16:
        return convert<std::int16_t, std::int16_t>(array, bytes, target);
    case RawType::UInt16:
        return convert<std::uint16_t, std::int32_t>(array, bytes, target);
    case RawType::Int32:
        return convert<std::int32_t, std::int32_t>(array, bytes, target);
    case RawType::UInt32:
        return convert<std::uint32_t, double>(array, bytes, target);
    case RawType::Int64:
        return convert<std::int64_t, double>(array, bytes, target);
    case RawType::UInt64:
        return convert<std::uint64_t, double>(array, bytes, target);
    case RawType::Float32:
        return convert<float, float>(array, bytes, target);
    case RawType::Float64:
        return convert<double, double>(array, bytes, target);
    }
}

// Goes through the values in chunks; take() gets each chunk's bytes, the number of its first tuple and that of its tuples.
template <typename Take>
void readInChunks(RawArray const& array, kernel::Progress& progress, Take const& take)
{
    StampedFile const file(array.file);
    std::int64_t const bytesOfTuple = static_cast<std::int64_t>(bytesOf(array.type)) * array.components;
    std::int64_t const tuplesOfChunk = std::max<std::int64_t>(bytesOfChunk / bytesOfTuple, 1);
    std::vector<char> bytes;
    for (std::int64_t first = 0; first < array.tuples; first += tuplesOfChunk) {
        progress.check();
        std::int64_t const count = std::min(tuplesOfChunk, array.tuples - first);
        bytes.resize(static_cast<std::size_t>(count * bytesOfTuple));
        readBytes(file.descriptor(), array.offset + first * bytesOfTuple, bytes, array.file.path());
        take(bytes, first, count);
        progress.advance(count);
    }
    if (!array.file.isSame(file.descriptor()))
        throw ImportError("another program changed \"" + array.file.path() +
                          "\" while it was read; try again when it has finished");
}

// The values of all components, as if they were those of one.
RawArray withoutComponents(RawArray array)
{
    array.tuples *= array.components;
    array.components = 1;
    array.component = 0;
    return array;
}

// @param data of all components, side by side
SharedArray::Components componentsIn(void* data, RawArray const& array, std::shared_ptr<void> const& owner)
{
    FieldDataType_e const type = kernelTypeOf(array.type);
    SharedArray::Components result;
    for (int component = 0; component < array.components; ++component) {
        auto* const first = static_cast<char*>(data) + kernel::Buffer::bytesOf(type, component);
        result.push_back(kernel::Buffer::adopt(type, array.tuples, first, array.components, owner));
    }
    return result;
}

} // namespace

SharedArray::Components mapComponents(RawArray const& array)
{
    StampedFile const file(array.file);
    std::shared_ptr<void> const memory = mapFile(file.descriptor(), array.offset, array.bytes(), array.file.path());
    return componentsIn(memory.get(), array, memory);
}

SharedArray::Components readComponents(RawArray const& array, kernel::Progress& progress)
{
    auto const values = readValues(withoutComponents(array), progress);
    return componentsIn(values->mutableData(), array, values->owner());
}

SharedArray::Components copyComponentsToScratch(RawArray const& array, kernel::Progress& progress)
{
    auto const values = copyToScratch(withoutComponents(array), progress);
    return componentsIn(values->mutableData(), array, values->owner());
}

std::shared_ptr<kernel::Buffer> readValues(RawArray const& array, kernel::Progress& progress)
{
    FieldDataType_e const type = kernelTypeOf(array.type);
    auto values = kernel::Buffer::allocate(type, array.tuples);
    auto* const target = static_cast<char*>(values->mutableData());
    readInChunks(array, progress, [&](std::vector<char> const& bytes, std::int64_t first, std::int64_t) {
        convertAny(array, bytes, target + kernel::Buffer::bytesOf(type, first));
    });
    return values;
}

std::shared_ptr<kernel::Buffer> copyToScratch(RawArray const& array, kernel::Progress& progress)
{
    FieldDataType_e const type = kernelTypeOf(array.type);
    ScratchFile const scratch(kernel::Buffer::bytesOf(type, array.tuples));
    std::vector<char> converted;
    readInChunks(array, progress, [&](std::vector<char> const& bytes, std::int64_t first, std::int64_t count) {
        converted.resize(static_cast<std::size_t>(kernel::Buffer::bytesOf(type, count)));
        convertAny(array, bytes, converted.data());
        scratch.write(kernel::Buffer::bytesOf(type, first), converted);
    });
    std::shared_ptr<void> const memory = scratch.map();
    return kernel::Buffer::adopt(type, array.tuples, memory.get(), 1, memory);
}

} // namespace veldraw::app
